#include "desktop/gridview/row_filter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace tz {
namespace {

// Half of the least that is shown of an amount.
constexpr double halfCent = 0.005;

bool movesMoney(ColumnKind kind) {
  const auto& traits = traitsOf(kind);
  return traits.sum != ColumnTraits::Sum::none && traits.form.decimals == amountForm.decimals;
}

// What lines move; where no column says so, the balances.
std::vector<int> amountColumns(const CTzGrid& grid) {
  std::vector<int> moves;
  std::vector<int> balances;
  for (int column = 0; column < grid.GetCols(); ++column) {
    const ColumnKind kind = grid.Columns()[static_cast<std::size_t>(column)].kind;
    if (movesMoney(kind)) moves.push_back(column);
    if (kind == ColumnKind::amount || kind == ColumnKind::foreign) balances.push_back(column);
  }
  return moves.empty() ? balances : moves;
}

}  // namespace

std::optional<double> typedAmount(std::string_view typed) {
  std::string text = foldedText(typed);
  std::erase(text, ',');
  std::erase(text, ' ');
  double amount = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), amount, std::chars_format::fixed);
  const bool whole = error == std::errc() && end == text.data() + text.size() && std::isfinite(amount);
  return whole ? std::optional(amount) : std::nullopt;
}

bool canFilterBy(const CTzGrid& grid, std::int64_t row, int column) {
  if (row < 0 || row >= grid.GetRows() || column < 0 || column >= grid.GetCols()) return false;
  if (grid.RowKindAt(row) != RowKind::line) return false;
  const std::string shown = grid.ShownAt(row, column);
  if (grid.TypeAt(row, column) == CTzGrid::CellType::number) {
    const auto amounts = amountColumns(grid);
    return typedAmount(shown) && std::ranges::find(amounts, column) != amounts.end();
  }
  const bool blank = shown.find_first_not_of(' ') == std::string::npos;
  const bool lookedAt = !traitsOf(grid.Columns()[static_cast<std::size_t>(column)].kind).isNumber();
  return !blank && lookedAt && CellMatcher(shown).MatchesText(grid, row, column);
}

FilterRun::FilterRun(const ComputedReport& report, const RowFilter& filter, int marks)
    : report_(&report),
      filter_(filter),
      marks_(marks),
      text_(filter.text),
      signs_((filter.from && *filter.from < 0) || (filter.to && *filter.to < 0)),
      above_(filter.from ? *filter.from - halfCent : -std::numeric_limits<double>::infinity()),
      below_(filter.to ? *filter.to + halfCent : std::numeric_limits<double>::infinity()),
      amounts_(amountColumns(report.grid)),
      kept_(report.grid.GetRows()) {
  for (int column = 0; column < report.grid.GetCols(); ++column) {
    const auto& traits = traitsOf(report.grid.Columns()[static_cast<std::size_t>(column)].kind);
    if (!traits.isNumber()) texts_.push_back(column);
  }
}

bool FilterRun::Add(std::int64_t cells) {
  if (report_ == nullptr) return true;
  const CTzGrid& grid = report_->grid;
  const std::int64_t end = std::min(grid.GetRows(), next_ + std::max<std::int64_t>(cells / grid.GetCols(), 1));
  for (; next_ < end; ++next_) {
    if (grid.RowKindAt(next_) != RowKind::line) continue;
    ++lines_;
    if (Keeps(next_)) kept_.Set(next_);
  }
  return next_ == grid.GetRows();
}

bool FilterRun::Keeps(std::int64_t row) const {
  if (filter_.unpostedOnly) {
    const auto line = report_->subjects.line(row);
    if (!line || line->book != Book::unposted) return false;
  }
  if (filter_.unmarkedOnly && marks_ >= 0 && !report_->grid.TextAt(row, marks_).empty()) return false;
  if ((filter_.from || filter_.to) && !HasAmount(row)) return false;
  return filter_.text.empty() || HasText(row);
}

bool FilterRun::HasText(std::int64_t row) const {
  return std::ranges::any_of(texts_, [&](int column) { return text_.MatchesText(report_->grid, row, column); });
}

bool FilterRun::HasAmount(std::int64_t row) const {
  return std::ranges::any_of(amounts_, [&](int column) {
    if (report_->grid.TypeAt(row, column) != CTzGrid::CellType::number) return false;
    const double amount = report_->grid.NumberAt(row, column);
    const double compared = signs_ ? amount : std::abs(amount);
    return compared > above_ && compared < below_;
  });
}

}  // namespace tz
