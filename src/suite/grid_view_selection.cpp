#include "suite/grid_view_selection.h"

namespace tz {
namespace {

void appendCell(std::string& text, const CTzGrid& grid, std::int64_t row, int column) {
  const bool number = grid.TypeAt(row, column) == CTzGrid::CellType::number;
  for (const char sign : grid.ShownAt(row, column)) {
    if (number && sign == ',') continue;
    text += sign == '\t' || sign == '\n' || sign == '\r' ? ' ' : sign;
  }
}

}  // namespace

std::string copyText(const CTzGrid& grid, const GridRange& range) {
  std::string text;
  for (std::int64_t row = range.top; row <= range.bottom; ++row) {
    if (row > range.top) text += '\n';
    for (int column = range.left; column <= range.right; ++column) {
      if (column > range.left) text += '\t';
      appendCell(text, grid, row, column);
    }
  }
  return text;
}

bool RangeSum::Add(const CTzGrid& grid, std::int64_t cells) {
  const std::int64_t columns = range_.right - range_.left + 1;
  if (range_.empty()) return true;
  const std::int64_t end = std::min(range_.bottom + 1, next_ + std::max<std::int64_t>(cells / columns, 1));
  for (; next_ < end; ++next_) {
    for (int column = range_.left; column <= range_.right; ++column) {
      if (grid.TypeAt(next_, column) != CTzGrid::CellType::number) continue;
      sum_ += grid.NumberAt(next_, column);
      ++count_;
    }
  }
  return next_ > range_.bottom;
}

}  // namespace tz
