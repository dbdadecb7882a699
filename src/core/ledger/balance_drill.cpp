#include "core/ledger/balance_drill.h"

#include <array>

namespace tz {
namespace {

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

int monthOf(const DrillPlace& place) {
  return place.row < 0 ? 0 : CGetData::GetMonth(place.shown.grid.TextAt(place.row, 0));
}

std::string nameIn(const DrillPlace& place) { return std::string(place.shown.grid.TextAt(place.row, 0)); }

DetailTarget periodIn(int command, const DrillPlace& place) {
  auto target = targetWith(command, place.conditions.request);
  for (const auto key : {ParameterKey::from, ParameterKey::to}) {
    target.conditions.set(key, std::to_string(monthOf(place)));
  }
  return target;
}

}  // namespace

namespace drills {

bool anythingShown(const DrillPlace& place) { return place.shown.grid.GetRows() != 0; }

bool memberRow(const DrillPlace& place) {
  return place.row >= 0 && place.shown.grid.RowKindAt(place.row) == RowKind::line;
}

bool rowWithDept(const DrillPlace& place) { return place.shown.subjects.of(place.row).dept != 0; }

bool noSum(const DrillPlace& place) { return place.row < 0 || !addsUp(place.shown.grid.RowKindAt(place.row)); }

bool projectRow(const DrillPlace& place) {
  const auto& subject = place.shown.subjects.of(place.row);
  return subject.item != 0 && subject.account == 0;
}

bool projectAsked(const DrillPlace& place) { return place.conditions.project.lId != 0; }

bool monthRow(const DrillPlace& place) { return monthOf(place) != 0; }

}  // namespace drills

DrillAnswer memberTarget(const DrillRule& rule, const DrillPlace& place) {
  auto target = targetWith(rule.reports[0], place.conditions.request);
  const auto& subject = place.shown.subjects.of(place.row);
  target.stand = subject;
  // The account that was asked for covers those below it, which the lines are of.
  if (target.stand.account == place.conditions.account.lId) target.stand.account = 0;
  if (rule.fill != nullptr) rule.fill(target, subject, nameIn(place));
  return target;
}

void fillUnitClass(DetailTarget& target, const Subject& subject, const std::string& name) {
  target.conditions.choose(ParameterKey::unitClass, {name, subject.unitClass.value_or(0)});
}

void fillDept(DetailTarget& target, const Subject& subject, const std::string& name) {
  target.conditions.choose(ParameterKey::dept, {name, subject.dept});
}

void fillClerk(DetailTarget& target, const Subject& subject, const std::string& name) {
  // A clerk is a name; the id tells one who is called "其它" from none.
  const bool none = !subject.clerk || subject.clerk->empty();
  target.conditions.choose(ParameterKey::clerk, {name, none ? 0 : 1});
}

DrillAnswer projectTarget(const DrillRule& rule, const DrillPlace& place) {
  const auto& subject = place.shown.subjects.of(place.row);
  auto target = targetWith(rule.reports[0], place.conditions.request);
  target.conditions.set(ParameterKey::projectClass, subject.itemClass);
  target.conditions.choose(ParameterKey::project, {nameIn(place), subject.item});
  target.stand = subject;
  return target;
}

DrillAnswer periodOfProjectTarget(const DrillRule& rule, const DrillPlace& place) {
  const auto& conditions = place.conditions;
  const bool allDepts = conditions.dept.lDeptId == 0;
  auto target = periodIn(rule.reports[allDepts ? 0 : 1], place);
  target.conditions.set(ParameterKey::projectClass, conditions.projectClass.sItemId);
  if (allDepts) {
    target.conditions.clear(ParameterKey::dept);
  } else {
    // The department's ledger is of any accounts and would not take the format from this one.
    target.conditions.set(ParameterKey::format, formatName(conditions.format));
  }
  return target;
}

DrillAnswer periodTarget(const DrillRule& rule, const DrillPlace& place) { return periodIn(rule.reports[0], place); }

}  // namespace tz
