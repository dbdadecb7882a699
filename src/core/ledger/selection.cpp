#include "core/ledger/selection.h"

namespace tz {

Sql chosenAccount(const Conditions& conditions) { return conditions.data->GetCodeSubString(conditions.account.sCode); }

Sql pickedAccounts(const Conditions& conditions) {
  if (conditions.accounts.empty()) return "lCodeId > 0";
  std::vector<Id> ids;
  for (const auto& account : conditions.accounts) {
    const auto below = conditions.data->GetCode_Include(account.sCode);
    ids.insert(ids.end(), below.begin(), below.end());
  }
  return inList("+lCodeId", ids);
}

Sql accountsInRange(const Conditions& conditions) {
  if (conditions.accountRange.all) return "+lCodeId > 0";
  std::vector<Id> ids;
  for (const auto& account : conditions.accountRange.accounts) ids.push_back(account.lId);
  return inList("+lCodeId", ids);
}

Sql deptAccounts(const Conditions& /*conditions*/) {
  return "+lCodeId IN (SELECT Code.lId FROM Code WHERE sAssBook LIKE '%C%')";
}

Sql oneItem(const Conditions& conditions) {
  return Sql("sItemId = ? AND lItemId = ? AND lItemId <> 0", conditions.projectClass.sItemId, conditions.project.lId);
}

Sql oneItemOfDept(const Conditions& conditions) {
  if (conditions.dept.lDeptId == 0) return oneItem(conditions);
  return oneItem(conditions) + Sql(" AND +lDeptId = ?", conditions.dept.lDeptId);
}

Sql itemsOfClass(const Conditions& conditions) {
  auto items = Sql("sItemId = ? AND lItemId <> 0", conditions.projectClass.sItemId);
  if (!conditions.projects.all) items += " AND " + inList("+lItemId", conditions.projects.classes.front().ids);
  return items;
}

// Class by class; the plus keeps the databases on the index whose order the report needs.
Sql projectsOf(const ProjectRange& range) {
  if (range.all) return "lItemId <> 0";
  Sql any = "(1 = 0";
  for (const auto& [classId, ids] : range.classes) {
    any += Sql(" OR sItemId = ? AND ", classId) + inList("+lItemId", ids);
  }
  return any + ") AND lItemId <> 0";
}

Sql commonFilter(const Selection& selection, const Conditions& conditions) {
  if (selection.accounts == nullptr) return selection.dimension(conditions);
  return selection.accounts(conditions) + " AND " + selection.dimension(conditions);
}

Sql lineFilter(const Selection& selection, const Conditions& conditions) {
  const auto common = commonFilter(selection, conditions);
  return selection.linesOnly == nullptr ? common : common + " AND " + selection.linesOnly(conditions);
}

Sql balanceFilter(const Selection& selection, const Conditions& conditions) {
  const auto common = commonFilter(selection, conditions);
  return selection.balancesOnly.empty() ? common : common + " AND " + Sql(selection.balancesOnly);
}

std::string lineOrder(const Selection& selection, Book book) {
  const bool otherwise = book == Book::unposted && !selection.unpostedOrder.empty();
  return orderOf(selection.groups, otherwise ? selection.unpostedOrder : selection.order);
}

LineQuery selectedLines(const Selection& selection, const Conditions& conditions, Book book) {
  return {.book = book,
          .filter = lineFilter(selection, conditions),
          .firstPeriod = conditions.from,
          .lastPeriod = conditions.to,
          .order = lineOrder(selection, book)};
}

}  // namespace tz
