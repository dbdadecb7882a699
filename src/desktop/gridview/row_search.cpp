#include "desktop/gridview/row_search.h"

#include <algorithm>
#include <utility>

namespace tz {

RowSearch::RowSearch(const CTzGrid& grid, BarredRows barred, std::vector<int> columns, CellMatcher typed)
    : grid_(&grid),
      columns_(std::move(columns)),
      typed_(std::move(typed)),
      barred_(std::move(barred)),
      found_(grid.GetRows()),
      open_(grid.GetRows()) {}

void RowSearch::Bar(BarredRows barred) {
  if (grid_ == nullptr) return;
  barred_ = std::move(barred);
  const RowBits unfiltered = found_.Without(barred_.byFilter);
  open_ = unfiltered.Without(barred_.monthTotals);
  filtered_ = found_.Count() - unfiltered.Count();
  inHiddenTotals_ = unfiltered.Count() - open_.Count();
}

bool RowSearch::Add(std::int64_t cells) {
  if (grid_ == nullptr || columns_.empty()) return true;
  const auto perRow = static_cast<std::int64_t>(columns_.size());
  const std::int64_t end = std::min(found_.Rows(), next_ + std::max<std::int64_t>(cells / perRow, 1));
  for (; next_ < end; ++next_) {
    if (ColumnOf(next_) >= 0) AddFound(next_);
  }
  return next_ == found_.Rows();
}

void RowSearch::AddFound(std::int64_t row) {
  found_.Set(row);
  if (barred_.byFilter.At(row)) {
    ++filtered_;
  } else if (barred_.monthTotals.At(row)) {
    ++inHiddenTotals_;
  } else {
    open_.Set(row);
  }
}

int RowSearch::ColumnOf(std::int64_t row) const {
  const auto found = std::ranges::find_if(columns_, [&](int column) { return typed_.Matches(*grid_, row, column); });
  return found == columns_.end() ? -1 : *found;
}

std::int64_t RowSearch::After(std::int64_t row) const {
  std::int64_t found = open_.Next(std::max<std::int64_t>(row, 0), true);
  if (found == open_.Rows()) found = open_.Next(0, true);
  return found == open_.Rows() ? -1 : found;
}

std::int64_t RowSearch::Before(std::int64_t row) const {
  const std::int64_t found = open_.Previous(row - 1);
  return found >= 0 ? found : open_.Previous(open_.Rows() - 1);
}

}  // namespace tz
