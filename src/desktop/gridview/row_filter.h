// Which lines of a report are looked for, and the pass over its rows that finds them, slice by slice, so that a window
// stays alive over a million rows. Other rows than lines are neither kept nor left out here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/output/report_output.h"
#include "desktop/gridview/cell_matcher.h"
#include "desktop/gridview/shown_rows.h"

namespace tz {

struct RowFilter {
  std::string text;  // part of any text or date of the line
  // Bounds of any amount of the line, both included, as it is shown; without regard to its sign unless a bound is
  // negative.
  std::optional<double> from;
  std::optional<double> to;
  bool unpostedOnly = false;
  bool unmarkedOnly = false;  // those with nothing in the column of marks

  bool operator==(const RowFilter&) const = default;
  [[nodiscard]] bool empty() const { return text.empty() && !from && !to && !unpostedOnly && !unmarkedOnly; }
};

// An amount as it is typed, with thousands separators or without, in wide figures or narrow ones; nothing when it is
// none.
[[nodiscard]] std::optional<double> typedAmount(std::string_view typed);

// Whether a filter by what a cell shows keeps its row: the cell is a line's, and one that filters look at.
[[nodiscard]] bool canFilterBy(const CTzGrid& grid, std::int64_t row, int column);

class FilterRun {
 public:
  FilterRun() = default;
  // The report must outlive the run. `marks` is its column of marks; -1 for none.
  FilterRun(const ComputedReport& report, const RowFilter& filter, int marks = -1);

  // Looks at about `cells` cells further down. Returns true when all rows have been looked at.
  bool Add(std::int64_t cells);
  // The lines that were kept so far, and how many lines there are.
  [[nodiscard]] const RowBits& Kept() const { return kept_; }
  [[nodiscard]] std::int64_t Lines() const { return lines_; }

 private:
  [[nodiscard]] bool Keeps(std::int64_t row) const;
  [[nodiscard]] bool HasText(std::int64_t row) const;
  [[nodiscard]] bool HasAmount(std::int64_t row) const;

  const ComputedReport* report_ = nullptr;
  RowFilter filter_;
  int marks_ = -1;
  CellMatcher text_;
  bool signs_ = false;  // amounts are compared with theirs
  double above_ = 0;
  double below_ = 0;
  std::vector<int> texts_;    // columns
  std::vector<int> amounts_;  // columns
  std::int64_t next_ = 0;
  std::int64_t lines_ = 0;
  RowBits kept_;
};

}  // namespace tz
