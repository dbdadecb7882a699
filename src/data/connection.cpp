#include "data/connection.h"

#include <charconv>

#include "data/backends.h"
#include "data/schema.h"

namespace tz {
namespace {

// One statement that names every table without which nothing can be read; a ledger made elsewhere may lack MarkLog.
void requireLedger(Connection& connection) {
  std::string text;
  for (const auto& table : ledgerTables()) {
    if (table.name == MarkLogInfo::table) continue;
    text += (text.empty() ? "SELECT " : ", ") + ("EXISTS (SELECT 1 FROM " + table.name) + " WHERE 1 = 0)";
  }
  try {
    (void)connection.query(Sql(text))->next();
  } catch (const DbError& error) {
    if (error.kind() != DbError::Kind::other) throw;
    throw DbError(DbError::Kind::notALedger, error.what());
  }
}

// Whether a statement about one table can be made; only "there is no such thing" means that it is missing.
bool exists(Connection& connection, const std::string& table) {
  try {
    (void)connection.query(Sql("SELECT 1 FROM " + table + " WHERE 1 = 0"))->next();
    return true;
  } catch (const DbError& error) {
    if (error.kind() != DbError::Kind::other) throw;
    return false;
  }
}

// What a ledger made elsewhere lacks for work: the mark log, the program's indexes, the report role's grants. Whoever
// may not add them works without.
void addMissing(Connection& connection, bool server) {
  const bool log = exists(connection, MarkLogInfo::table);
  const bool catalogue = exists(connection, "systable");
  if (log && catalogue && hasAllIndexes(connection)) return;
  try {
    Transaction transaction(connection, Transaction::Purpose::writing);
    if (!log) createTable(connection, MarkLogInfo::table);
    if (!catalogue) createCatalogueView(connection);
    createIndexes(connection);
    if (server) grantPostgresReportWrites(connection);
    transaction.commit();
  } catch (const DbError& error) {
    if (error.kind() != DbError::Kind::denied) throw;
  }
}

}  // namespace

Transaction::Transaction(Connection& connection, Purpose purpose) : connection_(&connection) {
  connection.begin(purpose == Purpose::writing);
}

Transaction::~Transaction() {
  if (connection_ != nullptr) connection_->rollback();
}

void Transaction::commit() {
  connection_->commit();
  connection_ = nullptr;
}

bool isServerAddress(std::string_view address) {
  return address.starts_with("postgresql://") || address.starts_with("postgres://");
}

std::unique_ptr<Connection> openLedger(const std::string& address, Access access) {
  const bool server = isServerAddress(address);
  auto connection = server ? openPostgres(address, access) : openSqlite(address, access);
  requireLedger(*connection);
  if (access != Access::read) addMissing(*connection, server);
  if (access == Access::report) {
    server ? restrictPostgresToReports(*connection) : restrictSqliteToReports(*connection);
  }
  return connection;
}

std::unique_ptr<Connection> openEmpty(const std::string& address) {
  if (!isServerAddress(address)) return createSqlite(address);
  auto connection = openPostgres(address, Access::keeper);
  for (const auto& table : ledgerTables()) {
    if (exists(*connection, table.name)) {
      throw DbError(DbError::Kind::duplicate, "the database holds a table " + table.name + " already");
    }
  }
  return connection;
}

std::string shortestText(double value) {
  char buffer[32];
  const auto [end, error] = std::to_chars(std::begin(buffer), std::end(buffer), value);
  return {std::begin(buffer), end};
}

}  // namespace tz
