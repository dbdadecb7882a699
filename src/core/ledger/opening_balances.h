// The opening balances of a detail ledger's blocks: balance records of the start period, each in its account's own
// direction, and the unposted amounts of earlier periods where these are included. Debit-positive, not rounded.
#pragma once

#include <map>

#include "core/ledger/group_key.h"
#include "core/ledger/ledger_line.h"
#include "core/reports/session.h"

namespace tz {

using OpeningBalances = std::map<GroupKey, LedgerBalance>;

// One entry per block that has any record; a member without groups has the empty key. Prices and rates stay 0.
[[nodiscard]] OpeningBalances readOpenings(const DetailMember& member, Session& session, const Conditions& conditions);

}  // namespace tz
