#include "core/data/init_combo_fun.h"

#include <map>

namespace tz {
namespace {

ComboList accounts(const CQnCwDB& db, const Sql& where, char separator) {
  ComboList list;
  for (const auto& account : db.Code_GetInfo(where))
    list.push_back({account.sCode + separator + account.sName, account.lId});
  return list;
}

std::string monthText(int year, int month) {
  return std::to_string(year) + (month < 10 ? ".0" : ".") + std::to_string(month);
}

}  // namespace

int preselected(const ComboList& list, std::string_view text) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i].text == text) return static_cast<int>(i);
  }
  return list.empty() ? -1 : 0;
}

ComboList toldApart(const std::vector<NamedMember>& members) {
  std::map<std::string_view, int> bearers;
  for (const auto& member : members) ++bearers[member.name];
  ComboList list;
  list.reserve(members.size());
  for (const auto& [code, name, id] : members) {
    std::string text = bearers[name] > 1 ? code + " " : std::string();
    text += name;
    list.push_back({std::move(text), id, code});
  }
  return list;
}

ComboList CInitComboFun::InitCodeComb_1Blank(const CQnCwDB& db, const Sql& where) { return accounts(db, where, ' '); }

ComboList CInitComboFun::InitCodeComb_2Tab(const CQnCwDB& db, const Sql& where) { return accounts(db, where, '\t'); }

ComboList CInitComboFun::InitPartNameCombox(const CQnCwDB& db) {
  std::vector<NamedMember> depts;
  for (const auto& dept : db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId"))
    depts.push_back({dept.sDeptId, dept.sDeptName, dept.lDeptId});
  return toldApart(depts);
}

ComboList CInitComboFun::InitNameCombox(const CQnCwDB& db, Id deptId) {
  std::vector<NamedMember> persons;
  for (const auto& person : db.Person_GetInfo(Sql("lDeptId = ? ORDER BY sPersonId, lId", deptId)))
    persons.push_back({person.sPersonId, person.sName, person.lId});
  return toldApart(persons);
}

ComboList CInitComboFun::InitEnterCombox(const CQnCwDB& db) {
  std::vector<NamedMember> units;
  for (const auto& unit : db.Enter_GetInfo("lId > 0 ORDER BY sEnterId, lId"))
    units.push_back({unit.sEnterId, unit.sEnterName, unit.lId});
  return toldApart(units);
}

ComboList CInitComboFun::InitEnterClassCombox(const CQnCwDB& db) {
  ComboList list;
  for (const auto& unitClass : db.EnterClass_GetInfo("lId > 0 ORDER BY lId"))
    list.push_back({unitClass.sName, unitClass.lId});
  list.push_back({std::string(otherMembers), 0});
  return list;
}

ComboList CInitComboFun::InitItemClassCombox(const CQnCwDB& db) {
  ComboList list;
  for (const auto& itemClass : db.ProjClass_GetInfo("sItemId <> '' ORDER BY lId")) {
    list.push_back({itemClass.sItemId + " " + itemClass.sName, static_cast<Id>(list.size())});
  }
  return list;
}

AccountAmounts CInitComboFun::InitAmountCombox(CGetData& data, std::string_view codeText) {
  AccountAmounts amounts;
  if (const auto* account = data.GetCODEINFOByCode(CGetData::GetCode_Separator(codeText))) {
    amounts.direction = account->bDirect != 0 ? 1 : 0;
    amounts.unit = account->sUnit;
    if (account->byExchId != 0) {
      if (const auto* currency = data.GetCyrency(account->byExchId)) {
        amounts.currency = currency->sName;
        amounts.rateMethod = currency->bConvert != 0 ? 1 : 0;
      }
    }
  }
  const bool quantities = !amounts.unit.empty();
  const bool foreign = !amounts.currency.empty();
  for (const auto& shown : amountFormats) {
    const bool kept = (!shown.quantities || quantities) && (!shown.foreign || foreign);
    if (shown.amounts && kept) amounts.formats.push_back(shown.format);
  }
  amounts.preselectedFormat = amounts.formats.back();
  return amounts;
}

ComboList CInitComboFun::InitMonthCombox(int year) { return MonthEdComboReset(year, 1); }

ComboList CInitComboFun::MonthEdComboReset(int year, int first) {
  ComboList list;
  for (int month = first; month <= 12; ++month) list.push_back({monthText(year, month), month});
  return list;
}

}  // namespace tz
