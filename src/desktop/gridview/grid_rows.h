// The rows of a grid as they are shown, and why some are not: folded blocks, totals of months that are hidden, and a
// filter. None of them changes a figure.
#pragma once

#include <algorithm>
#include <optional>

#include "desktop/gridview/grid_blocks.h"
#include "desktop/gridview/shown_rows.h"

namespace tz {

// Rows that opening blocks does not show.
struct BarredRows {
  RowBits byFilter;
  RowBits monthTotals;
};

class GridRows {
 public:
  // Null is a grid without rows. Blocks open, but for those that the outline folds; a filter is dropped.
  void Set(const CTzGrid* grid, const RowSubjects* subjects);

  [[nodiscard]] const ShownRows& Shown() const { return shown_; }
  [[nodiscard]] const GridBlocks& Blocks() const { return blocks_; }

  void SetFolded(const GridBlock& block, bool folded);
  // How many tiers of blocks are folded from the innermost on: 0 shows everything.
  void SetOutline(int tiers);
  [[nodiscard]] int Outline() const { return std::min(outline_, static_cast<int>(blocks_.Tiers().size())); }
  void HideMonthTotals(bool hide);
  [[nodiscard]] bool MonthTotalsHidden() const { return hidesMonthTotals_; }

  // The lines that a filter keeps; other lines are hidden, and blocks without any. When it keeps none, nothing is
  // shown. Blocks open when a filter begins.
  void SetKept(std::optional<RowBits> kept);
  [[nodiscard]] bool Filtered() const { return kept_.has_value(); }
  [[nodiscard]] BarredRows Barred() const;
  // Whether lines that the filter keeps lie in folded blocks.
  [[nodiscard]] bool FoldsKept() const;

 private:
  void Update();
  void HideTotalsOfMonths(RowBits& hidden) const;
  void HideUnkept(RowBits& hidden) const;

  const CTzGrid* grid_ = nullptr;
  GridBlocks blocks_;
  ShownRows shown_;
  int outline_ = 0;
  bool hidesMonthTotals_ = false;
  std::optional<RowBits> kept_;
  bool filtering_ = false;  // also while the next report waits for its filter
};

}  // namespace tz
