#include "desktop/gridview/row_search.h"

#include <algorithm>
#include <utility>

namespace tz {

RowSearch::RowSearch(const CTzGrid& grid, const ShownRows& rows, std::vector<int> columns, CellMatcher typed)
    : grid_(&grid), rows_(&rows), columns_(std::move(columns)), typed_(std::move(typed)), found_(rows.Rows()) {}

bool RowSearch::Add(std::int64_t cells) {
  if (grid_ == nullptr || columns_.empty()) return true;
  const auto perRow = static_cast<std::int64_t>(columns_.size());
  const std::int64_t end = std::min(rows_->Count(), next_ + std::max<std::int64_t>(cells / perRow, 1));
  for (; next_ < end; ++next_) {
    const std::int64_t row = rows_->RowAt(next_);
    if (ColumnOf(row) >= 0) found_.Set(row);
  }
  return next_ == rows_->Count();
}

int RowSearch::ColumnOf(std::int64_t row) const {
  const auto found = std::ranges::find_if(columns_, [&](int column) { return typed_.Matches(*grid_, row, column); });
  return found == columns_.end() ? -1 : *found;
}

std::int64_t RowSearch::After(std::int64_t row) const {
  std::int64_t found = found_.Next(std::max<std::int64_t>(row, 0), true);
  if (found == found_.Rows()) found = found_.Next(0, true);
  return found == found_.Rows() ? -1 : found;
}

std::int64_t RowSearch::Before(std::int64_t row) const {
  const std::int64_t found = found_.Previous(row - 1);
  return found >= 0 ? found : found_.Previous(found_.Rows() - 1);
}

}  // namespace tz
