// Credit limits beside balances: what a unit, or a class of units together, may owe at most.
#pragma once

#include "core/grid/row_subjects.h"
#include "core/grid/tz_grid.h"
#include "core/reports/conditions.h"

namespace tz {

// "信用额度" and "超额", behind the columns that are there; the first of them, or -1 where the conditions ask for none.
[[nodiscard]] int addLimitColumns(CTzGrid& grid, const Conditions& conditions);

// The limit of the unit that the row is about, or of all units of its class, and what the balance exceeds it by,
// whichever side it is on. Empty where the row is about neither, or the limit is 0.
void writeLimit(CTzGrid& grid, std::int64_t row, int column, const Subject& subject, double balance,
                const Conditions& conditions);

}  // namespace tz
