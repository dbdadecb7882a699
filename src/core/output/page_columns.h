// How a report's columns fit on a page: paper, size of the letters and where each column stands. What is too wide for
// letters that can be read goes over several sheets side by side, the key columns on each of them.
#pragma once

#include <vector>

#include "core/grid/tz_grid.h"
#include "core/output/page_paper.h"

namespace tz {

struct PageColumn {
  int column = 0;   // of the grid
  double left = 0;  // points from the left margin
  double width = 0;
  int letters = 0;       // half-width letters that stand on one line of it
  bool centred = false;  // holds single characters, such as 借 and 贷
};

using PageStrip = std::vector<PageColumn>;

struct PageColumns {
  Paper paper;
  double letterSize = 0;          // points
  std::vector<PageStrip> strips;  // what stands side by side, each on a sheet of its own; at least one

  [[nodiscard]] double lineHeight() const { return letterSize * lineSpacing; }
  // Of a row whose texts take so many lines.
  [[nodiscard]] double rowHeight(int lines) const { return letterSize * (rowSpacing + lineSpacing * (lines - 1)); }

  static constexpr double lineSpacing = 1.25;
  static constexpr double rowSpacing = 1.7;
};

[[nodiscard]] PageColumns fitColumns(const CTzGrid& grid, const PageOptions& options);

}  // namespace tz
