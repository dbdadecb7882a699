// Where one stands in a report that another one leads to: on the first voucher line about a member.
#pragma once

#include <cstdint>
#include <optional>

#include "core/reports/report_definition.h"

namespace tz {

struct StandingRow {
  std::int64_t row = 0;
  bool isLine = false;
};

// The target's very line; otherwise the first voucher line of its member, without one the member's heading or opening.
// What the member leaves open, any row may be about. Nothing where no row is about it.
[[nodiscard]] std::optional<StandingRow> standingRow(const ComputedReport& report, const DetailTarget& target);

}  // namespace tz
