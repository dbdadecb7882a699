#include "core/reports/control_kind.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace tz {
namespace {

using Kind = ControlSpec::Kind;

constexpr std::array monthKeys = {ParameterKey::from, ParameterKey::to};
constexpr std::array amountKeys = {ParameterKey::minimum, ParameterKey::maximum};
constexpr std::array projectKeys = {ParameterKey::projectClass, ParameterKey::project};
constexpr std::array rangeKeys = {ParameterKey::projectFrom, ParameterKey::projectTo};
constexpr std::array accountEnds = {ParameterKey::accountFrom, ParameterKey::accountTo};

std::string accountMember(const Conditions& c) { return c.accountText(); }
std::string deptMember(const Conditions& c) { return c.dept.sDeptName; }
std::string personMember(const Conditions& c) { return c.person.sName; }
std::string unitMember(const Conditions& c) { return c.unit.sEnterName; }
std::string unitClassMember(const Conditions& c) { return c.unitClass.sName; }
std::string clerkMember(const Conditions& c) { return c.clerk.shown(); }
std::string classMember(const Conditions& c) { return c.projectClass.sName; }

void renameAccount(Conditions& c) { c.account.sName += '?'; }
void renameDept(Conditions& c) { c.dept.sDeptName += '?'; }
void renamePerson(Conditions& c) { c.person.sName += '?'; }
void renameUnit(Conditions& c) { c.unit.sEnterName += '?'; }
void renameUnitClass(Conditions& c) { c.unitClass.sName += '?'; }
void renameClass(Conditions& c) { c.projectClass.sName += '?'; }
void renameClerk(Conditions& c) { c.clerk.name += '?'; }
void renameProject(Conditions& c) { c.project.fields.at(1) += '?'; }

std::string captioned(const ControlSpec& control, const std::string& value) {
  return value.empty() ? "" : fmt::format("{}: {}", control.caption, value);
}

std::string tellPickedAccounts(const ControlSpec& /*control*/, const Conditions& c) {
  const auto picked = c.request.list(ParameterKey::account);
  std::vector<std::string> codes;
  for (const auto& account : picked) codes.push_back(CGetData::GetCode_Separator(account));
  return "科目: " + (picked.empty() ? std::string(allMembers) : fmt::format("{}", fmt::join(codes, "、")));
}

std::string tellProject(const ControlSpec& /*control*/, const Conditions& c) {
  return fmt::format("项目: {} {}", c.projectClass.sName, c.project.fields.at(1));
}

std::string tellClass(const Conditions& c) { return "项目大类: " + c.projectClass.sName; }

std::string rangeEnd(const Conditions& c, ParameterKey key) { return CGetData::GetCode_Separator(c.request.text(key)); }

std::string orUnlimited(const std::string& end) { return end.empty() ? "不限" : end; }

std::string tellProjectRange(const ControlSpec& /*control*/, const Conditions& c) {
  if (c.projects.all) return {};
  return fmt::format("项目范围: {} 至 {}", orUnlimited(rangeEnd(c, ParameterKey::projectFrom)),
                     orUnlimited(rangeEnd(c, ParameterKey::projectTo)));
}

std::string tellAccountRange(const ControlSpec& /*control*/, const Conditions& c) {
  if (c.accountRange.all) return {};
  return fmt::format("科目范围: {} 至 {}", orUnlimited(rangeEnd(c, ParameterKey::accountFrom)),
                     orUnlimited(rangeEnd(c, ParameterKey::accountTo)));
}

std::string tellAmountRange(const ControlSpec& /*control*/, const Conditions& c) {
  if (c.request.amount(ParameterKey::minimum) == 0 && c.request.amount(ParameterKey::maximum) == 0) return {};
  return fmt::format("金额范围: {} 至 {}", orUnlimited(c.request.text(ParameterKey::minimum)),
                     orUnlimited(c.request.text(ParameterKey::maximum)));
}

std::string tellSide(const ControlSpec& control, const Conditions& c) {
  switch (static_cast<BalanceSide>(c.request.choice(control.key))) {
    case BalanceSide::both:
      return {};
    case BalanceSide::debit:
      return "方向: 借方";
    case BalanceSide::credit:
      return "方向: 贷方";
  }
  return {};
}

std::string tellDate(const ControlSpec& control, const Conditions& c) {
  return captioned(control, c.request.text(control.key));
}

std::string tellChoice(const ControlSpec& control, const Conditions& c) {
  return std::string(parameter(control.key).choices[c.request.choice(control.key)].caption);
}

std::string tellTick(const ControlSpec& control, const Conditions& c) {
  return c.request.flag(control.key) ? std::string(control.caption) : "";
}

// The member itself.
template <std::string (*Member)(const Conditions&)>
std::string nameFile(const DialogSpec& /*dialog*/, const Conditions& c) {
  return Member(c);
}

std::string nameFileByDept(const DialogSpec& dialog, const Conditions& c) {
  return controlOf(dialog, ParameterKey::person) != nullptr || c.dept.lDeptId == 0 ? "" : c.dept.sDeptName;
}

std::string nameFileByProject(const DialogSpec& /*dialog*/, const Conditions& c) { return c.project.fields.at(1); }

// One account or a few; of more, which the first is and how many.
std::string nameFileByPicked(const DialogSpec& /*dialog*/, const Conditions& c) {
  constexpr std::size_t most = 3;
  const auto picked = c.request.list(ParameterKey::account);
  if (picked.empty()) return {};
  std::vector<std::string> codes;
  for (const auto& account : picked) codes.push_back(CGetData::GetCode_Separator(account));
  if (codes.size() > most) return fmt::format("{}等{}个科目", codes.front(), codes.size());
  return fmt::format("{}", fmt::join(codes, "、"));
}

// A project says enough by itself.
std::string nameFileByClass(const DialogSpec& dialog, const Conditions& c) {
  return controlOf(dialog, ParameterKey::project) != nullptr ? "" : c.projectClass.sName;
}

std::string nameFileByRange(const DialogSpec& /*dialog*/, const Conditions& c) {
  if (c.projects.all) return {};
  return rangeEnd(c, ParameterKey::projectFrom) + "-" + rangeEnd(c, ParameterKey::projectTo);
}

std::string nameFileByAccounts(const DialogSpec& /*dialog*/, const Conditions& c) {
  if (c.accountRange.all) return {};
  return rangeEnd(c, ParameterKey::accountFrom) + "-" + rangeEnd(c, ParameterKey::accountTo);
}

ControlKind deptKind(Kind kind) {
  return {.kind = kind,
          .offered = offers::depts,
          .meant = offers::deptMeant,
          .member = deptMember,
          .rename = renameDept,
          .inFileName = nameFileByDept};
}

const std::array kinds = {
    ControlKind{.kind = Kind::accountCombo,
                .offered = offers::accounts,
                .member = accountMember,
                .rename = renameAccount,
                .inFileName = nameFile<accountMember>},
    ControlKind{.kind = Kind::accountLists,
                .offered = offers::accounts,
                .told = tellPickedAccounts,
                .inFileName = nameFileByPicked},
    deptKind(Kind::deptReference),
    deptKind(Kind::deptCombo),
    ControlKind{.kind = Kind::personReference,
                .offered = offers::persons,
                .follows = true,
                .meant = offers::personMeant,
                .member = personMember,
                .rename = renamePerson,
                .inFileName = nameFile<personMember>},
    ControlKind{.kind = Kind::personCombo,
                .offered = offers::persons,
                .follows = true,
                .meant = offers::personMeant,
                .member = personMember,
                .rename = renamePerson,
                .inFileName = nameFile<personMember>},
    ControlKind{.kind = Kind::unitReference,
                .offered = offers::units,
                .meant = offers::unitMeant,
                .member = unitMember,
                .rename = renameUnit,
                .inFileName = nameFile<unitMember>},
    ControlKind{.kind = Kind::unitClassCombo,
                .offered = offers::unitClasses,
                .meant = offers::unitClassMeant,
                .member = unitClassMember,
                .rename = renameUnitClass,
                .inFileName = nameFile<unitClassMember>},
    ControlKind{.kind = Kind::clerkCombo,
                .offered = offers::clerks,
                .follows = true,
                .member = clerkMember,
                .rename = renameClerk,
                .inFileName = nameFile<clerkMember>},
    ControlKind{.kind = Kind::classCombo,
                .offered = offers::classesOfAccount,
                .follows = true,
                .member = classMember,
                .rename = renameClass,
                .inFileName = nameFileByClass},
    ControlKind{.kind = Kind::projectReference,
                .keys = projectKeys,
                .offered = offers::projects,
                .told = tellProject,
                .rename = renameProject,
                .unsaid = tellClass,
                .inFileName = nameFileByProject},
    ControlKind{.kind = Kind::itemReference, .offered = offers::projects, .follows = true},
    ControlKind{.kind = Kind::itemCombo, .offered = offers::projects, .follows = true},
    ControlKind{.kind = Kind::projectRange,
                .keys = rangeKeys,
                .offered = offers::projectRange,
                .follows = true,
                .told = tellProjectRange,
                .inFileName = nameFileByRange},
    ControlKind{.kind = Kind::accountRange,
                .keys = accountEnds,
                .offered = offers::accountRange,
                .told = tellAccountRange,
                .inFileName = nameFileByAccounts},
    ControlKind{.kind = Kind::months, .keys = monthKeys},
    ControlKind{.kind = Kind::month},
    ControlKind{.kind = Kind::amountRange, .keys = amountKeys, .told = tellAmountRange},
    ControlKind{.kind = Kind::side, .told = tellSide},
    ControlKind{.kind = Kind::date, .told = tellDate},
    ControlKind{.kind = Kind::analysis, .told = tellChoice},
    ControlKind{.kind = Kind::checkBox, .told = tellTick},
};

}  // namespace

const ControlKind& controlKind(ControlSpec::Kind kind) {
  const auto* const found = std::ranges::find(kinds, kind, &ControlKind::kind);
  assert(found != kinds.end());
  return *found;
}

std::vector<ParameterKey> keysOf(const ControlSpec& control) {
  const auto keys = controlKind(control.kind).keys;
  return keys.empty() ? std::vector{control.key} : std::vector(keys.begin(), keys.end());
}

std::string conditionText(const ControlSpec& control, const Conditions& conditions) {
  const auto& kind = controlKind(control.kind);
  if (kind.told != nullptr) return kind.told(control, conditions);
  return kind.member == nullptr ? "" : captioned(control, kind.member(conditions));
}

}  // namespace tz
