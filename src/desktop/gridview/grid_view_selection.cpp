#include "desktop/gridview/grid_view_selection.h"

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

void appendRow(std::string& text, const CTzGrid& grid, const GridRange& range, std::int64_t row) {
  for (int column = range.left; column <= range.right; ++column) {
    if (column > range.left) text += '\t';
    appendCell(text, grid, row, column);
  }
}

void appendCaptions(std::string& text, const CTzGrid& grid, const GridRange& range, std::string GridColumn::*level,
                    std::string_view mark) {
  for (int column = range.left; column <= range.right; ++column) {
    if (column > range.left) text += '\t';
    appendText(text, grid.Columns()[static_cast<std::size_t>(column)].*level);
  }
  text += mark;
  text += '\n';
}

void appendHead(std::string& text, const ComputedReport& report, const GridRange& range) {
  for (const HeadLine& line : headLines(report)) {
    if (line.text.empty()) continue;
    appendText(text, line.text);
    text += '\n';
  }
  bool grouped = false;
  for (int column = range.left; column <= range.right; ++column) {
    grouped = grouped || !report.grid.Columns()[static_cast<std::size_t>(column)].group.empty();
  }
  if (grouped) appendCaptions(text, report.grid, range, &GridColumn::group, "");
  const std::string mark = report.highlightMeaning.empty() ? "" : "\t" + std::string(markCaption);
  appendCaptions(text, report.grid, range, &GridColumn::caption, mark);
}

// The side of a line whose amount stands again in a column: that on which it stands first.
ColumnKind sideOf(const CTzGrid& grid, std::int64_t row, int creditColumn) {
  const bool credit = grid.TypeAt(row, creditColumn) == CTzGrid::CellType::number;
  return credit ? ColumnKind::creditAmount : ColumnKind::debitAmount;
}

}  // namespace

std::string copyText(const CTzGrid& grid, const GridRange& range) {
  std::string text;
  for (std::int64_t row = range.top; row <= range.bottom; ++row) {
    if (row > range.top) text += '\n';
    appendRow(text, grid, range, row);
  }
  return text;
}

std::string copyTable(const ComputedReport& report, const GridRange& range) {
  std::string text;
  appendHead(text, report, range);
  for (std::int64_t row = range.top; row <= range.bottom; ++row) {
    appendRow(text, report.grid, range, row);
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

RangeSum::RangeSum(const CTzGrid& grid, const GridRange& range) : range_(range), next_(range.top) {
  bool amounts = false;
  for (int place = 0; place < grid.GetCols(); ++place) {
    const ColumnKind kind = grid.Columns()[static_cast<std::size_t>(place)].kind;
    if (kind == ColumnKind::creditAmount) creditColumn_ = place;
    if (traitsOf(kind).sum == ColumnTraits::Sum::none || place < range.left || place > range.right) continue;
    amounts = amounts || kind == ColumnKind::debitAmount || kind == ColumnKind::creditAmount;
    columns_.push_back({place, kind});
  }
  // An amount that stands again beside itself counts once.
  const auto repeats = [](const Column& column) { return traitsOf(column.kind).sum == ColumnTraits::Sum::bySide; };
  if (amounts) std::erase_if(columns_, repeats);
}

bool RangeSum::Add(const CTzGrid& grid, std::int64_t cells) {
  if (range_.empty()) return true;
  const auto perRow = static_cast<std::int64_t>(columns_.size()) + 1;
  const std::int64_t end = std::min(range_.bottom + 1, next_ + std::max<std::int64_t>(cells / perRow, 1));
  for (; next_ < end; ++next_) {
    if (grid.RowKindAt(next_) == RowKind::line) AddRow(grid, next_);
  }
  return next_ > range_.bottom;
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
  LineSums sums{.rows = range_.empty() ? 0 : range_.bottom - range_.top + 1, .lines = lines_};
  for (std::size_t kind = 0; kind < sums_.size(); ++kind) {
    sums.figures.at(kind) = {static_cast<double>(sums_.at(kind)), counts_.at(kind)};
  }
  return sums;
}

}  // namespace tz
