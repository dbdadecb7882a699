#include "core/data/get_data.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <tuple>

namespace tz {
namespace {

// Reads a table into its cache on first use, by the id that lines carry and by name.
template <class Record, class Key, class Name>
const CachedTable<Record>& cached(std::optional<CachedTable<Record>>& table,
                                  std::vector<Record> (CQnCwDB::*read)(const Sql&) const, const CQnCwDB& db,
                                  Key Record::*key, Name Record::*name) {
  if (table) return *table;
  table.emplace();
  table->records = (db.*read)("lId IS NOT NULL ORDER BY lId");
  for (std::size_t i = 0; i < table->records.size(); ++i) {
    table->byId.try_emplace(table->records[i].*key, i);
    table->byName.try_emplace(table->records[i].*name, i);
  }
  return *table;
}

// By the bytes of their codes, on which searches rely, whatever order the database has.
std::vector<CodeInfo> readCodes(const CQnCwDB& db, const Sql& where) {
  auto codes = db.Code_GetInfo(where);
  std::ranges::sort(codes, {}, [](const CodeInfo& code) { return std::tie(code.sCode, code.lId); });
  return codes;
}

template <class Info>
std::optional<BillDate> billDate(const std::vector<Info>& heads) {
  if (heads.empty()) return std::nullopt;
  return BillDate{heads.front().nNumber, heads.front().sWord, heads.front().dtBill};
}

}  // namespace

const CGetData::Codes& CGetData::codes() {
  if (codes_) return *codes_;
  codes_ = readCodes(db_, "lId IS NOT NULL");
  for (std::size_t i = 0; i < codes_->size(); ++i) codeById_.try_emplace((*codes_)[i].lId, i);
  return *codes_;
}

std::span<const CodeInfo> CGetData::accountsFrom(std::string_view code) {
  // A server of another encoding may not know what else a person types.
  const bool plain = std::ranges::all_of(code, [](char c) { return c >= '0' && c <= 'z'; });
  if (!codes_ && !family_ && plain && !code.empty()) {
    std::string next(code);  // the first text behind all that begin with the code
    ++next.back();
    family_ = readCodes(db_, Sql("lId IS NOT NULL AND sCode >= ? AND sCode < ?", code, next));
    familyCode_ = code;
  }
  const bool ofFamily = !codes_ && family_ && code.starts_with(familyCode_);
  const auto& known = ofFamily ? *family_ : codes();
  const auto first = std::ranges::lower_bound(known, code, {}, &CodeInfo::sCode);
  const auto last = std::find_if_not(first, known.end(), [&](const auto& one) { return one.sCode.starts_with(code); });
  return {first, last};
}

const CodeInfo* CGetData::GetCODEINFOByID(Id id) {
  if (!codes_ && family_) {
    const auto found = std::ranges::find(*family_, id, &CodeInfo::lId);
    if (found != family_->end()) return &*found;
  }
  const auto& all = codes();
  const auto found = codeById_.find(id);
  return found == codeById_.end() ? nullptr : &all[found->second];
}

const CodeInfo* CGetData::GetCODEINFOByCode(std::string_view code) {
  const auto found = accountsFrom(code);
  return !found.empty() && found.front().sCode == code ? &found.front() : nullptr;
}

Id CGetData::GetCodeId(std::string_view code) {
  const auto* account = GetCODEINFOByCode(code);
  return account == nullptr ? 0 : account->lId;
}

Id CGetData::GetCodeId_new(std::string_view codeText) { return GetCodeId(GetCode_Separator(codeText)); }

std::string CGetData::GetCodeCode(Id id) {
  const auto* account = GetCODEINFOByID(id);
  return account == nullptr ? "" : account->sCode;
}

std::string CGetData::GetCodeName(Id id) {
  const auto* account = GetCODEINFOByID(id);
  return account == nullptr ? "" : account->sName;
}

std::vector<Id> CGetData::GetCode_Include(std::string_view code) {
  std::vector<Id> ids;
  if (code.empty()) return ids;
  for (const auto& account : accountsFrom(code)) ids.push_back(account.lId);
  return ids;
}

Sql CGetData::GetCodeSubString(std::string_view codeText) {
  // The plus keeps the databases on the index of the dimension, whose order the report needs; the account is tested
  // inside that index.
  return inList("+lCodeId", GetCode_Include(GetCode_Separator(codeText)));
}

std::string CGetData::GetCode_Separator(std::string_view codeText) {
  return std::string(codeText.substr(0, codeText.find_first_of(" \t")));
}

const CachedTable<DeptInfo>& CGetData::depts() {
  return cached(depts_, &CQnCwDB::Dept_GetInfo, db_, &DeptInfo::lDeptId, &DeptInfo::sDeptName);
}

Id CGetData::GetDeptID(const std::string& name) {
  const auto* dept = depts().find(name);
  return dept == nullptr ? 0 : dept->lDeptId;
}

std::string CGetData::GetDeptName(Id deptId) {
  const auto* dept = depts().find(deptId);
  return dept == nullptr ? "" : dept->sDeptName;
}

const DeptInfo* CGetData::GetDEPTINFOByDeptId(Id deptId) { return depts().find(deptId); }

const DeptInfo* CGetData::GetDEPTINFOByDeptNameORId(const std::string& nameOrCode) {
  if (const auto* dept = depts().find(nameOrCode)) return dept;
  const auto& all = depts().records;
  const auto found = std::ranges::find(all, nameOrCode, &DeptInfo::sDeptId);
  return found == all.end() ? nullptr : &*found;
}

const CachedTable<PersonInfo>& CGetData::persons() {
  return cached(persons_, &CQnCwDB::Person_GetInfo, db_, &PersonInfo::lId, &PersonInfo::sName);
}

Id CGetData::GetPersonId(const std::string& name, Id deptId) {
  const auto& all = persons().records;
  const auto found =
      std::ranges::find_if(all, [&](const PersonInfo& p) { return p.sName == name && p.lDeptId == deptId; });
  return found == all.end() ? 0 : found->lId;
}

std::string CGetData::GetPersonName(Id id) {
  const auto* person = persons().find(id);
  return person == nullptr ? "" : person->sName;
}

const CachedTable<EnterInfo>& CGetData::units() {
  return cached(units_, &CQnCwDB::Enter_GetInfo, db_, &EnterInfo::lId, &EnterInfo::sEnterName);
}

const CachedTable<EnterClassInfo>& CGetData::unitClasses() {
  return cached(unitClasses_, &CQnCwDB::EnterClass_GetInfo, db_, &EnterClassInfo::lId, &EnterClassInfo::sName);
}

const EnterInfo* CGetData::GetENTERINFOByEntrtName(const std::string& name) { return units().find(name); }

Id CGetData::GetUnitId(const std::string& name) {
  const auto* unit = units().find(name);
  return unit == nullptr ? 0 : unit->lId;
}

std::string CGetData::GetUnitName(Id id) {
  const auto* unit = units().find(id);
  return unit == nullptr ? "" : unit->sEnterName;
}

std::string CGetData::GetUnitCode(Id id) {
  const auto* unit = units().find(id);
  return unit == nullptr ? "" : unit->sEnterId;
}

std::string CGetData::GetUnitCodeName(Id id) {
  const auto* unit = units().find(id);
  return unit == nullptr ? "" : unit->sEnterId + " " + unit->sEnterName;
}

Id CGetData::GetEnterClassId(const std::string& className) {
  const auto* unitClass = unitClasses().find(className);
  return unitClass == nullptr ? 0 : unitClass->lId;
}

Id CGetData::GetEnterClassIdByEnterId(Id unitId) {
  const auto* unit = units().find(unitId);
  return unit == nullptr ? 0 : unit->lClassId;
}

std::string CGetData::GetEnterClassName(Id classId) {
  const auto* unitClass = unitClasses().find(classId);
  return unitClass == nullptr ? "" : unitClass->sName;
}

double CGetData::GetUnitCredit(Id unitId) {
  const auto* unit = units().find(unitId);
  return unit == nullptr ? 0 : unit->mCredit;
}

double CGetData::GetEnterClassCredit(Id classId) {
  double credit = 0;
  for (const auto& unit : units().records) credit += unit.lClassId == classId ? unit.mCredit : 0;
  return credit;
}

const CachedTable<ItemInfo>& CGetData::items(std::string_view classId) {
  if (const auto found = items_.find(classId); found != items_.end()) return found->second;
  auto& table = items_[std::string(classId)];
  table.records = db_.Items_GetInfo(classId, "lId IS NOT NULL ORDER BY lId");
  for (std::size_t i = 0; i < table.records.size(); ++i) {
    auto& item = table.records[i];
    table.byId.try_emplace(item.lId, i);
    table.byName.try_emplace(item.fields[1], i);
  }
  return table;
}

const std::vector<ProjClassInfo>& CGetData::ProjClassTable() {
  if (!projectClasses_) projectClasses_ = db_.ProjClass_GetInfo("sItemId <> '' ORDER BY lId");
  return *projectClasses_;
}

Id CGetData::GetItemId(std::string_view classId, const std::string& name) {
  const auto* item = items(classId).find(name);
  return item == nullptr ? 0 : item->lId;
}

Id CGetData::GetItemIdByCode(std::string_view classId, const std::string& code) {
  const auto& all = items(classId).records;
  const auto found = std::ranges::find(all, code, [](const ItemInfo& item) { return item.fields[0]; });
  return found == all.end() ? 0 : found->lId;
}

std::string CGetData::GetItemName(std::string_view classId, Id itemId) {
  const auto* item = items(classId).find(itemId);
  return item == nullptr ? "" : item->fields[1];
}

const CachedTable<CyrencyInfo>& CGetData::currencies() {
  if (currencies_) return *currencies_;
  // The id that lines and accounts carry is byExchId, a small number, so this table fills its own places.
  auto& table = currencies_.emplace();
  table.records = db_.Cyrency_GetInfo("lId IS NOT NULL ORDER BY lId");
  for (std::size_t i = 0; i < table.records.size(); ++i) {
    table.byId.try_emplace(table.records[i].byExchId, i);
    table.byName.try_emplace(table.records[i].sName, i);
  }
  return table;
}

const CyrencyInfo* CGetData::GetCyrency(int currency) { return currencies().find(static_cast<Id>(currency)); }

const CyrencyInfo* CGetData::GetCYRENCYINFOByName(const std::string& name) { return currencies().find(name); }

std::string CGetData::GetExchName(int currency) {
  const auto* record = GetCyrency(currency);
  return record == nullptr ? "" : record->sName;
}

std::optional<BillDate> CGetData::GetBillDate(Id voucherId) {
  return billDate(db_.RegMain_GetInfo(Sql("lTieId = ?", voucherId)));
}

std::optional<BillDate> CGetData::GetUnRegBillDate(Id voucherId) {
  return billDate(db_.UnregMain_GetInfo(Sql("lTieId = ?", voucherId)));
}

std::optional<Date> CGetData::StringToTime(std::string_view text) {
  std::string iso(text);
  std::ranges::replace(iso, '.', '-');
  return parseIsoDate(iso);
}

int CGetData::GetMonth(std::string_view text) {
  std::string whole(text);
  if (whole.size() == 7) whole += ".01";
  const auto date = StringToTime(whole);
  return date ? date->month : 0;
}

std::string nameOrNumber(const std::string& name, Id id) {
  return name.empty() ? fmt::format("（编号 {}）", id) : name;
}

ScalAndPrice CGetData::GetScalAndPrice(double amount, double quantity, double foreign, int rateMethod) {
  ScalAndPrice result;
  if (amount == 0) return result;
  if (quantity != 0) result.price = amount / quantity;
  if (foreign != 0) result.rate = std::abs(rateMethod == 1 ? amount / foreign : foreign / amount);
  return result;
}

}  // namespace tz
