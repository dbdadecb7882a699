#include "cli/examples.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <optional>

#include "core/catalogue/catalogue.h"

namespace tz::cli {
namespace {

constexpr int firstReport = 10190;

// Values of conditions that lead to a report of the sample company.
struct SampleValue {
  std::optional<Area> area;
  std::string_view option;
  std::string_view value;
  int report = 0;  // of this report alone
};

constexpr std::optional<Area> everyArea;

// Those of one report stand before those of its area.
constexpr std::array sampleValues = {
    SampleValue{Area::person, "account", "1221", 10191},
    SampleValue{Area::person, "account", "122101"},
    SampleValue{Area::person, "dept", "销售部"},
    SampleValue{Area::person, "person", "李明"},
    SampleValue{Area::unit, "account", "112201", 10204},
    SampleValue{Area::unit, "account", "1122"},
    SampleValue{Area::unit, "dept", "销售部"},
    SampleValue{Area::unit, "unit", "江淮重工集团"},
    SampleValue{Area::unit, "unit-class", "国内客户"},
    SampleValue{Area::unit, "clerk", "李明"},
    SampleValue{Area::department, "account", "660101", 10231},
    SampleValue{Area::department, "account", "6601"},
    SampleValue{Area::department, "dept", "销售部"},
    SampleValue{Area::project, "account", "6001"},
    SampleValue{Area::project, "project-class", "01"},
    SampleValue{Area::project, "project", "江淮数控车床"},
    SampleValue{everyArea, "from", "1"},
    SampleValue{everyArea, "to", "3"},
};

const SampleValue* sampleValue(const ReportDefinition& report, std::string_view option) {
  const auto* const found = std::ranges::find_if(sampleValues, [&](const auto& value) {
    const bool meant = value.report == 0 ? value.area.value_or(report.area) == report.area  //
                                         : value.report == report.command;
    return meant && value.option == option;
  });
  return found == sampleValues.end() ? nullptr : found;
}

// With its conditions in their order.
std::string reportLine(const ReportDefinition& report) {
  std::string conditions;
  for (const auto key : parametersOf(report)) {
    const auto option = parameter(key).option;
    if (const auto* sample = sampleValue(report, option)) {
      conditions += fmt::format(" --{} {}", option, sample->value);
    }
  }
  return fmt::format("report {} --ledger 示例.db{}", report.command, conditions);
}

void addExample(CLI::App& command, std::string_view line) {
  const auto before = command.get_footer();
  command.footer(fmt::format("{}{}例：tzassistant {}", before, before.empty() ? "" : "\n", line));
}

}  // namespace

void addReportExamples(CLI::App& app, int reportId) {
  const auto* report = findReport(reportId == 0 ? firstReport : reportId);
  const auto line = reportLine(*report);
  for (const char* more : {"", " --as json", " --as xlsx -o 明细帐.xlsx"}) {
    addExample(*app.get_subcommand("report"), line + more);
  }
}

void addExamples(CLI::App& app, int reportId) {
  auto& ledger = *app.get_subcommand("ledger");
  addExample(app, "ledger create 示例.db --sample");
  addExample(app, "reports");
  addExample(app, reportLine(*findReport(firstReport)));
  addExample(ledger, "ledger create 示例.db --sample");
  addExample(*ledger.get_subcommand("create"), "ledger create 示例.db --sample");
  addExample(*ledger.get_subcommand("create"), "ledger create 新帐套.db --empty --year 2025 --name 新帐套");
  addExample(*ledger.get_subcommand("check"), "ledger check 示例.db");
  addExample(*app.get_subcommand("reports"), "reports --as json");
  addExample(*app.get_subcommand("completion"), "completion bash");
  addReportExamples(app, reportId);
}

}  // namespace tz::cli
