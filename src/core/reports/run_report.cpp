#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <memory>

#include "core/reports/cancel_watch.h"
#include "core/reports/cancellation.h"
#include "core/reports/condition_texts.h"
#include "core/reports/report_definition.h"

namespace tz {
namespace {

// Settles the format and returns those on offer.
std::vector<AmountFormat> chooseFormat(const ReportDefinition& report, Conditions& conditions, bool yields) {
  const auto asked = conditions.request.text(ParameterKey::format);
  conditions.format = conditions.amounts.preselectedFormat;
  if (report.formats == nullptr) return {};
  auto offered = report.formats(conditions);
  if (asked.empty()) return offered;
  const auto named = std::ranges::find(offered, asked, formatName);
  if (named != offered.end()) {
    conditions.format = *named;
  } else if (yields) {
    conditions.request.clear(ParameterKey::format);
  } else {
    std::vector<std::string_view> names;
    std::ranges::transform(offered, std::back_inserter(names), formatName);
    throw WrongUse(ParameterKey::format, fmt::format("“{}”不适用于所选科目，可用：{}", asked, fmt::join(names, "、")));
  }
  return offered;
}

ComputedReport compute(const ReportDefinition& report, const Conditions& conditions, Session& session) {
  ComputedReport computed;
  computed.report = report.command;
  computed.window = report.window;
  computed.title = report.printTitle;
  computed.subtitle = report.subtitle(conditions);
  const auto period = [&](PeriodForm::Text form) { return periodIn(form, conditions, session.logon.year); };
  computed.period = period(report.period.text);
  computed.paintedPeriod = period(report.period.painted);
  computed.printedPeriod = period(report.period.printed);
  computed.unit = unitText(conditions.format, conditions.amounts);
  if (report.formats != nullptr) computed.format = conditions.format;
  auto set = accountSet(session.db);
  computed.company = std::move(set.company);
  computed.conditions = conditionTexts(report, conditions);
  computed.printedConditions = printedConditionTexts(report, conditions);
  computed.subject = subjectText(report, conditions, session.logon.year);
  computed.fileName = proposedFileName(report, conditions, session.logon.year);
  if (report.colours.apply == nullptr || report.colours.apply(conditions)) {
    computed.highlightMeaning = report.colours.meaning;
  }
  report.compute(report, session, conditions, computed);
  auto& notices = computed.grid.notices;
  std::ranges::move(conditionNotices(report, conditions, session, set.year), std::back_inserter(notices));
  std::ranges::stable_sort(notices, {}, &Notice::weight);
  return computed;
}

}  // namespace

DrillAnswer DrillRule::operator()(const Conditions& conditions, const ComputedReport& shown, std::int64_t row) const {
  const DrillPlace place{conditions, shown, row};
  for (const auto& check : checks) {
    if (!check.passes(place)) return refusalWith(check.message);
  }
  return target(*this, place);
}

std::string_view areaName(Area area) {
  switch (area) {
    case Area::person:
      return "个人往来";
    case Area::department:
      return "部门核算";
    case Area::plan:
      return "计划";
    case Area::project:
      return "项目核算";
    case Area::unit:
      return "单位往来";
  }
  return {};
}

std::vector<ParameterKey> parametersOf(const ReportDefinition& report) {
  std::vector<ParameterKey> keys;
  for (const auto& control : report.dialog.controls) {
    for (const auto key : keysOf(control)) keys.push_back(key);
  }
  for (const auto& toggle : rowToggles) {
    if (std::ranges::find(report.toolbar, toggle.command) != report.toolbar.end()) keys.push_back(toggle.key);
  }
  for (const auto& tab : toolbarTabs) {
    const bool first = std::ranges::find(keys, tab.key) == keys.end();
    if (first && std::ranges::find(report.toolbar, tab.command) != report.toolbar.end()) keys.push_back(tab.key);
  }
  if (report.formats != nullptr) keys.push_back(ParameterKey::format);
  return keys;
}

bool takesSeveral(const ReportDefinition& report, ParameterKey key) {
  return std::ranges::any_of(report.dialog.controls, [&](const ControlSpec& control) {
    return control.kind == ControlSpec::Kind::accountLists && control.key == key;
  });
}

Subject wholeSubject(const ReportDefinition& report, const Conditions& conditions) {
  Subject subject{.account = conditions.account.lId,
                  .dept = conditions.dept.lDeptId,
                  .person = conditions.person.lId,
                  .unit = conditions.unit.lId,
                  .item = conditions.project.lId,
                  .itemClass = conditions.projectClass.sItemId,
                  .unitClass = {},
                  .clerk = {}};
  // Those that are of no class or have no clerk are asked for by their own.
  const auto keys = parametersOf(report);
  const auto asks = [&](ParameterKey key) { return std::ranges::find(keys, key) != keys.end(); };
  if (asks(ParameterKey::unitClass)) subject.unitClass = conditions.unitClass.lId;
  if (asks(ParameterKey::clerk)) subject.clerk = conditions.clerk.name;
  return subject;
}

OfferedFormats offeredFormats(const ReportDefinition& report, const Request& request, const CQnCwDB& db) {
  if (report.formats == nullptr) return {};
  CGetData data(db);
  Conditions conditions;
  conditions.request = request;
  const auto account = request.text(ParameterKey::account);
  if (!account.empty()) conditions.amounts = CInitComboFun::InitAmountCombox(data, account);
  auto formats = chooseFormat(report, conditions, true);
  return {std::move(formats), conditions.format};
}

ReportOutcome runReport(const ReportDefinition& report, const Request& request, Session& session,
                        const RunOptions& options) {
  // Opening the ledger anew may wait for a server too.
  std::unique_ptr<CancelWatch> watch;
  if (session.db.HasCurrent()) watch = std::make_unique<CancelWatch>(session);
  if (session.db.DBSelect(session.ledger) != 0) return notOpen(report.dialog);
  watch.reset();  // of the connection that was current before
  watch = std::make_unique<CancelWatch>(session);
  Transaction reading(session.db.Current(), Transaction::Purpose::reading);
  try {
    auto validated = validate(report.dialog, request, session);
    if (auto* refusal = std::get_if<Refusal>(&validated)) {
      reading.commit();  // what it was refused for was read as well
      return std::move(*refusal);
    }
    auto& conditions = std::get<Conditions>(validated);
    auto formats = chooseFormat(report, conditions, options.formatYields);
    auto computed = compute(report, conditions, session);
    if (options.alongside) options.alongside(conditions);
    reading.commit();
    conditions.data.reset();  // it would read another moment
    computed.resolved = std::make_shared<const Conditions>(std::move(conditions));
    computed.formats = std::move(formats);
    return computed;
  } catch (const CancelledWork&) {
    return Cancelled{};
  } catch (const DbError&) {
    // A statement that was stopped on request ends with an error of the database.
    if (session.cancelled()) return Cancelled{};
    throw;
  }
}

std::string unitText(AmountFormat format, const AccountAmounts& amounts) {
  const auto& shown = traitsOf(format);
  if (!shown.amounts) return {};
  std::string text = shown.quantities ? amounts.unit : "";
  if (!shown.foreign || amounts.currency.empty()) return text;
  return text.empty() ? amounts.currency : text + "\n" + amounts.currency;
}

}  // namespace tz
