// CQnCwDB: the ledger databases that are open, one of them current, and the operations of the suite's access class
// under their names. Results are values that release themselves. A failed statement throws DbError; an empty result is
// empty.
//
// Conditions are texts as they follow WHERE, with an optional ORDER BY; values from people are bound into them.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/data/connection.h"
#include "core/data/record_io.h"
#include "core/data/records.h"

namespace tz {

// A result of a free SELECT: cells row by row, as text.
struct TextTable {
  int rows = 0;
  int columns = 0;
  std::vector<std::string> cells;

  [[nodiscard]] const std::string& at(int row, int column) const {
    return cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column)];
  }
};

class CQnCwDB {
 public:
  explicit CQnCwDB(Access access = Access::report) : access_(access) {}

  // Opens the ledger at a path or server address and makes it current; throws DbError when it cannot.
  void Open(const std::string& name);
  void Close(const std::string& name);
  // Makes an open ledger current. 0 when it is open and answers, nonzero otherwise.
  int DBSelect(const std::string& name);
  [[nodiscard]] bool HasCurrent() const { return current_ != nullptr; }
  [[nodiscard]] Connection& Current() const;

#define TZ_GET_INFO(Table)                                                         \
  [[nodiscard]] std::vector<Table##Info> Table##_GetInfo(const Sql& where) const { \
    return readRecords<Table##Info>(Current(), where);                             \
  }
  TZ_GET_INFO(Code)
  TZ_GET_INFO(Dept)
  TZ_GET_INFO(Person)
  TZ_GET_INFO(EnterClass)
  TZ_GET_INFO(Enter)
  TZ_GET_INFO(AssAcc)
  TZ_GET_INFO(RegMain)
  TZ_GET_INFO(UnregMain)
  TZ_GET_INFO(RegSub)
  TZ_GET_INFO(UnregSub)
  TZ_GET_INFO(ProjClass)
  TZ_GET_INFO(ProjItems)
  TZ_GET_INFO(ProjCodes)
  TZ_GET_INFO(Plan)
  TZ_GET_INFO(Ages)
  TZ_GET_INFO(Cyrency)
  TZ_GET_INFO(ExchgFix)
  TZ_GET_INFO(ExchgFlt)
  TZ_GET_INFO(zOperator)
  TZ_GET_INFO(zRight)
#undef TZ_GET_INFO
  [[nodiscard]] std::optional<zAccountMInfo> zAccountM_GetInfo(Id accountSetId) const;
  // The items of a project class that meet the condition (may be empty), all fields as text.
  [[nodiscard]] std::vector<ItemInfo> Items_GetInfo(std::string_view classId, const Sql& where) const;
  // Whether any row of a table meets the condition, without reading more than one.
  [[nodiscard]] bool Exists(std::string_view table, const Sql& where) const;

  // A free SELECT as text cells; a statement without result, answered by the number of rows that it changed.
  [[nodiscard]] TextTable QRYGetData(const Sql& sql) const;
  std::int64_t QRYExecuteSQL(const Sql& sql) const;

  // New records get a new id, which is returned. Plan amounts are rounded to four decimals when written.
  Id Plan_AddNew(PlanInfo record) const;
  bool Plan_Edit(PlanInfo record) const;
  bool Plan_Delete(Id id) const;
  Id Ages_AddNew(AgesInfo record) const;
  bool Ages_Edit(const AgesInfo& record) const;
  bool Ages_Delete(Id id) const;
  // Writes the two-clearing mark of a posted line, provided that it still holds `markRead`; false when it does not.
  bool RegSub_Edit(const RegSubInfo& record, int markRead) const;

 private:
  Access access_;
  std::map<std::string, std::unique_ptr<Connection>> open_;
  Connection* current_ = nullptr;
  std::string currentName_;
};

// Four decimals, half away from zero.
[[nodiscard]] double roundPlanAmount(double amount);

}  // namespace tz
