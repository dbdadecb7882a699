#include "core/manual/sample_conditions.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>

#include "core/reports/offers.h"

namespace tz::manual {
namespace {

// Members of the sample company, and months in which all of them have lines.
struct SampleValue {
  ParameterKey key;
  std::string_view value;
};
constexpr std::array sampleValues = {
    SampleValue{ParameterKey::dept, "销售部"},
    SampleValue{ParameterKey::person, "李明"},
    SampleValue{ParameterKey::unit, "江淮重工集团"},
    SampleValue{ParameterKey::unitClass, "国内客户"},
    SampleValue{ParameterKey::clerk, "李明"},
    SampleValue{ParameterKey::projectClass, "01"},
    SampleValue{ParameterKey::project, "江淮数控车床"},
    SampleValue{ParameterKey::from, "1"},
    SampleValue{ParameterKey::to, "3"},
    SampleValue{ParameterKey::cutoff, "2025-03-31"},
    SampleValue{ParameterKey::month, "3"},
};

// An account on which the sample company keeps what the area is about.
std::string_view sampleAccount(Area area) {
  switch (area) {
    case Area::person:
      return "1221";
    case Area::department:
    case Area::plan:
      return "6601";
    case Area::project:
      return "6001";
    case Area::unit:
      return "1122";
  }
  return {};
}

}  // namespace

std::string_view sampleValue(const ReportDefinition& report, ParameterKey key) {
  if (key == ParameterKey::account) {
    return report.exampleAccount.empty() ? sampleAccount(report.area) : report.exampleAccount;
  }
  // Where all are on offer, all are asked for.
  const auto* control = controlOf(report.dialog, key);
  if (control != nullptr && control->all) return {};
  const auto* const found = std::ranges::find(sampleValues, key, &SampleValue::key);
  return found == sampleValues.end() ? std::string_view() : found->value;
}

Request sampleRequest(const ReportDefinition& report) {
  Request request;
  for (const auto key : parametersOf(report)) {
    const auto value = sampleValue(report, key);
    if (!value.empty()) request.set(key, value);
  }
  return request;
}

std::string sampleCommand(const ReportDefinition& report) {
  auto line = fmt::format("report {} --ledger 示例.db", report.command);
  for (const auto key : parametersOf(report)) {
    const auto value = sampleValue(report, key);
    if (!value.empty()) fmt::format_to(std::back_inserter(line), " --{} {}", parameter(key).option, value);
  }
  return line;
}

}  // namespace tz::manual
