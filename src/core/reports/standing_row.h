// Where one stands in a report that another one leads to: on the first voucher line about a member.
#pragma once

#include <cstdint>
#include <optional>

#include "core/output/report_output.h"

namespace tz {

struct StandingRow {
  std::int64_t row = 0;
  bool isLine = false;
};

// The member's first voucher line; without one its heading or opening. What the member leaves open, any row may be
// about. Nothing where no row is about it.
[[nodiscard]] std::optional<StandingRow> standingRow(const ComputedReport& report, const Subject& member);

}  // namespace tz
