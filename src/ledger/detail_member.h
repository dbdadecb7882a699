// A member of the detail-ledger family as a record: what it selects, in which order, and how it captions. The engine
// does the rest.
#pragma once

#include <string_view>

#include "data/value.h"
#include "reports/conditions.h"

namespace tz {

struct DetailMember {
  // The member's dimension keys as a condition on lines and balances, without the account condition.
  Sql (*dimension)(const Conditions&);
  std::string_view openingCaption;
  // ORDER BY of posted and unposted lines, columns of the line as "s.".
  std::string_view postedOrder;
  std::string_view unpostedOrder;
};

}  // namespace tz
