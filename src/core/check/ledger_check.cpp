#include "core/check/ledger_check.h"

#include "core/check/ledger_check_movements.h"

namespace tz {
namespace {

// In a broken file no rule can be looked at: rows may be missing or come twice. The server watches its files itself.
void requireSoundFile(Connection& connection) {
  const auto query = connection.dialect().structureQuery();
  if (query.empty()) return;
  std::string findings;
  const auto cursor = connection.query(Sql(query));
  while (cursor->next()) {
    if (cursor->text(0) == "ok") return;
    if (!findings.empty()) findings += "; ";
    findings += cursor->text(0);
  }
  throw DbError(DbError::Kind::damaged, findings);
}

}  // namespace

void checkLedger(Connection& connection, const std::function<void(const Violation&)>& found) {
  requireSoundFile(connection);
  const auto tables = settleLedgerTables(connection);
  check::Report report(found, tables);
  check::Facts facts;
  check::checkAccountSet(connection, report, facts);
  check::checkCurrencies(connection, report, facts);
  check::checkArchives(connection, report, facts);
  check::checkChart(connection, report, facts);
  check::checkProjects(connection, report, facts);
  check::checkProjectCodes(connection, report, facts);
  check::Movements movements;
  check::checkVouchers(connection, report, facts, movements);
  check::checkBalances(connection, report, facts, movements);
  check::checkPlans(connection, report, facts);
  check::checkOperators(connection, report);
}

}  // namespace tz
