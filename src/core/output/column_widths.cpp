#include "core/output/column_widths.h"

#include <algorithm>
#include <cmath>

#include "core/grid/figures.h"
#include "core/output/display_text.h"

namespace tz {
namespace {

// Gathers the width of one column. Figures with a fixed number of decimals grow with their magnitude, so only the
// outermost two are written out.
class WidthOfColumn {
 public:
  explicit WidthOfColumn(ColumnKind kind) : kind_(kind), growing_(traitsOf(kind).form.fixed()) {}

  // No text takes more columns than it has bytes.
  void AddText(std::string_view text) {
    if (text.size() <= static_cast<std::size_t>(width_)) return;
    width_ = std::max(width_, std::min(measureText(text).width, widestText));
  }

  void AddNumber(double number) {
    if (growing_ && std::isfinite(number)) {
      highest_ = std::max(highest_, number);
      lowest_ = std::min(lowest_, number);
      any_ = true;
    } else {
      AddWritten(number);
    }
  }

  void AddDate(Date date) {
    if (hasUsualWidth(date)) {
      width_ = std::max(width_, usualDateWidth);
      return;
    }
    scratch_.clear();
    appendDate(scratch_, date);
    width_ = std::max(width_, static_cast<int>(scratch_.size()));
  }

  int Width() {
    if (any_) {
      AddWritten(highest_);
      AddWritten(lowest_);
    }
    return width_;
  }

 private:
  void AddWritten(double number) {
    scratch_.clear();
    appendFigure(scratch_, number, kind_);
    width_ = std::max(width_, measureText(scratch_).width);
  }

  ColumnKind kind_;
  bool growing_;
  bool any_ = false;
  double highest_ = 0;
  double lowest_ = 0;
  int width_ = 0;
  std::string scratch_;
};

}  // namespace

std::vector<int> contentWidths(const CTzGrid& grid) {
  std::vector<WidthOfColumn> columns;
  for (const GridColumn& column : grid.Columns()) columns.emplace_back(column.kind);
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    auto width = columns.begin();
    for (const CTzGrid::Cell& cell : grid.CellsOf(row)) {
      switch (cell.type()) {
        case CTzGrid::CellType::number:
          width->AddNumber(cell.number());
          break;
        case CTzGrid::CellType::text:
          width->AddText(cell.text());
          break;
        case CTzGrid::CellType::date:
          width->AddDate(cell.date());
          break;
        case CTzGrid::CellType::empty:
          break;
      }
      ++width;
    }
  }
  std::vector<int> widths;
  for (WidthOfColumn& column : columns) widths.push_back(column.Width());
  return widths;
}

}  // namespace tz
