#include "data/ledger_check.h"

#include "data/ledger_check_movements.h"

namespace tz {

void checkLedger(Connection& connection, const std::function<void(const Violation&)>& found) {
  check::Report report(found);
  check::Facts facts;
  check::readCatalogue(connection, facts);
  check::checkAccountSet(connection, report, facts);
  check::checkCurrencies(connection, report, facts);
  check::checkArchives(connection, report, facts);
  check::checkChart(connection, report, facts);
  check::checkProjects(connection, report, facts);
  check::Movements movements;
  check::checkVouchers(connection, report, facts, movements);
  check::checkBalances(connection, report, facts, movements);
  check::checkPlans(connection, report, facts);
  check::checkOperators(connection, report, facts);
}

}  // namespace tz
