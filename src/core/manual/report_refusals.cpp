#include <algorithm>
#include <fmt/format.h>

#include "core/manual/advice.h"
#include "core/manual/control_texts.h"
#include "core/manual/report_page.h"
#include "core/reports/offers.h"

namespace tz::manual {
namespace {

// A text that a list does not hold stands in the message itself.
constexpr std::string_view anyText = "……";

void add(std::vector<ExplainedRefusal>& all, std::string text, std::string_view advice) {
  const auto same = [&](const ExplainedRefusal& one) { return one.text == text && one.advice == advice; };
  if (std::ranges::none_of(all, same)) all.push_back({std::move(text), std::string(advice)});
}

void addChecks(std::vector<ExplainedRefusal>& all, const DialogSpec& dialog, bool atOpening) {
  for (const auto& check : dialog.checks) {
    if (check.atOpening == atOpening) add(all, std::string(check.message.text), adviceOf(check));
  }
}

}  // namespace

std::vector<ExplainedRefusal> openingRefusals(const ReportDefinition& report) {
  const auto& dialog = report.dialog;
  std::vector<ExplainedRefusal> all;
  for (const auto& check : report.launchChecks) add(all, std::string(check.message.text), usualAdvice().notThereYet);
  add(all, std::string(dialog.databaseNotOpen.text), usualAdvice().databaseNotOpen);
  addChecks(all, dialog, true);
  if (asksForAccount(dialog)) add(all, std::string(dialog.noAccount.text), usualAdvice().noAccountAtAll);
  return all;
}

std::vector<ExplainedRefusal> confirmingRefusals(const ReportDefinition& report) {
  const auto& dialog = report.dialog;
  std::vector<ExplainedRefusal> all;
  for (const auto& control : dialog.controls) {
    if (const auto key = demanded(control)) add(all, messages::choiceWanted(*key), usualAdvice().choiceWanted);
  }
  if (asksForAccount(dialog)) add(all, std::string(dialog.noAccount.text), usualAdvice().noSuchAccount);
  addChecks(all, dialog, false);
  for (const auto choice : dialog.choices) add(all, messages::notListed(anyText), adviceOf(choice));
  return all;
}

std::vector<ExplainedRefusal> drillRefusals(const DrillRule& drill) {
  std::vector<ExplainedRefusal> all;
  for (const auto& check : drill.checks) add(all, std::string(check.message.text), check.advice);
  return all;
}

std::vector<ExplainedRefusal> findRefusals(const ReportDefinition& report) {
  std::vector<ExplainedRefusal> all;
  if (report.find == nullptr) return all;
  add(all, std::string(messages::nothingToFind.text), usualAdvice().nothingToFind);
  add(all, std::string(report.find(Conditions()).notFound.text), usualAdvice().notFound);
  return all;
}

}  // namespace tz::manual
