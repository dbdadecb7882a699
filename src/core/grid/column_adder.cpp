#include "core/grid/column_adder.h"

namespace tz {

void CTzGridControl::AddCol(CTzGrid& grid, std::string_view caption, int width, ColumnKind kind) {
  grid.AddColumn({.caption = std::string(caption), .group = {}, .width = width, .kind = kind});
}

void CTzGridControl::AddGroup(CTzGrid& grid, std::string_view caption, int width,
                              const std::vector<ColumnKind>& kinds) {
  if (kinds.size() == 1) return AddCol(grid, caption, width, kinds.front());
  for (const auto kind : kinds) {
    grid.AddColumn({std::string(traitsOf(kind).caption), std::string(caption), width, kind});
  }
}

}  // namespace tz
