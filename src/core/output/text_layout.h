// Where the columns of a report stand on a line of text.
#pragma once

#include <vector>

#include "core/grid/tz_grid.h"

namespace tz {

struct TextColumn {
  int start = 0;
  int width = 0;
  bool figures = false;  // aligned right
  ColumnKind kind = ColumnKind::text;
};

// Neighbouring columns below one caption.
struct TextGroup {
  int first = 0;
  int last = 0;
};

struct TextLayout {
  explicit TextLayout(const CTzGrid& grid);

  std::vector<TextColumn> columns;
  std::vector<TextGroup> groups;
  int width = 0;        // of a whole line
  bool marked = false;  // a row is coloured: the first two columns of a line hold its mark
};

// The column groups of a grid, from the left.
[[nodiscard]] std::vector<TextGroup> groupsOf(const CTzGrid& grid);

}  // namespace tz
