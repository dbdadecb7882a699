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
[[nodiscard]] MemberBalances readBalances(const BalanceMember& member, Session& session, const Conditions& conditions);

// The balance records that the table reads, in its order.
[[nodiscard]] Sql recordStatement(const BalanceMember& member, const Conditions& conditions);

}  // namespace tz
