#include "core/ledger/balance_drill.h"

#include <array>

namespace tz {
namespace {

constexpr Message nothingShown{"没有记录，不能查明细!"};
constexpr Message noMemberChosen{"请先选择一条记录"};
constexpr Message rowWithoutDept{"部门不能不空!"};
constexpr Message noProjectRow{"请选择项目记录!"};
constexpr Message noProjectChosen{"请选择产品名称!"};
constexpr Message noMonthChosen{"请选择要查询的月份。"};

// What the detail ledgers ask for as well.
constexpr std::array carried = {
    ParameterKey::account, ParameterKey::dept,         ParameterKey::person,      ParameterKey::unit,
    ParameterKey::project, ParameterKey::projectClass, ParameterKey::projectFrom, ParameterKey::projectTo,
    ParameterKey::from,    ParameterKey::to,           ParameterKey::unposted,    ParameterKey::format,
};

DetailTarget targetWith(int command, const Request& own) {
  DetailTarget target{.command = command, .conditions = {}};
  for (const auto key : carried) {
    if (own.flag(key)) target.conditions.choose(key, own.member(key));
  }
  return target;
}

}  // namespace

DrillAnswer drillFromMember(int target, const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  if (shown.grid.GetRows() == 0) return refusalWith(nothingShown);
  if (row < 0 || shown.grid.RowKindAt(row) != RowKind::line) return refusalWith(noMemberChosen);
  auto answer = targetWith(target, conditions.request);
  answer.stand = shown.subjects.of(row);
  // The account that was asked for covers those below it, which the lines are of.
  if (answer.stand.account == conditions.account.lId) answer.stand.account = 0;
  return answer;
}

std::optional<Refusal> fillUnitClass(DetailTarget& target, const Subject& subject, const std::string& name) {
  target.conditions.choose(ParameterKey::unitClass, {name, subject.unitClass.value_or(0)});
  return std::nullopt;
}

std::optional<Refusal> fillDept(DetailTarget& target, const Subject& subject, const std::string& name) {
  if (subject.dept == 0) return refusalWith(rowWithoutDept);
  target.conditions.choose(ParameterKey::dept, {name, subject.dept});
  return std::nullopt;
}

std::optional<Refusal> fillClerk(DetailTarget& target, const Subject& subject, const std::string& name) {
  // A clerk is a name; the id tells one who is called "其它" from none.
  const bool none = !subject.clerk || subject.clerk->empty();
  target.conditions.choose(ParameterKey::clerk, {name, none ? 0 : 1});
  return std::nullopt;
}

DrillAnswer drillWithMember(int target, FillMember fill, const Conditions& conditions, const ComputedReport& shown,
                            std::int64_t row) {
  auto answer = drillFromMember(target, conditions, shown, row);
  if (auto* leadsTo = std::get_if<DetailTarget>(&answer)) {
    auto refused = fill(*leadsTo, shown.subjects.of(row), std::string(shown.grid.TextAt(row, 0)));
    if (refused) return std::move(*refused);
  }
  return answer;
}

DrillAnswer drillFromProject(int target, const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  if (shown.grid.GetRows() == 0) return refusalWith(nothingShown);
  if (row >= 0 && addsUp(shown.grid.RowKindAt(row))) return refusalWith(noMemberChosen);
  const auto& subject = shown.subjects.of(row);
  if (subject.item == 0 || subject.account != 0) return refusalWith(noProjectRow);
  auto answer = targetWith(target, conditions.request);
  answer.conditions.set(ParameterKey::projectClass, subject.itemClass);
  answer.conditions.choose(ParameterKey::project, {std::string(shown.grid.TextAt(row, 0)), subject.item});
  answer.stand = subject;
  return answer;
}

DrillAnswer drillFromPeriodOfProject(int target, int targetOfDept, const Conditions& conditions,
                                     const ComputedReport& shown, std::int64_t row) {
  if (shown.grid.GetRows() == 0) return refusalWith(nothingShown);
  if (conditions.project.lId == 0) return refusalWith(noProjectChosen);
  auto answer = drillFromPeriod(conditions.dept.lDeptId == 0 ? target : targetOfDept, conditions, shown, row);
  if (auto* leadsTo = std::get_if<DetailTarget>(&answer)) {
    leadsTo->conditions.set(ParameterKey::projectClass, conditions.projectClass.sItemId);
    // The department's ledger is of any accounts and would not take the format from this one.
    if (conditions.dept.lDeptId != 0) leadsTo->conditions.set(ParameterKey::format, formatName(conditions.format));
    if (conditions.dept.lDeptId == 0) leadsTo->conditions.clear(ParameterKey::dept);
  }
  return answer;
}

DrillAnswer drillFromPeriod(int target, const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  if (shown.grid.GetRows() == 0) return refusalWith(nothingShown);
  const int month = row < 0 ? 0 : CGetData::GetMonth(shown.grid.TextAt(row, 0));
  if (month == 0) return refusalWith(noMonthChosen);
  auto answer = targetWith(target, conditions.request);
  for (const auto key : {ParameterKey::from, ParameterKey::to}) answer.conditions.set(key, std::to_string(month));
  return answer;
}

}  // namespace tz
