// The balance check: whether the listed lines that are marked settle each other.
#pragma once

#include <string_view>

#include "core/output/report_output.h"
#include "core/receivables/millionths.h"
#include "core/reports/marking.h"
#include "core/reports/messages.h"

namespace tz {

// What lines come to by sides, those with a mark and the open ones, in the figures that the check compares.
struct ClearingSums {
  struct Sides {
    MillionthSum debit, credit;

    [[nodiscard]] MillionthSum balance() const;  // debit-positive
  };

  bool foreign = false;  // foreign amounts, not amounts
  Sides marked, open;
};
// Of a computed two-clearing report, as its rows show it. Marks are told by the cells of the marks' column, so that
// what was toggled since counts.
[[nodiscard]] ClearingSums sumClearing(const ComputedReport& report);
// A line that got a mark, or lost it, counts on the other side.
void moveLine(ClearingSums& sums, const CTzGrid& grid, std::int64_t row, bool marked);

struct ClearingCheck {
  bool level = true;
  bool foreign = false;  // foreign amounts are compared, not amounts
  double debit = 0, credit = 0;
};

[[nodiscard]] ClearingCheck checkClearing(const ComputedReport& report);

// What a level check says.
[[nodiscard]] Message levelMessage(ClearingKind kind);
// Of the window that shows one that is not: its dialog id, its title, its grid of one row.
inline constexpr int clearingCheckDialog = 1148;
[[nodiscard]] std::string_view checkTitle(ClearingKind kind);
void fillCheckGrid(const ClearingCheck& check, CTzGrid& grid);

}  // namespace tz
