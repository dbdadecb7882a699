#include "core/data/qncw_db.h"

#include <cfloat>
#include <cmath>
#include <set>

#include "core/data/new_ids.h"

namespace tz {
namespace {

template <class Record>
Id addNew(Connection& connection, Record record) {
  return withNewIds([&] {
    Transaction transaction(connection, Transaction::Purpose::writing);
    record.lId = connection.newIds(Record::table, 1);
    insertRecords(connection, std::vector<Record>{record});
    transaction.commit();
    return record.lId;
  });
}

void roundAmounts(PlanInfo& record) {
  record.mPPlan = roundPlanAmount(record.mPPlan);
  record.mPFact = roundPlanAmount(record.mPFact);
  record.mPLast = roundPlanAmount(record.mPLast);
}

}  // namespace

double roundPlanAmount(double amount) {
  constexpr double scale = 10'000;
  // A decimal half may lie a hair below the half in binary; four ulps bring it back.
  const double scaled = std::abs(amount) * scale * (1 + 4 * DBL_EPSILON);
  if (!(scaled < 1e15)) return amount;  // no such decimals left at this size
  return std::copysign(std::floor(scaled + 0.5) / scale, amount);
}

void CQnCwDB::Open(const std::string& name) {
  auto& connection = open_[name];
  if (!connection) {
    try {
      connection = openLedger(name, access_);
    } catch (...) {
      open_.erase(name);
      throw;
    }
  }
  current_ = connection.get();
  currentName_ = name;
}

void CQnCwDB::Close(const std::string& name) {
  if (name == currentName_) {
    current_ = nullptr;
    currentName_.clear();
  }
  open_.erase(name);
}

int CQnCwDB::DBSelect(const std::string& name) {
  const auto found = open_.find(name);
  if (found == open_.end() || !found->second->alive()) return 1;
  current_ = found->second.get();
  currentName_ = name;
  return 0;
}

Connection& CQnCwDB::Current() const {
  if (current_ == nullptr) throw DbError(DbError::Kind::lost, "no ledger is open");
  return *current_;
}

std::optional<zAccountMInfo> CQnCwDB::zAccountM_GetInfo(Id accountSetId) const {
  auto records = readRecords<zAccountMInfo>(Current(), Sql("lId = ?", accountSetId));
  if (records.empty()) return std::nullopt;
  return std::move(records.front());
}

std::vector<ItemInfo> CQnCwDB::Items_GetInfo(std::string_view classId, const Sql& where) const {
  const auto table = itemTable(classId);
  // Code and name are there in every class; what other columns are no fields is left alone.
  std::set<int> fields = {0, 1};
  {
    const auto columns = Current().query(Sql("SELECT * FROM " + table + " WHERE 1 = 0"));
    (void)columns->next();  // columns that came after the ledger was opened are seen from here on
    for (int column = 0; column < columns->columns(); ++column) {
      if (const auto field = itemField(columns->columnName(column))) fields.insert(*field);
    }
  }
  std::string list = "lId";
  for (const int field : fields) list += ", FIELD" + std::to_string(field);
  auto sql = Sql("SELECT " + list + " FROM " + table);
  if (!where.empty()) sql += " WHERE " + where;
  const auto cursor = Current().query(sql);
  std::vector<ItemInfo> items;
  while (cursor->next()) {
    auto& item = items.emplace_back();
    item.lId = cursor->integer(0);
    item.fields.resize(static_cast<std::size_t>(*fields.rbegin()) + 1);
    int column = 0;
    for (const int field : fields) item.fields[static_cast<std::size_t>(field)] = cursor->anyText(++column);
  }
  return items;
}

bool CQnCwDB::Exists(std::string_view table, const Sql& where) const {
  return Current().query(Sql("SELECT 1 FROM " + std::string(table) + " WHERE ") + where + " LIMIT 1")->next();
}

TextTable CQnCwDB::QRYGetData(const Sql& sql) const {
  const auto cursor = Current().query(sql);
  TextTable table;
  table.columns = cursor->columns();
  while (cursor->next()) {
    ++table.rows;
    for (int column = 0; column < table.columns; ++column) table.cells.push_back(cursor->anyText(column));
  }
  return table;
}

std::int64_t CQnCwDB::QRYExecuteSQL(const Sql& sql) const { return Current().execute(sql); }

Id CQnCwDB::Plan_AddNew(PlanInfo record) const {
  roundAmounts(record);
  return addNew(Current(), std::move(record));
}

bool CQnCwDB::Plan_Edit(PlanInfo record) const {
  roundAmounts(record);
  return Current().execute(Sql("UPDATE Plan SET lCodeId = ?, lDeptId = ?, lItemId = ?, sItemId = ?, byPeroid = ?, "
                               "mPPlan = ?, mPFact = ?, mPLast = ? WHERE lId = ?",
                               record.lCodeId, record.lDeptId, record.lItemId, record.sItemId, record.byPeroid,
                               record.mPPlan, record.mPFact, record.mPLast, record.lId)) == 1;
}

bool CQnCwDB::Plan_Delete(Id id) const { return Current().execute(Sql("DELETE FROM Plan WHERE lId = ?", id)) == 1; }

Id CQnCwDB::Ages_AddNew(AgesInfo record) const { return addNew(Current(), record); }

bool CQnCwDB::Ages_Edit(const AgesInfo& record) const {
  return Current().execute(Sql("UPDATE Ages SET byType = ?, nNumber = ?, lLength = ? WHERE lId = ?", record.byType,
                               record.nNumber, record.lLength, record.lId)) == 1;
}

bool CQnCwDB::Ages_Delete(Id id) const { return Current().execute(Sql("DELETE FROM Ages WHERE lId = ?", id)) == 1; }

bool CQnCwDB::RegSub_Edit(const RegSubInfo& record, int markRead) const {
  return Current().execute(Sql("UPDATE RegSub SET byFlag = ? WHERE lId = ? AND lTieId = ? AND byFlag = ?",
                               record.byFlag, record.lId, record.lTieId, markRead)) == 1;
}

}  // namespace tz
