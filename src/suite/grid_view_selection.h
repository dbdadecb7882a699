// The selected cells of a grid: one rectangle between the cell where the selection began and the current cell. It never
// lists its cells, so that millions of rows select at once. Its sum is formed in slices, so that a window stays alive.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "grid/tz_grid.h"

namespace tz {

struct GridCell {
  std::int64_t row = -1;
  int column = -1;

  bool operator==(const GridCell&) const = default;
  [[nodiscard]] bool valid() const { return row >= 0 && column >= 0; }
};

// Both ends included; empty when the bottom lies above the top.
struct GridRange {
  std::int64_t top = 0;
  std::int64_t bottom = -1;
  int left = 0;
  int right = -1;

  bool operator==(const GridRange&) const = default;
  [[nodiscard]] bool empty() const { return bottom < top || right < left; }
  [[nodiscard]] bool contains(std::int64_t row, int column) const {
    return row >= top && row <= bottom && column >= left && column <= right;
  }
  [[nodiscard]] static GridRange between(GridCell one, GridCell other) {
    if (!one.valid() || !other.valid()) return {};
    const auto [top, bottom] = std::minmax(one.row, other.row);
    const auto [left, right] = std::minmax(one.column, other.column);
    return {top, bottom, left, right};
  }
};

// Cells apart by tabs, rows by newlines. Figures come without thousands separators, so that spreadsheets take them as
// numbers; a tab or newline inside a text becomes a blank.
[[nodiscard]] std::string copyText(const CTzGrid& grid, const GridRange& range);

// The sum of the number cells of a range, slice by slice.
class RangeSum {
 public:
  explicit RangeSum(GridRange range = {}) : range_(range), next_(range.top) {}

  // Adds the rows that hold about `cells` cells. Returns true when the whole range is summed.
  bool Add(const CTzGrid& grid, std::int64_t cells);

  [[nodiscard]] double Sum() const { return static_cast<double>(sum_); }
  [[nodiscard]] std::int64_t Count() const { return count_; }

 private:
  GridRange range_;
  std::int64_t next_;
  long double sum_ = 0;
  std::int64_t count_ = 0;
};

}  // namespace tz
