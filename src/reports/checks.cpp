#include <algorithm>
#include <fmt/format.h>
#include <utility>

#include "reports/dialog_spec.h"

namespace tz {
namespace {

std::string text(const CheckContext& context, ParameterKey key) { return context.request.text(key); }

// Balances, or with unposted vouchers lines as well, that meet the condition.
bool anyActivity(const CheckContext& context, const Sql& where) {
  const auto& db = context.session.db;
  if (db.Exists("AssAcc", where)) return true;
  return context.conditions.unposted && db.Exists("UnregSub", where);
}

// A choice from a list in which something always stands: the first entry when none is named. What is not on the list is
// wrong use, not a refusal.
template <class Record, class Name>
const Record& chosen(const std::vector<Record>& offered, ParameterKey key, const std::string& wanted, Name name) {
  if (wanted.empty() && !offered.empty()) return offered.front();
  const auto found = std::ranges::find(offered, wanted, name);
  if (found != offered.end()) return *found;
  std::vector<std::string> names;
  for (const auto& record : offered) names.push_back(std::invoke(name, record));
  throw WrongUse(
      fmt::format("--{}：“{}”不在可选项中，可用：{}", parameter(key).option, wanted, fmt::join(names, "、")));
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

// An end of a range may be a code, or code and name as the combos show them; it is the code of an item of the classes.
std::string rangeEnd(const CheckContext& context, ParameterKey key, const std::vector<ProjClassInfo>& classes) {
  auto code = CGetData::GetCode_Separator(text(context, key));
  const auto& data = context.conditions.data;
  const bool known = std::ranges::any_of(
      classes, [&](const ProjClassInfo& itemClass) { return data->GetItemIdByCode(itemClass.sItemId, code) != 0; });
  if (code.empty() || known) return code;
  throw WrongUse(fmt::format("--{}：没有编码为“{}”的项目", parameter(key).option, code));
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

namespace checks {

bool deptGiven(CheckContext& context) { return !text(context, ParameterKey::dept).empty(); }

bool deptKnown(CheckContext& context) {
  const auto found =
      context.session.db.Dept_GetInfo(Sql("sDeptName = ? ORDER BY lId", text(context, ParameterKey::dept)));
  if (found.empty()) return false;
  context.conditions.dept = found.front();
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
  return context.session.db.Exists("Person", Sql("sName = ?", text(context, ParameterKey::person)));
}

bool personOfDept(CheckContext& context) {
  const auto found = context.session.db.Person_GetInfo(Sql(
      "sName = ? AND lDeptId = ? ORDER BY lId", text(context, ParameterKey::person), context.conditions.dept.lDeptId));
  if (found.empty()) return false;
  context.conditions.person = found.front();
  return true;
}

bool personActive(CheckContext& context) {
  return anyActivity(
      context, Sql("lDeptId = ? AND lPersonId = ?", context.conditions.dept.lDeptId, context.conditions.person.lId));
}

bool unitGiven(CheckContext& context) { return !text(context, ParameterKey::unit).empty(); }

bool unitKnown(CheckContext& context) {
  const auto found =
      context.session.db.Enter_GetInfo(Sql("sEnterName = ? ORDER BY lId", text(context, ParameterKey::unit)));
  if (found.empty()) return false;
  context.conditions.unit = found.front();
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
  const auto wanted = CGetData::GetCode_Separator(text(context, ParameterKey::projectClass));
  if (!wanted.empty()) {
    conditions.projectClass = chosen(classes, ParameterKey::projectClass, wanted, &ProjClassInfo::sItemId);
    return true;
  }
  if (classes.empty()) return false;
  conditions.projectClass = classes.front();
  return true;
}

bool projectGiven(CheckContext& context) { return !text(context, ParameterKey::project).empty(); }

bool projectKnown(CheckContext& context) {
  auto& conditions = context.conditions;
  const auto wanted = text(context, ParameterKey::project);
  const auto& items = conditions.data->ItemTable(conditions.projectClass.sItemId);
  const auto found = std::ranges::find(items, wanted, [](const ItemInfo& item) { return item.fields[1]; });
  if (found == items.end()) return false;
  conditions.project = *found;
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

void dept(CheckContext& context) {
  const auto offered = context.session.db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId");
  context.conditions.dept =
      chosen(offered, ParameterKey::dept, text(context, ParameterKey::dept), &DeptInfo::sDeptName);
}

void unitClass(CheckContext& context) {
  auto offered = context.session.db.EnterClass_GetInfo("lId > 0 ORDER BY lId");
  offered.push_back({0, std::string(otherMembers)});
  context.conditions.unitClass =
      chosen(offered, ParameterKey::unitClass, text(context, ParameterKey::unitClass), &EnterClassInfo::sName);
}

void clerk(CheckContext& context) {
  const auto offered = offeredClerks(context.session.db, context.conditions.account.lId);
  const auto& clerk = chosen(offered, ParameterKey::clerk, text(context, ParameterKey::clerk), &ComboEntry::text);
  context.conditions.clerk.name = clerk.text == otherMembers ? "" : clerk.text;
}

void projectRange(CheckContext& context) {
  auto& conditions = context.conditions;
  auto classes = projectClasses(context);
  if (const auto& asked = conditions.projectClass.sItemId; !asked.empty()) classes = {conditions.projectClass};
  const auto from = rangeEnd(context, ParameterKey::projectFrom, classes);
  const auto to = rangeEnd(context, ParameterKey::projectTo, classes);
  conditions.projects.all = from.empty() && to.empty();
  if (conditions.projects.all) return;
  for (const auto& itemClass : classes) {
    ProjectRange::Items items{itemClass.sItemId, {}};
    for (const auto& item : conditions.data->ItemTable(itemClass.sItemId)) {
      const auto& code = item.fields[0];
      if (code >= from && (to.empty() || code <= to)) items.ids.push_back(item.lId);
    }
    conditions.projects.classes.push_back(std::move(items));
  }
}

}  // namespace choices
}  // namespace tz
