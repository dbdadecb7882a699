#include "core/data/connection.h"

#include <charconv>
#include <set>

#include "core/data/backends.h"
#include "core/data/ledger_tables.h"
#include "core/data/schema.h"

namespace tz {
namespace {

// The names of all tables and views, in lower case.
std::set<std::string> tableNames(Connection& connection) {
  std::set<std::string> names;
  const auto cursor = connection.query(Sql(connection.dialect().tableNames()));
  while (cursor->next()) names.emplace(cursor->text(0));
  return names;
}

void requireVersion(Connection& connection) {
  const auto cursor = connection.query(Sql(connection.dialect().versionQuery()));
  const std::int64_t version = cursor->next() ? cursor->integer(0) : 0;
  if (version <= ledgerVersion) return;
  throw DbError(DbError::Kind::newer, "the ledger is of version " + std::to_string(version) +
                                          ", this program knows versions up to " + std::to_string(ledgerVersion));
}

// Every table without which nothing can be read; a ledger made elsewhere may lack MarkLog. What holds none of them is
// no ledger, whatever version it names; a newer ledger may have other tables.
void requireLedger(Connection& connection, const LedgerTables& there) {
  std::string missing;
  bool any = false;
  for (const auto& table : ledgerTables()) {
    const bool found = there.has(table.name);
    any = any || found;
    if (!found && table.name != MarkLogInfo::table) missing += " " + table.name;
  }
  if (!any) throw DbError(DbError::Kind::notALedger, "it holds none of a ledger's tables");
  requireVersion(connection);
  if (!missing.empty()) throw DbError(DbError::Kind::incomplete, "tables are missing:" + missing);
}

// What a ledger made elsewhere lacks for work: the mark log, the program's indexes, the report role's grants. Whoever
// may not add them works without; views have no indexes.
void addMissing(Connection& connection, const LedgerTables& there, bool server) {
  const bool log = there.has(MarkLogInfo::table);
  const bool catalogue = there.has("systable");
  if (log && catalogue && (!there.indexable || hasAllIndexes(connection))) return;
  try {
    Transaction transaction(connection, Transaction::Purpose::writing);
    if (!log) createTable(connection, MarkLogInfo::table);
    if (!catalogue) createCatalogueView(connection);
    if (there.indexable) createIndexes(connection);
    // What guards the marks goes by the ledger's own types; a ledger of others is read alone.
    if (server && there.indexable) grantPostgresReportWrites(connection);
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

ServerWaitCheck& serverWaitCheck() {
  static ServerWaitCheck check;
  return check;
}

std::unique_ptr<Connection> openLedger(const std::string& address, Access access) {
  const bool server = isServerAddress(address);
  auto connection = server ? openPostgres(address, access) : openSqlite(address, access);
  const auto there = settleLedgerTables(*connection);
  requireLedger(*connection, there);
  if (access != Access::read) addMissing(*connection, there, server);
  const auto prepare = [access, server](Connection& opened, const LedgerTables& tables) {
    if (access != Access::keeper) bringIntoForm(opened, tables, access);
    server ? restrictPostgres(opened, access) : restrictSqlite(opened, access);
  };
  prepare(*connection, there);
  if (!server) {
    afterReopening(*connection, [prepare](Connection& opened) { prepare(opened, settleLedgerTables(opened)); });
  }
  return connection;
}

std::unique_ptr<Connection> openAsStored(const std::string& address) {
  const bool server = isServerAddress(address);
  auto connection = server ? openPostgres(address, Access::read) : openSqlite(address, Access::read);
  requireLedger(*connection, settleLedgerTables(*connection));
  const auto restrict = [server](Connection& opened) {
    server ? restrictPostgres(opened, Access::read) : restrictSqlite(opened, Access::read);
  };
  restrict(*connection);
  if (!server) afterReopening(*connection, restrict);
  return connection;
}

std::unique_ptr<Connection> openEmpty(const std::string& address) {
  if (!isServerAddress(address)) return createSqlite(address);
  auto connection = openPostgres(address, Access::keeper);
  const auto there = tableNames(*connection);
  for (const auto& table : ledgerTables()) {
    if (there.contains(lowerCase(table.name))) {
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
