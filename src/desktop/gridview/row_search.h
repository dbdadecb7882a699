// The rows that show what somebody typed, found slice by slice among those that are shown.
#pragma once

#include <vector>

#include "desktop/gridview/cell_matcher.h"
#include "desktop/gridview/shown_rows.h"

namespace tz {

class RowSearch {
 public:
  RowSearch() = default;
  // The columns to look at, from left to right. The grid must outlive the search; other rows that are shown begin it
  // anew.
  RowSearch(const CTzGrid& grid, const ShownRows& rows, std::vector<int> columns, CellMatcher typed);

  // Looks at about `cells` cells further down. Returns true when all rows have been looked at.
  bool Add(std::int64_t cells);
  [[nodiscard]] std::int64_t Found() const { return found_.Count(); }
  // The next row from there on, or above it, that was found so far; round the end when there is none; -1 when there is
  // none at all.
  [[nodiscard]] std::int64_t After(std::int64_t row) const;
  [[nodiscard]] std::int64_t Before(std::int64_t row) const;
  // Counted from 1.
  [[nodiscard]] std::int64_t NumberOf(std::int64_t row) const { return found_.CountIn(0, row); }
  [[nodiscard]] bool Has(std::int64_t row) const { return row >= 0 && row < found_.Rows() && found_.At(row); }
  // The first column in which a row shows it; -1 for none.
  [[nodiscard]] int ColumnOf(std::int64_t row) const;

 private:
  const CTzGrid* grid_ = nullptr;
  const ShownRows* rows_ = nullptr;
  std::vector<int> columns_;
  CellMatcher typed_;
  std::int64_t next_ = 0;  // a place
  RowBits found_;
};

}  // namespace tz
