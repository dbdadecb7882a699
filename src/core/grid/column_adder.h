// CTzGridControl: how the header of a report is put together.
#pragma once

#include <string_view>
#include <vector>

#include "core/grid/tz_grid.h"

namespace tz {

struct CTzGridControl {
  // One column with one caption.
  static void AddCol(CTzGrid& grid, std::string_view caption, int width, ColumnKind kind);
  // Columns of these kinds, each with the caption of its kind below the common one; a single column has just that one.
  static void AddGroup(CTzGrid& grid, std::string_view caption, int width, const std::vector<ColumnKind>& kinds);
};

}  // namespace tz
