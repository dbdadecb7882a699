#include <algorithm>

#include "reports/dialog_spec.h"

namespace tz {
namespace {

int monthOr(const Request& request, ParameterKey key, int otherwise) {
  const int month = request.month(key);
  return month == 0 ? otherwise : month;
}

bool takeAccount(const DialogSpec& dialog, CheckContext& context) {
  const auto wanted = CGetData::GetCode_Separator(context.request.text(ParameterKey::account));
  const auto offered = context.session.db.Code_GetInfo(Sql(dialog.accountWhere));
  const auto found = std::ranges::find(offered, wanted, &CodeInfo::sCode);
  if (found == offered.end()) return false;
  context.conditions.account = *found;
  context.conditions.amounts = CInitComboFun::InitAmountCombox(*context.conditions.data, wanted);
  return true;
}

// Balances, or with unposted vouchers lines as well, that meet the condition.
bool anyActivity(const CheckContext& context, const Sql& where) {
  const auto& db = context.session.db;
  if (db.Exists("AssAcc", where)) return true;
  return context.conditions.unposted && db.Exists("UnregSub", where);
}

}  // namespace

ComboList offeredAccounts(const DialogSpec& dialog, const CQnCwDB& db) {
  return CInitComboFun::InitCodeComb_1Blank(db, Sql(dialog.accountWhere));
}

std::variant<Conditions, Refusal> validate(const DialogSpec& dialog, const Request& request, Session& session) {
  Conditions conditions;
  conditions.request = request;
  conditions.data = std::make_shared<CGetData>(session.db);
  conditions.from = monthOr(request, ParameterKey::from, session.logon.month);
  conditions.to = monthOr(request, ParameterKey::to, session.logon.month);
  conditions.unposted = request.flag(ParameterKey::unposted);
  CheckContext context{session, request, conditions};
  if (!dialog.accountWhere.empty() && !takeAccount(dialog, context)) {
    return Refusal{.id = dialog.noAccount, .about = ParameterKey::account};
  }
  for (const auto& check : dialog.checks) {
    if (!check.passes(context)) return Refusal{.id = check.message, .about = check.about};
  }
  return conditions;
}

namespace checks {

bool deptGiven(CheckContext& context) { return !context.request.text(ParameterKey::dept).empty(); }

bool deptKnown(CheckContext& context) {
  const auto found =
      context.session.db.Dept_GetInfo(Sql("sDeptName = ? ORDER BY lId", context.request.text(ParameterKey::dept)));
  if (found.empty()) return false;
  context.conditions.dept = found.front();
  return true;
}

bool deptActive(CheckContext& context) {
  return anyActivity(context, Sql("lDeptId = ?", context.conditions.dept.lDeptId));
}

bool personGiven(CheckContext& context) { return !context.request.text(ParameterKey::person).empty(); }

bool personKnown(CheckContext& context) {
  return context.session.db.Exists("Person", Sql("sName = ?", context.request.text(ParameterKey::person)));
}

bool personOfDept(CheckContext& context) {
  const auto found = context.session.db.Person_GetInfo(Sql("sName = ? AND lDeptId = ? ORDER BY lId",
                                                           context.request.text(ParameterKey::person),
                                                           context.conditions.dept.lDeptId));
  if (found.empty()) return false;
  context.conditions.person = found.front();
  return true;
}

bool personActive(CheckContext& context) {
  return anyActivity(
      context, Sql("lDeptId = ? AND lPersonId = ?", context.conditions.dept.lDeptId, context.conditions.person.lId));
}

}  // namespace checks
}  // namespace tz
