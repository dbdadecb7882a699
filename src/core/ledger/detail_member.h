// A member of the detail-ledger family as a record: what it selects, how it groups and how it captions. The engine does
// the rest.
#pragma once

#include <string_view>

#include "core/ledger/listed_entities.h"
#include "core/ledger/opening_balances.h"
#include "core/ledger/selection.h"

namespace tz {

struct DetailMember {
  Selection selects;
  OpeningSource openingSource = OpeningSource::startPeriod;
  std::string_view openingCaption;
  Listed listed = Listed::all;
  // Of multi-column ledgers: the flag that a sub-account must carry to have a column; 0: there are no such columns.
  char columnFlag = 0;
};

}  // namespace tz
