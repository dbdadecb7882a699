// The balances of a table's members: balance records, and the unposted lines where these are included, each read in one
// statement along an index.
#pragma once

#include <map>

#include "core/ledger/balance_figures.h"
#include "core/ledger/balance_report.h"
#include "core/reports/session.h"

namespace tz {

// One entry per member that has a record or a line; quantities and foreign amounts are 0 where the format shows none.
using MemberBalances = std::map<GroupKey, BalanceFigures>;
struct TableBalances {
  MemberBalances members;
  // Where groups have rows of their own: theirs, by keys of the outer level alone. Their openings are not the sums of
  // their members', whose first records may be of later periods.
  MemberBalances groups;
};
[[nodiscard]] TableBalances readBalances(const BalanceMember& member, Session& session, const Conditions& conditions);

// The balance records that the table reads, in its order.
[[nodiscard]] Sql recordStatement(const BalanceMember& member, const Conditions& conditions);

}  // namespace tz
