// The opening balances of a report's groups: balance records of the start period, each in its account's own direction,
// and the unposted amounts of earlier periods where these are included. Debit-positive, not rounded. A balance knows no
// clerk: where clerks are a level, all of it stands with the lines that have none.
#pragma once

#include <map>

#include "core/ledger/ledger_line.h"
#include "core/ledger/selection.h"
#include "core/reports/session.h"

namespace tz {

// What the opening balance is read from.
enum class OpeningSource {
  startPeriod,  // the balance records of the first period asked for
  yearStart,    // those of period 1 and the posted lines of the periods before the first one
};

using OpeningBalances = std::map<GroupKey, LedgerBalance>;

// One entry per group that has any record; without groups it has the empty key. Prices and rates stay 0.
[[nodiscard]] OpeningBalances readOpenings(const Selection& selection, OpeningSource source, Session& session,
                                           const Conditions& conditions);

}  // namespace tz
