// CGetData: the suite's lookups by id, code and name over one open ledger. Each small table is read once, when it is
// first asked for; an object lives as long as one report or dialog, so what it says is as fresh as that.
//
// Unknown ids and names answer with null, 0 or "". Where a name occurs twice, the lowest lId answers.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/data/qncw_db.h"

namespace tz {

// A voucher as lines name it.
struct BillDate {
  int number = 0;
  std::string word;
  Date date;
};

// Unit price and exchange rate of a figure, 0 where a divisor or the amount is 0.
struct ScalAndPrice {
  double price = 0;
  double rate = 0;
};

// The name, or "（编号 7）" for a record that has none or is not in its archive.
[[nodiscard]] std::string nameOrNumber(const std::string& name, Id id);

// A table read once: its records by lId order, and places by key.
template <class Record>
struct CachedTable {
  std::vector<Record> records;
  std::unordered_map<Id, std::size_t> byId;
  std::unordered_map<std::string, std::size_t> byName;  // first of each name

  [[nodiscard]] const Record* find(Id id) const {
    const auto found = byId.find(id);
    return found == byId.end() ? nullptr : &records[found->second];
  }
  [[nodiscard]] const Record* find(const std::string& name) const {
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : &records[found->second];
  }
};

class CGetData {
 public:
  explicit CGetData(const CQnCwDB& db) : db_(db) {}

  // Accounts. A "code text" is a code, or code and name as combos show them.
  [[nodiscard]] const CodeInfo* GetCODEINFOByID(Id id);
  [[nodiscard]] const CodeInfo* GetCODEINFOByCode(std::string_view code);
  [[nodiscard]] Id GetCodeId(std::string_view code);
  [[nodiscard]] Id GetCodeId_new(std::string_view codeText);
  [[nodiscard]] std::string GetCodeCode(Id id);
  [[nodiscard]] std::string GetCodeName(Id id);
  // The ids of the account and of all accounts below it, in code order.
  [[nodiscard]] std::vector<Id> GetCode_Include(std::string_view code);
  // The condition that selects lines and balances of the account and of all accounts below it.
  [[nodiscard]] Sql GetCodeSubString(std::string_view codeText);
  // The code in a code text: what stands before the first blank or tab.
  [[nodiscard]] static std::string GetCode_Separator(std::string_view codeText);

  [[nodiscard]] Id GetDeptID(const std::string& name);
  [[nodiscard]] std::string GetDeptName(Id deptId);
  [[nodiscard]] const DeptInfo* GetDEPTINFOByDeptId(Id deptId);
  [[nodiscard]] const DeptInfo* GetDEPTINFOByDeptNameORId(const std::string& nameOrCode);

  [[nodiscard]] Id GetPersonId(const std::string& name, Id deptId);
  [[nodiscard]] std::string GetPersonName(Id id);
  [[nodiscard]] const std::vector<PersonInfo>& PersonTable() { return persons().records; }

  [[nodiscard]] Id GetUnitId(const std::string& name);
  [[nodiscard]] std::string GetUnitName(Id id);
  [[nodiscard]] std::string GetUnitCode(Id id);
  [[nodiscard]] std::string GetUnitCodeName(Id id);  // code, blank, name
  [[nodiscard]] const EnterInfo* GetENTERINFOByEntrtName(const std::string& name);
  [[nodiscard]] Id GetEnterClassId(const std::string& className);
  [[nodiscard]] Id GetEnterClassIdByEnterId(Id unitId);
  [[nodiscard]] std::string GetEnterClassName(Id classId);
  // Credit limits, 0 for none: of a unit, and of all units of a class together (0: those of no class).
  [[nodiscard]] double GetUnitCredit(Id unitId);
  [[nodiscard]] double GetEnterClassCredit(Id classId);

  // The project classes that have an id, by lId.
  [[nodiscard]] const std::vector<ProjClassInfo>& ProjClassTable();
  [[nodiscard]] Id GetItemId(std::string_view classId, const std::string& name);
  [[nodiscard]] Id GetItemIdByCode(std::string_view classId, const std::string& code);
  [[nodiscard]] std::string GetItemName(std::string_view classId, Id itemId);
  // The items of a project class by lId; fields 0 and 1 are code and name.
  [[nodiscard]] const std::vector<ItemInfo>& ItemTable(std::string_view classId) { return items(classId).records; }

  [[nodiscard]] std::string GetExchName(int currency);
  [[nodiscard]] const CyrencyInfo* GetCYRENCYINFOByName(const std::string& name);
  [[nodiscard]] const CyrencyInfo* GetCyrency(int currency);

  [[nodiscard]] std::optional<BillDate> GetBillDate(Id voucherId);
  [[nodiscard]] std::optional<BillDate> GetUnRegBillDate(Id voucherId);

  // "2006.01.05" or "2006-01-05" as a date; the month of such a text (also of "2006.01"), 0 when it has none.
  [[nodiscard]] static std::optional<Date> StringToTime(std::string_view text);
  [[nodiscard]] static int GetMonth(std::string_view text);
  // Price = amount ÷ quantity; rate = |amount ÷ foreign| when the rate method is 1, else |foreign ÷ amount|.
  [[nodiscard]] static ScalAndPrice GetScalAndPrice(double amount, double quantity, double foreign, int rateMethod);

 private:
  using Codes = std::vector<CodeInfo>;
  [[nodiscard]] const Codes& codes();  // in code order
  // The first of the accounts whose code begins so, in code order; all that most reports ask for.
  [[nodiscard]] std::span<const CodeInfo> accountsFrom(std::string_view code);
  [[nodiscard]] const CachedTable<DeptInfo>& depts();
  [[nodiscard]] const CachedTable<PersonInfo>& persons();
  [[nodiscard]] const CachedTable<EnterInfo>& units();
  [[nodiscard]] const CachedTable<EnterClassInfo>& unitClasses();
  [[nodiscard]] const CachedTable<ItemInfo>& items(std::string_view classId);
  [[nodiscard]] const CachedTable<CyrencyInfo>& currencies();

  const CQnCwDB& db_;
  std::optional<Codes> codes_;
  std::optional<Codes> family_;  // the account that was asked for first and those below it, until all are read
  std::string familyCode_;
  std::unordered_map<Id, std::size_t> codeById_;
  std::optional<CachedTable<DeptInfo>> depts_;
  std::optional<CachedTable<PersonInfo>> persons_;
  std::optional<CachedTable<EnterInfo>> units_;
  std::optional<CachedTable<EnterClassInfo>> unitClasses_;
  std::optional<std::vector<ProjClassInfo>> projectClasses_;
  std::map<std::string, CachedTable<ItemInfo>, std::less<>> items_;  // by project class
  std::optional<CachedTable<CyrencyInfo>> currencies_;
};

}  // namespace tz
