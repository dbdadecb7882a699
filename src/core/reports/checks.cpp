#include <algorithm>
#include <utility>

#include "core/reports/dialog_spec.h"
#include "core/reports/members.h"

namespace tz {
namespace {

std::string text(const CheckContext& context, ParameterKey key) { return context.request.text(key); }

// Balances, or with unposted vouchers lines as well, that meet the condition.
bool anyActivity(const CheckContext& context, const Sql& where) {
  const auto& db = context.session.db;
  if (db.Exists("AssAcc", where)) return true;
  return context.conditions.unposted && db.Exists("UnregSub", where);
}

// What a list offers, as the command line tells it.
template <class Record, class Name>
Unlisted unlisted(ParameterKey about, const std::vector<Record>& offered, Name name) {
  Unlisted result{about, {}};
  for (const auto& record : offered) result.offered.push_back(std::invoke(name, record));
  return result;
}

const std::vector<ProjClassInfo>& projectClasses(const CheckContext& context) {
  return context.conditions.data->ProjClassTable();
}

// The classes that the account carries, else those of the accounts below it.
std::vector<ProjClassInfo> classesOfAccount(const CQnCwDB& db, CGetData& data, const CodeInfo& account) {
  const auto carried = [&](const Sql& accounts) {
    std::vector<ProjClassInfo> classes;
    const auto links = db.ProjCodes_GetInfo(accounts + " ORDER BY lId");
    for (const auto& candidate : data.ProjClassTable()) {
      if (std::ranges::find(links, candidate.sItemId, &ProjCodesInfo::sItemId) != links.end()) {
        classes.push_back(candidate);
      }
    }
    return classes;
  };
  auto own = carried(Sql("lCodeId = ?", account.lId));
  if (!own.empty()) return own;
  return carried(inList("lCodeId", data.GetCode_Include(account.sCode)));
}

// An end of a range may be a code, or code and name as the combos show them.
std::string rangeEnd(const CheckContext& context, ParameterKey key) {
  return CGetData::GetCode_Separator(text(context, key));
}

}  // namespace

ComboList offeredClasses(const CQnCwDB& db, std::string_view account) {
  CGetData data(db);
  const auto* found = data.GetCODEINFOByCode(CGetData::GetCode_Separator(account));
  ComboList list;
  if (found == nullptr) return list;
  for (const auto& one : classesOfAccount(db, data, *found)) list.push_back({one.sItemId + " " + one.sName, one.lId});
  return list;
}

void followAccount(const DialogSpec& dialog, Request& request, const CQnCwDB& db) {
  if (std::ranges::find(dialog.controls, ControlSpec::Kind::classCombo, &ControlSpec::kind) == dialog.controls.end()) {
    return;
  }
  const auto carried = offeredClasses(db, request.text(ParameterKey::account));
  const auto classId = CGetData::GetCode_Separator(request.text(ParameterKey::projectClass));
  const auto isAsked = [&](const ComboEntry& one) { return CGetData::GetCode_Separator(one.text) == classId; };
  if (std::ranges::any_of(carried, isAsked)) return;
  for (const auto key : {ParameterKey::projectClass, ParameterKey::projectFrom, ParameterKey::projectTo}) {
    request.clear(key);
  }
  if (carried.empty()) return;
  request.set(ParameterKey::projectClass, CGetData::GetCode_Separator(carried.front().text));
}

namespace checks {

bool deptGiven(CheckContext& context) { return !text(context, ParameterKey::dept).empty(); }

bool deptKnown(CheckContext& context) {
  auto found = findDept(context.session.db, context.request.member(ParameterKey::dept));
  if (!found) return false;
  context.conditions.dept = std::move(*found);
  return true;
}

bool deptActive(CheckContext& context) {
  return anyActivity(context, Sql("lDeptId = ?", context.conditions.dept.lDeptId));
}

bool deptPersonsActive(CheckContext& context) {
  return anyActivity(context, Sql("lDeptId = ? AND lPersonId > 0", context.conditions.dept.lDeptId));
}

bool deptKnownOrAll(CheckContext& context) {
  const auto wanted = text(context, ParameterKey::dept);
  if (!wanted.empty() && wanted != allMembers) return deptKnown(context);
  context.conditions.dept = {};
  context.conditions.dept.sDeptName = allMembers;
  return true;
}

bool personGiven(CheckContext& context) { return !text(context, ParameterKey::person).empty(); }

bool personKnown(CheckContext& context) {
  return !findPersons(context.session.db, context.request.member(ParameterKey::person)).empty();
}

bool personOfDept(CheckContext& context) {
  auto found =
      findPerson(context.session.db, context.request.member(ParameterKey::person), context.conditions.dept.lDeptId);
  if (!found) return false;
  context.conditions.person = std::move(*found);
  return true;
}

bool personActive(CheckContext& context) {
  return anyActivity(
      context, Sql("lDeptId = ? AND lPersonId = ?", context.conditions.dept.lDeptId, context.conditions.person.lId));
}

bool unitGiven(CheckContext& context) { return !text(context, ParameterKey::unit).empty(); }

bool unitKnown(CheckContext& context) {
  auto found = findUnit(context.session.db, context.request.member(ParameterKey::unit));
  if (!found) return false;
  context.conditions.unit = std::move(*found);
  return true;
}

bool accountGiven(CheckContext& context) { return !text(context, ParameterKey::account).empty(); }

bool classesDefined(CheckContext& context) { return !projectClasses(context).empty(); }

bool classChosen(CheckContext& context) {
  const auto wanted = CGetData::GetCode_Separator(text(context, ParameterKey::projectClass));
  const auto& classes = projectClasses(context);
  const auto found = std::ranges::find(classes, wanted, &ProjClassInfo::sItemId);
  if (found == classes.end()) return false;
  context.conditions.projectClass = *found;
  return true;
}

bool classOrFirst(CheckContext& context) {
  if (!text(context, ParameterKey::projectClass).empty()) return classChosen(context);
  const auto& classes = projectClasses(context);
  if (classes.empty()) return false;
  context.conditions.projectClass = classes.front();
  return true;
}

bool classOfAccount(CheckContext& context) {
  auto& conditions = context.conditions;
  const auto classes = classesOfAccount(context.session.db, *conditions.data, conditions.account);
  if (classes.empty()) return false;
  conditions.projectClass = classes.front();
  return true;
}

bool projectGiven(CheckContext& context) { return !text(context, ParameterKey::project).empty(); }

bool projectKnown(CheckContext& context) {
  auto& conditions = context.conditions;
  auto found =
      findItem(*conditions.data, conditions.projectClass.sItemId, context.request.member(ParameterKey::project));
  if (!found) return false;
  conditions.project = std::move(*found);
  return true;
}

bool accountsPicked(CheckContext& context) {
  auto& accounts = context.conditions.accounts;
  const auto picked = context.request.list(ParameterKey::account);
  const auto offered = std::exchange(accounts, {});
  for (const auto& one : picked) {
    const auto found = std::ranges::find(offered, CGetData::GetCode_Separator(one), &CodeInfo::sCode);
    if (found == offered.end()) return false;
    accounts.push_back(*found);
  }
  return true;
}

bool rangeInOrder(CheckContext& context) {
  return context.request.amount(ParameterKey::maximum) >= context.request.amount(ParameterKey::minimum);
}

}  // namespace checks

namespace choices {

std::optional<Unlisted> dept(CheckContext& context) {
  auto& chosen = context.conditions.dept;
  const auto wanted = context.request.member(ParameterKey::dept);
  auto offered = context.session.db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId");
  auto found = !wanted.text.empty() ? findDept(context.session.db, wanted)
               : offered.empty()    ? std::nullopt
                                    : std::optional(offered.front());
  if (!found) return unlisted(ParameterKey::dept, offered, &DeptInfo::sDeptName);
  chosen = std::move(*found);
  return std::nullopt;
}

std::optional<Unlisted> unitClass(CheckContext& context) {
  auto& chosen = context.conditions.unitClass;
  const auto wanted = context.request.member(ParameterKey::unitClass);
  auto offered = context.session.db.EnterClass_GetInfo("lId > 0 ORDER BY lId");
  offered.push_back({0, std::string(otherMembers)});
  if (wanted.text.empty()) {
    chosen = offered.front();
    return std::nullopt;
  }
  auto found = findUnitClass(context.session.db, wanted);
  if (!found && wanted.text != otherMembers) return unlisted(ParameterKey::unitClass, offered, &EnterClassInfo::sName);
  chosen = found ? std::move(*found) : offered.back();
  return std::nullopt;
}

std::optional<Unlisted> clerk(CheckContext& context) {
  const auto wanted = text(context, ParameterKey::clerk);
  const auto offered = offeredClerks(context.session.db, context.conditions.account.lId);
  const auto found = wanted.empty() ? offered.begin() : std::ranges::find(offered, wanted, &ComboEntry::text);
  if (found == offered.end()) return unlisted(ParameterKey::clerk, offered, &ComboEntry::text);
  context.conditions.clerk.name = found->text == otherMembers ? "" : found->text;
  return std::nullopt;
}

std::optional<Unlisted> classOfAccount(CheckContext& context) {
  auto& conditions = context.conditions;
  const auto wanted = CGetData::GetCode_Separator(text(context, ParameterKey::projectClass));
  if (wanted.empty()) return std::nullopt;
  const auto classes = classesOfAccount(context.session.db, *conditions.data, conditions.account);
  const auto found = std::ranges::find(classes, wanted, &ProjClassInfo::sItemId);
  if (found == classes.end()) return unlisted(ParameterKey::projectClass, classes, &ProjClassInfo::sItemId);
  conditions.projectClass = *found;
  return std::nullopt;
}

std::optional<Unlisted> projectRange(CheckContext& context) {
  auto& conditions = context.conditions;
  auto classes = projectClasses(context);
  if (const auto& asked = conditions.projectClass.sItemId; !asked.empty()) classes = {conditions.projectClass};
  for (const auto key : {ParameterKey::projectFrom, ParameterKey::projectTo}) {
    const auto code = rangeEnd(context, key);
    const bool known = std::ranges::any_of(classes, [&](const ProjClassInfo& itemClass) {
      return conditions.data->GetItemIdByCode(itemClass.sItemId, code) != 0;
    });
    if (!code.empty() && !known) return Unlisted{key, {}};
  }
  const auto from = rangeEnd(context, ParameterKey::projectFrom);
  const auto to = rangeEnd(context, ParameterKey::projectTo);
  conditions.projects.all = from.empty() && to.empty();
  if (conditions.projects.all) return std::nullopt;
  for (const auto& itemClass : classes) {
    ProjectRange::Items items{itemClass.sItemId, {}};
    for (const auto& item : conditions.data->ItemTable(itemClass.sItemId)) {
      const auto& code = item.fields[0];
      if (code >= from && (to.empty() || code <= to)) items.ids.push_back(item.lId);
    }
    conditions.projects.classes.push_back(std::move(items));
  }
  return std::nullopt;
}

}  // namespace choices
}  // namespace tz
