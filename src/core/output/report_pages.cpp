#include "core/output/report_pages.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/grid/figures.h"
#include "core/output/line_breaking.h"

namespace tz {
namespace {

bool grouped(const CTzGrid& grid) {
  return std::ranges::any_of(grid.Columns(), [](const GridColumn& column) { return !column.group.empty(); });
}

bool isText(const CTzGrid& grid, std::int64_t row, int column) {
  return grid.TypeAt(row, column) == CTzGrid::CellType::text;
}

// A sum of the month so far, which begins anew behind each of these.
bool endsMonth(RowKind kind) { return kind != RowKind::line; }

}  // namespace

ReportPages::ReportPages(const ComputedReport& report, const PageOptions& options, PageStamp stamp)
    : report_(report),
      grid_(report.grid),
      stamp_(std::move(stamp)),
      columns_(fitColumns(report.grid, options)),
      head_(pageHead(report, columns_, options.columnEm)),
      headerLines_(grouped(grid_) ? 2 : 1),
      remarks_(remarks(grid_)) {
  if (grid_.GetRows() == 0) remarks_.insert(remarks_.begin(), "没有记录");
  Divide(options.carriedLines && report.carried.has_value());
}

void ReportPages::Divide(bool carriedLines) {
  std::vector<double> sums(static_cast<std::size_t>(grid_.GetCols()), 0.0);
  Page page;
  do {
    page.end = EndOf(page, carriedLines);
    for (auto row = page.first; row < page.end; ++row) AddMoved(sums, row);
    page.carried = carriedLines && page.end < grid_.GetRows() && CarriesInto(page.end);
    if (page.carried) page.sums = sums;
    pages_.push_back(page);
    page = {.first = page.end, .end = page.end, .brought = page.carried, .carried = false, .sums = {}, .before = {}};
    if (page.brought) page.before = sums;
  } while (page.first < grid_.GetRows());
  // Remarks that find no room get a page of their own rather than none.
  const double bottom = columns_.paper.innerHeight();
  if (RemarksTop(pages_.back()) + RemarksHeight() > bottom && pages_.back().end > pages_.back().first)
    pages_.push_back({.first = grid_.GetRows(),
                      .end = grid_.GetRows(),
                      .brought = false,
                      .carried = false,
                      .sums = {},
                      .before = {}});
}

std::int64_t ReportPages::EndOf(const Page& page, bool carriedLines) const {
  const double line = columns_.rowHeight(1);
  double room = columns_.paper.innerHeight() - TableTop() - (page.brought ? line : 0);
  auto end = page.first;
  while (end < grid_.GetRows()) {
    const double height = RowHeight(end);
    const bool last = end + 1 == grid_.GetRows();
    if (height + (carriedLines && !last ? line : 0) > room) break;
    room -= height;
    ++end;
  }
  end = std::max(end, std::min(page.first + 1, grid_.GetRows()));
  if (end == grid_.GetRows()) return end;
  auto begins = end;
  while (begins > page.first + 1 && !MayBegin(begins)) --begins;
  return MayBegin(begins) ? begins : end;
}

bool ReportPages::MayBegin(std::int64_t row) const {
  const auto kind = grid_.RowKindAt(row);
  const auto before = grid_.RowKindAt(row - 1);
  if (before == RowKind::heading || before == RowKind::opening) return false;
  return !(kind == RowKind::yearTotal && before == RowKind::monthTotal);
}

bool ReportPages::CarriesInto(std::int64_t row) const {
  const auto before = grid_.RowKindAt(row - 1);
  const auto kind = grid_.RowKindAt(row);
  return before != RowKind::subtotal && before != RowKind::total && kind != RowKind::heading &&
         kind != RowKind::opening;
}

void ReportPages::AddMoved(std::vector<double>& sums, std::int64_t row) const {
  if (endsMonth(grid_.RowKindAt(row))) {
    std::ranges::fill(sums, 0.0);
    return;
  }
  for (int column = 0; column < grid_.GetCols(); ++column) {
    const auto& traits = traitsOf(grid_.Columns()[static_cast<std::size_t>(column)].kind);
    if (traits.sum != ColumnTraits::Sum::none) sums[static_cast<std::size_t>(column)] += grid_.NumberAt(row, column);
  }
}

double ReportPages::RowHeight(std::int64_t row) const {
  std::size_t lines = 1;
  for (const auto& strip : columns_.strips) {
    for (const auto& column : strip) {
      const auto text = grid_.TextAt(row, column.column);
      // No text takes more letters than it has bytes.
      if (text.size() > static_cast<std::size_t>(column.letters))
        lines = std::max(lines, brokenLines(text, column.letters).size());
    }
  }
  return columns_.rowHeight(static_cast<int>(lines));
}

std::vector<PageLine> ReportPages::LinesOf(const Page& page) const {
  std::vector<PageLine> lines;
  double top = TableTop();
  const auto add = [&](PageLine::Kind kind, std::int64_t row, double height) {
    lines.push_back({kind, row, top, height});
    top += height;
  };
  const double single = columns_.rowHeight(1);
  if (page.brought) add(PageLine::Kind::broughtForward, page.first - 1, single);
  for (auto row = page.first; row < page.end; ++row) add(PageLine::Kind::row, row, RowHeight(row));
  if (page.carried) add(PageLine::Kind::carriedForward, page.end - 1, single);
  return lines;
}

std::vector<std::string> ReportPages::TextOf(const Page& page, const PageLine& line, const PageColumn& column) const {
  const int place = column.column;
  if (line.kind == PageLine::Kind::row) {
    if (isText(grid_, line.row, place)) return brokenLines(grid_.TextAt(line.row, place), column.letters);
    return {grid_.ShownAt(line.row, place)};
  }
  const auto& carried = *report_.carried;
  const bool brought = line.kind == PageLine::Kind::broughtForward;
  if (place == carried.caption) return {brought ? "承前页" : "过次页"};
  if (place >= carried.firstBalance && place <= carried.lastBalance) return {grid_.ShownAt(line.row, place)};
  const double sum = (brought ? page.before : page.sums)[static_cast<std::size_t>(place)];
  if (sum == 0) return {};
  return {figureText(sum, grid_.Columns()[static_cast<std::size_t>(place)].kind)};
}

bool ReportPages::HasColour(const Page& page) const {
  for (auto row = page.first; row < page.end; ++row) {
    if (grid_.BackgroundAt(row) != noColour) return true;
  }
  return false;
}

ReportPages::Foot ReportPages::FootOf(std::size_t sheet) const {
  const auto& page = pages_[(sheet - 1) / columns_.strips.size()];
  return {.left = stamp_.printedBy.empty() ? "" : "制表人：" + stamp_.printedBy,
          .centre = fmt::format("第 {} 页　共 {} 页", sheet, Sheets()),
          .right = stamp_.printedAt.empty() ? "" : "打印日期：" + stamp_.printedAt,
          .colour = HasColour(page) ? report_.highlightMeaning : ""};
}

double ReportPages::RemarksHeight() const { return static_cast<double>(remarks_.size()) * remarkHeight; }

double ReportPages::RemarksTop(const Page& last) const {
  constexpr double gap = 4;
  const auto lines = LinesOf(last);
  return (lines.empty() ? TableTop() : lines.back().top + lines.back().height) + gap;
}

}  // namespace tz
