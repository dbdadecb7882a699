// The rows that show what somebody typed, found slice by slice among all of a report. Those in folded blocks can be
// gone to as they open; those that are barred are counted alone.
#pragma once

#include <vector>

#include "desktop/gridview/cell_matcher.h"
#include "desktop/gridview/grid_rows.h"

namespace tz {

class RowSearch {
 public:
  RowSearch() = default;
  // The columns to look at, from left to right. The grid must outlive the search.
  RowSearch(const CTzGrid& grid, BarredRows barred, std::vector<int> columns, CellMatcher typed);

  // Looks at about `cells` cells further down. Returns true when all rows have been looked at.
  bool Add(std::int64_t cells);
  // Other rows are barred than before.
  void Bar(BarredRows barred);
  // Those that can be gone to, then those that are barred.
  [[nodiscard]] std::int64_t Found() const { return open_.Count(); }
  [[nodiscard]] std::int64_t Filtered() const { return filtered_; }
  [[nodiscard]] std::int64_t InHiddenTotals() const { return inHiddenTotals_; }
  // The next row from there on, or above it, that was found so far; round the end when there is none; -1 when there is
  // none at all.
  [[nodiscard]] std::int64_t After(std::int64_t row) const;
  [[nodiscard]] std::int64_t Before(std::int64_t row) const;
  // Counted from 1.
  [[nodiscard]] std::int64_t NumberOf(std::int64_t row) const { return open_.CountIn(0, row); }
  [[nodiscard]] bool Has(std::int64_t row) const { return row >= 0 && row < open_.Rows() && open_.At(row); }
  // The first column in which a row shows it; -1 for none.
  [[nodiscard]] int ColumnOf(std::int64_t row) const;

 private:
  void AddFound(std::int64_t row);

  const CTzGrid* grid_ = nullptr;
  std::vector<int> columns_;
  CellMatcher typed_;
  std::int64_t next_ = 0;
  BarredRows barred_;
  RowBits found_;
  RowBits open_;  // of those found
  std::int64_t filtered_ = 0;
  std::int64_t inHiddenTotals_ = 0;
};

}  // namespace tz
