// The selected cells of a grid: one rectangle of places (rows and columns counted as they are shown) between the cell
// where the selection began and the current cell. What is hidden is never in it. It does not list its cells, so that
// millions of rows select at once. Its sums are formed in slices, so that a window stays alive.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/output/report_output.h"
#include "desktop/gridview/shown_rows.h"

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

// A part of a grid as it is shown: places of rows, both ends included, and the grid's own columns from left to right.
struct GridPart {
  const ShownRows* rows = nullptr;
  std::int64_t top = 0;
  std::int64_t bottom = -1;
  std::vector<int> columns;

  [[nodiscard]] bool empty() const { return bottom < top || columns.empty(); }
};

// Cells apart by tabs, rows by newlines. Figures come without thousands separators, so that spreadsheets take them as
// numbers; a tab or newline inside a text becomes a blank.
[[nodiscard]] std::string copyText(const CTzGrid& grid, const GridPart& part);
// The same under what stands above the report's table and its captions, coloured rows marked, remarks below.
[[nodiscard]] std::string copyTable(const ComputedReport& report, const GridPart& part);

// The voucher lines of a part, the figures of each kind apart. Rows of totals, openings and headings are no lines, and
// balances, prices and rates do not add up.
struct LineSums {
  struct Figures {
    double sum = 0;
    std::int64_t count = 0;

    bool operator==(const Figures&) const = default;
  };

  std::int64_t rows = 0;  // of any kind
  std::int64_t lines = 0;
  bool ofVouchers = true;                                // the lines are those of vouchers, not rows of a table
  std::array<Figures, columnKinds.size()> figures = {};  // by kind of column

  bool operator==(const LineSums&) const = default;
  [[nodiscard]] const Figures& of(ColumnKind kind) const { return figures.at(static_cast<std::size_t>(kind)); }
};

// Sums the lines of a part, slice by slice; it starts anew when other rows are shown.
class RangeSum {
 public:
  RangeSum() = default;
  RangeSum(const CTzGrid& grid, GridPart part);

  // Adds about `cells` cells further down. Returns true when the whole part is summed.
  bool Add(const CTzGrid& grid, std::int64_t cells);
  [[nodiscard]] LineSums Sums() const;

 private:
  struct Column {
    int place;
    ColumnKind kind;
  };

  void AddRow(const CTzGrid& grid, std::int64_t row);

  GridPart part_;
  std::vector<Column> columns_;  // those of the part that add up
  int creditColumn_ = -1;        // of the grid
  std::int64_t next_ = 0;        // a place
  std::int64_t lines_ = 0;
  std::array<long double, columnKinds.size()> sums_ = {};
  std::array<std::int64_t, columnKinds.size()> counts_ = {};
};

}  // namespace tz
