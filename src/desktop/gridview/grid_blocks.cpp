#include "desktop/gridview/grid_blocks.h"

#include <algorithm>

namespace tz {
namespace {

constexpr std::int32_t notBegun = -1;

// Finds the blocks while it is told row after row what they are.
class BlockFinder {
 public:
  void addHeading(std::int32_t row, std::size_t level) {
    close(level, row - 1);
    begin(row, level + 1);
    open_[level] = {row, true};
    begun_ = open_.size() == level + 1;
  }

  void addLine(std::int32_t row, bool opening) {
    if (!begun_) begin(row, open_.size());
    if (!opening && month_ == notBegun) month_ = row;
  }

  void addMonthTotal(std::int32_t row) {
    if (month_ != notBegun) months_.push_back({.first = month_, .last = row, .bodyLast = row - 1, .headed = false});
    month_ = notBegun;
  }

  void addYearTotal(std::int32_t row) {
    if (!months_.empty() && months_.back().last == row - 1) months_.back().last = row;
  }

  void addSubtotal(std::int32_t row, std::size_t level) {
    close(level + 1, row - 1);
    if (open_.size() <= level) grow(level + 1);
    auto& [first, headed] = open_[level];
    if (first != notBegun) {
      tiers_[level].push_back({.first = first, .last = row, .bodyLast = row - 1, .headed = headed});
    } else if (!tiers_[level].empty() && tiers_[level].back().last == row - 1) {
      tiers_[level].back().last = row;
    }
    forget(level);
  }

  void addTotal(std::int32_t row) {
    close(0, row - 1);
    forget(0);
  }

  std::vector<GridBlocks::Tier> finish(std::int32_t rows, bool& months) {
    close(0, rows - 1);
    std::erase_if(tiers_, [](const auto& tier) { return tier.empty(); });
    months = !months_.empty();
    if (months) tiers_.push_back(std::move(months_));
    for (auto& tier : tiers_) tier.shrink_to_fit();
    return std::move(tiers_);
  }

 private:
  struct Open {
    std::int32_t first = notBegun;
    bool headed = false;
  };

  void grow(std::size_t levels) {
    while (open_.size() < levels) open_.push_back({open_.empty() ? begunAt_ : open_.back().first});
    tiers_.resize(open_.size());
  }

  // A row lies in a block of each level; those that have not begun do so here.
  void begin(std::int32_t row, std::size_t levels) {
    grow(levels);
    for (std::size_t level = 0; level < levels; ++level) {
      if (open_[level].first == notBegun) open_[level].first = row;
    }
    begun_ = true;
    if (begunAt_ == notBegun) begunAt_ = row;
    month_ = notBegun;
  }

  // Ends the blocks with a heading and no total of their own.
  void close(std::size_t level, std::int32_t last) {
    for (std::size_t inner = open_.size(); inner-- > level;) {
      const auto& [first, headed] = open_[inner];
      if (headed) tiers_[inner].push_back({.first = first, .last = last, .bodyLast = last, .headed = true});
    }
    forget(level);
  }

  void forget(std::size_t level) {
    for (std::size_t inner = level; inner < open_.size(); ++inner) open_[inner] = {};
    if (level < open_.size()) begun_ = false;
    if (level == 0) begunAt_ = notBegun;
    month_ = notBegun;
  }

  std::vector<GridBlocks::Tier> tiers_;
  GridBlocks::Tier months_;
  std::vector<Open> open_;
  bool begun_ = false;               // in every level
  std::int32_t begunAt_ = notBegun;  // since the last block of the outermost level ended
  std::int32_t month_ = notBegun;
};

void addRow(BlockFinder& finder, RowKind kind, std::int32_t row, std::size_t level) {
  switch (kind) {
    case RowKind::heading:
      finder.addHeading(row, level);
      break;
    case RowKind::line:
    case RowKind::opening:
      finder.addLine(row, kind == RowKind::opening);
      break;
    case RowKind::monthTotal:
      finder.addMonthTotal(row);
      break;
    case RowKind::yearTotal:
      finder.addYearTotal(row);
      break;
    case RowKind::subtotal:
      finder.addSubtotal(row, level);
      break;
    case RowKind::total:
      finder.addTotal(row);
      break;
  }
}

}  // namespace

void GridBlocks::Build(const CTzGrid& grid, const RowSubjects* subjects) {
  BlockFinder finder;
  const auto rows = static_cast<std::int32_t>(grid.GetRows());
  for (std::int32_t row = 0; row < rows; ++row) {
    const RowKind kind = grid.RowKindAt(row);
    const bool grouped = kind == RowKind::heading || kind == RowKind::subtotal;
    const int level = grouped && subjects != nullptr ? subjects->level(row) : 0;
    addRow(finder, kind, row, static_cast<std::size_t>(std::max(level, 0)));
  }
  tiers_ = finder.finish(rows, months_);
}

const GridBlocks::Tier* GridBlocks::Walked() const {
  if (tiers_.empty()) return nullptr;
  return months_ && tiers_.size() > 1 ? &tiers_[tiers_.size() - 2] : &tiers_.back();
}

const GridBlock* GridBlocks::Holding(const Tier& tier, std::int64_t row) const {
  const auto found = std::ranges::lower_bound(tier, row, {}, [](const GridBlock& b) { return std::int64_t{b.last}; });
  return found != tier.end() && found->contains(row) ? &*found : nullptr;
}

const GridBlock* GridBlocks::Innermost(std::int64_t row, Choice choice) const {
  for (std::size_t tiers = tiers_.size(); tiers > 0; --tiers) {
    const GridBlock* block = Holding(tiers_[tiers - 1], row);
    if (block != nullptr && block->folds() && choice(*block, row)) return block;
  }
  return nullptr;
}

const GridBlock* GridBlocks::TitledBy(std::int64_t row) const {
  return Innermost(row, [](const GridBlock& block, std::int64_t title) { return block.title() == title; });
}

const GridBlock* GridBlocks::FoldedAround(std::int64_t row) const {
  for (const Tier& tier : tiers_) {
    const GridBlock* block = Holding(tier, row);
    if (block != nullptr && block->folded && block->folds()) return block;
  }
  return nullptr;
}

const GridBlock* GridBlocks::OpenAround(std::int64_t row) const {
  return Innermost(row, [](const GridBlock& block, std::int64_t /*row*/) { return !block.folded; });
}

std::vector<std::int64_t> GridBlocks::HeadingsAbove(std::int64_t row) const {
  std::vector<std::int64_t> headings;
  for (const Tier& tier : tiers_) {
    const GridBlock* block = Holding(tier, row);
    if (block != nullptr && block->headed && !block->folded && block->first < row) headings.push_back(block->first);
  }
  return headings;
}

void GridBlocks::FoldTiers(int count) {
  for (std::size_t tier = 0; tier < tiers_.size(); ++tier) {
    const bool folded = tier + static_cast<std::size_t>(count) >= tiers_.size();
    for (GridBlock& block : tiers_[tier]) block.folded = folded;
  }
}

}  // namespace tz
