#include "core/reports/keeper.h"

#include <fmt/format.h>

#include "core/data/ledger_tables.h"
#include "core/data/schema.h"
#include "core/reports/explain_error.h"

namespace tz {
namespace {

// Each of these asks for a right and changes nothing.
void requireWritable(Connection& connection, std::string_view table) {
  const auto& column = tableOf(table).columns.front().name;
  connection.execute(Sql(fmt::format("INSERT INTO {0} SELECT * FROM {0} WHERE 1 = 0", table)));
  connection.execute(Sql(fmt::format("UPDATE {0} SET {1} = {1} WHERE 1 = 0", table, column)));
  connection.execute(Sql(fmt::format("DELETE FROM {} WHERE 1 = 0", table)));
}

KeepingObstacle obstacleOf(const DbError& error) {
  using Kind = DbError::Kind;
  if (error.kind() == Kind::denied || error.kind() == Kind::unreadable) {
    return {"没有写入这个帐套的权限，只能查看。请由帐套的所有者修改，或请管理员授权。", wordsOf(error)};
  }
  return {"现在只能查看，不能修改。" + explainInWindow(error), wordsOf(error)};
}

}  // namespace

LedgerKeeper::LedgerKeeper(std::string address, std::vector<std::string_view> tables)
    : address_(std::move(address)), tables_(std::move(tables)) {
  try {
    open();
    if (!settleLedgerTables(connection()).indexable) {
      obstacle_ = {"这个帐套由其他程序建立，列的类型不同，只能查看。请用原来的程序修改。"};
    }
  } catch (const DbError& error) {
    obstacle_ = obstacleOf(error);
  }
  if (obstacle_) db_.Close(address_);
}

void LedgerKeeper::open() {
  db_.Open(address_);
  Transaction probe(connection(), Transaction::Purpose::writing);
  for (const auto table : tables_) requireWritable(connection(), table);
}

// A server that was away is asked anew; a file that was moved or replaced is no longer the ledger that was read.
void LedgerKeeper::requireConnection() {
  if (obstacle_) throw DbError(DbError::Kind::denied, obstacle_->text);
  if (db_.HasCurrent() && db_.DBSelect(address_) == 0) return;
  if (!isServerAddress(address_)) throw DbError(DbError::Kind::lost, address_);
  db_.Close(address_);
  open();
}

void LedgerKeeper::holdTables() {
  const auto text = connection().dialect().holdTables(tables_);
  if (!text.empty()) connection().execute(Sql(text));
}

}  // namespace tz
