// How wide the contents of a grid's columns are, in columns of a terminal, without their captions.
#pragma once

#include <vector>

#include "core/grid/tz_grid.h"

namespace tz {

// Texts beyond this do not widen their column: one endless summary would otherwise blow up every row.
inline constexpr int widestText = 48;

[[nodiscard]] std::vector<int> contentWidths(const CTzGrid& grid);

}  // namespace tz
