// The blocks of a grid, which fold: groups, outer ones first, and the months within them. They follow from what the
// rows are (heading, line, total of a month, subtotal) and from the level of the groups that they stand on; a report
// without any has none.
//
// A block folds to its heading and to the totals at its end; without a heading its first total stands for it. The tiers
// hold blocks that do not overlap, from the top down; a block of an inner tier lies within one of each outer tier.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/grid/row_subjects.h"
#include "core/grid/tz_grid.h"

namespace tz {

struct GridBlock {
  std::int32_t first;
  std::int32_t last;
  std::int32_t bodyLast;  // of the rows that fold away
  bool headed;
  bool folded = false;

  [[nodiscard]] std::int32_t bodyFirst() const { return first + (headed ? 1 : 0); }
  // The row that carries the sign of the block.
  [[nodiscard]] std::int32_t title() const { return headed ? first : bodyLast + 1; }
  [[nodiscard]] bool folds() const { return bodyFirst() <= bodyLast; }
  [[nodiscard]] bool contains(std::int64_t row) const { return first <= row && row <= last; }
};

class GridBlocks {
 public:
  using Tier = std::vector<GridBlock>;

  // In one pass over the rows. Without subjects all groups are of one level.
  void Build(const CTzGrid& grid, const RowSubjects* subjects);
  void Clear() { tiers_.clear(); }

  [[nodiscard]] const std::vector<Tier>& Tiers() const { return tiers_; }
  // The innermost tier is that of the months.
  [[nodiscard]] bool HasMonths() const { return months_; }
  // The tier that one goes through block by block: the innermost groups, else the months; null when there are neither.
  [[nodiscard]] const Tier* Walked() const;

  // The block of a tier in which a row lies.
  [[nodiscard]] const GridBlock* Holding(const Tier& tier, std::int64_t row) const;
  // The innermost of the blocks around a row that fold and are so.
  using Choice = bool (*)(const GridBlock& block, std::int64_t row);
  [[nodiscard]] const GridBlock* Innermost(std::int64_t row, Choice choice) const;
  // The block whose sign a row carries; the innermost one of several.
  [[nodiscard]] const GridBlock* TitledBy(std::int64_t row) const;
  // The outermost folded block in which a row lies, and the innermost one that is open.
  [[nodiscard]] const GridBlock* FoldedAround(std::int64_t row) const;
  [[nodiscard]] const GridBlock* OpenAround(std::int64_t row) const;
  // Headings of the open blocks in which a row lies and that it is not itself, outer ones first.
  [[nodiscard]] std::vector<std::int64_t> HeadingsAbove(std::int64_t row) const;

  // Folds one of these blocks, or opens it.
  void SetFolded(const GridBlock& block, bool folded) { const_cast<GridBlock&>(block).folded = folded; }
  // Folds the blocks of so many tiers from the innermost on; those of the others open.
  void FoldTiers(int count);

 private:
  std::vector<Tier> tiers_;
  bool months_ = false;
};

}  // namespace tz
