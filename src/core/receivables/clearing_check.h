// The balance check: whether the listed lines that are marked settle each other.
#pragma once

#include <string_view>

#include "core/output/report_output.h"
#include "core/reports/marking.h"
#include "core/reports/messages.h"

namespace tz {

struct ClearingCheck {
  bool level = true;
  bool foreign = false;  // foreign amounts are compared, not amounts
  double debit = 0, credit = 0;
};

// Of a computed two-clearing report, as its rows show it. Marks are told by the cells of the marks' column, so that
// what was toggled since counts.
[[nodiscard]] ClearingCheck checkClearing(const ComputedReport& report);

// What a level check says.
[[nodiscard]] Message levelMessage(ClearingKind kind);
// Of the window that shows one that is not: its dialog id, its title, its grid of one row.
inline constexpr int clearingCheckDialog = 1148;
[[nodiscard]] std::string_view checkTitle(ClearingKind kind);
void fillCheckGrid(const ClearingCheck& check, CTzGrid& grid);

}  // namespace tz
