#include "desktop/gridview/grid_view_selection.h"

#include <utility>

namespace tz {
namespace {

void appendText(std::string& out, std::string_view text) {
  for (const char sign : text) out += sign == '\t' || sign == '\n' || sign == '\r' ? ' ' : sign;
}

void appendCell(std::string& text, const CTzGrid& grid, std::int64_t row, int column) {
  std::string shown = grid.ShownAt(row, column);
  if (grid.TypeAt(row, column) == CTzGrid::CellType::number) std::erase(shown, ',');
  appendText(text, shown);
}

void appendRow(std::string& text, const CTzGrid& grid, const GridPart& part, std::int64_t row) {
  for (const int column : part.columns) {
    if (column != part.columns.front()) text += '\t';
    appendCell(text, grid, row, column);
  }
}

void appendCaptions(std::string& text, const CTzGrid& grid, const GridPart& part, std::string GridColumn::*level,
                    std::string_view mark) {
  for (const int column : part.columns) {
    if (column != part.columns.front()) text += '\t';
    appendText(text, grid.Columns()[static_cast<std::size_t>(column)].*level);
  }
  text += mark;
  text += '\n';
}

void appendHead(std::string& text, const ComputedReport& report, const GridPart& part) {
  for (const HeadLine& line : headLines(report)) {
    if (line.text.empty()) continue;
    appendText(text, line.text);
    text += '\n';
  }
  const bool grouped = std::ranges::any_of(
      part.columns, [&](int column) { return !report.grid.Columns()[static_cast<std::size_t>(column)].group.empty(); });
  if (grouped) appendCaptions(text, report.grid, part, &GridColumn::group, "");
  const std::string mark = report.highlightMeaning.empty() ? "" : "\t" + std::string(markCaption);
  appendCaptions(text, report.grid, part, &GridColumn::caption, mark);
}

// The side of a line whose amount stands again in a column: that on which it stands first.
ColumnKind sideOf(const CTzGrid& grid, std::int64_t row, int creditColumn) {
  const bool credit = grid.TypeAt(row, creditColumn) == CTzGrid::CellType::number;
  return credit ? ColumnKind::creditAmount : ColumnKind::debitAmount;
}

}  // namespace

std::string copyText(const CTzGrid& grid, const GridPart& part) {
  std::string text;
  for (std::int64_t place = part.top; place <= part.bottom; ++place) {
    if (place > part.top) text += '\n';
    appendRow(text, grid, part, part.rows->RowAt(place));
  }
  return text;
}

std::string copyTable(const ComputedReport& report, const GridPart& part) {
  std::string text;
  appendHead(text, report, part);
  for (std::int64_t place = part.top; place <= part.bottom; ++place) {
    const std::int64_t row = part.rows->RowAt(place);
    appendRow(text, report.grid, part, row);
    if (!report.highlightMeaning.empty() && report.grid.BackgroundAt(row) != noColour) {
      text += '\t';
      appendText(text, report.highlightMeaning);
    }
    text += '\n';
  }
  for (const std::string& remark : remarks(report.grid)) {
    appendText(text, remark);
    text += '\n';
  }
  return text;
}

RangeSum::RangeSum(const CTzGrid& grid, GridPart part) : part_(std::move(part)), next_(part_.top) {
  bool amounts = false;
  for (int column = 0; column < grid.GetCols(); ++column) {
    const ColumnKind kind = grid.Columns()[static_cast<std::size_t>(column)].kind;
    if (kind == ColumnKind::creditAmount) creditColumn_ = column;
    const bool taken = std::ranges::find(part_.columns, column) != part_.columns.end();
    if (traitsOf(kind).sum == ColumnTraits::Sum::none || !taken) continue;
    amounts = amounts || kind == ColumnKind::debitAmount || kind == ColumnKind::creditAmount;
    columns_.push_back({column, kind});
  }
  // An amount that stands again beside itself counts once.
  const auto repeats = [](const Column& column) { return traitsOf(column.kind).sum == ColumnTraits::Sum::bySide; };
  if (amounts) std::erase_if(columns_, repeats);
}

bool RangeSum::Add(const CTzGrid& grid, std::int64_t cells) {
  if (part_.empty()) return true;
  const auto perRow = static_cast<std::int64_t>(columns_.size()) + 1;
  const std::int64_t end = std::min(part_.bottom + 1, next_ + std::max<std::int64_t>(cells / perRow, 1));
  for (; next_ < end; ++next_) {
    const std::int64_t row = part_.rows->RowAt(next_);
    if (grid.RowKindAt(row) == RowKind::line) AddRow(grid, row);
  }
  return next_ > part_.bottom;
}

void RangeSum::AddRow(const CTzGrid& grid, std::int64_t row) {
  ++lines_;
  for (const auto& [place, kind] : columns_) {
    if (grid.TypeAt(row, place) != CTzGrid::CellType::number) continue;
    const bool bySide = traitsOf(kind).sum == ColumnTraits::Sum::bySide;
    const auto summed = static_cast<std::size_t>(bySide ? sideOf(grid, row, creditColumn_) : kind);
    sums_.at(summed) += grid.NumberAt(row, place);
    ++counts_.at(summed);
  }
}

LineSums RangeSum::Sums() const {
  LineSums sums{.rows = part_.empty() ? 0 : part_.bottom - part_.top + 1, .lines = lines_};
  for (std::size_t kind = 0; kind < sums_.size(); ++kind) {
    sums.figures.at(kind) = {static_cast<double>(sums_.at(kind)), counts_.at(kind)};
  }
  return sums;
}

}  // namespace tz
