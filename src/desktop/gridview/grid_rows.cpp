#include "desktop/gridview/grid_rows.h"

#include <utility>

namespace tz {

void GridRows::Set(const CTzGrid* grid, const RowSubjects* subjects) {
  grid_ = grid;
  kept_.reset();
  if (grid == nullptr) {
    blocks_.Clear();
  } else {
    blocks_.Build(*grid, subjects);
  }
  blocks_.FoldTiers(Outline());
  Update();
}

void GridRows::SetFolded(const GridBlock& block, bool folded) {
  blocks_.SetFolded(block, folded);
  Update();
}

void GridRows::SetOutline(int tiers) {
  outline_ = std::max(tiers, 0);
  blocks_.FoldTiers(Outline());
  Update();
}

void GridRows::HideMonthTotals(bool hide) {
  hidesMonthTotals_ = hide;
  Update();
}

void GridRows::SetKept(std::optional<RowBits> kept) {
  // What is looked for is not to be found in folded blocks.
  if (kept && !filtering_) {
    outline_ = 0;
    blocks_.FoldTiers(0);
  }
  filtering_ = kept.has_value();
  kept_ = std::move(kept);
  Update();
}

void GridRows::Update() {
  const std::int64_t rows = grid_ == nullptr ? 0 : grid_->GetRows();
  RowBits hidden(rows);
  for (const auto& tier : blocks_.Tiers()) {
    for (const GridBlock& block : tier) {
      if (block.folded && block.folds()) hidden.SetRange(block.bodyFirst(), block.bodyLast);
    }
  }
  if (hidesMonthTotals_ && blocks_.HasMonths()) HideTotalsOfMonths(hidden);
  if (kept_) HideUnkept(hidden);
  shown_.Hide(hidden);
}

BarredRows GridRows::Barred() const {
  const std::int64_t rows = grid_ == nullptr ? 0 : grid_->GetRows();
  BarredRows barred{.byFilter = RowBits(rows), .monthTotals = RowBits(rows)};
  if (hidesMonthTotals_ && blocks_.HasMonths()) HideTotalsOfMonths(barred.monthTotals);
  if (kept_) HideUnkept(barred.byFilter);
  return barred;
}

bool GridRows::FoldsKept() const {
  return kept_ && std::ranges::any_of(blocks_.Tiers(), [this](const GridBlocks::Tier& tier) {
           return std::ranges::any_of(tier, [this](const GridBlock& block) {
             return block.folded && block.folds() && kept_->AnyIn(block.bodyFirst(), block.bodyLast);
           });
         });
}

// A month that is folded keeps the total that stands for it.
void GridRows::HideTotalsOfMonths(RowBits& hidden) const {
  for (const GridBlock& month : blocks_.Tiers().back()) {
    const std::int64_t first = month.folded ? month.title() + 1 : month.bodyLast + 1;
    if (first <= month.last) hidden.SetRange(first, month.last);
  }
}

void GridRows::HideUnkept(RowBits& hidden) const {
  if (kept_->Count() == 0) {
    if (kept_->Rows() > 0) hidden.SetRange(0, kept_->Rows() - 1);
    return;
  }
  for (const auto& tier : blocks_.Tiers()) {
    for (const GridBlock& block : tier) {
      if (!kept_->AnyIn(block.first, block.last)) hidden.SetRange(block.first, block.last);
    }
  }
  for (std::int64_t row = kept_->Next(0, false); row < kept_->Rows(); row = kept_->Next(row + 1, false)) {
    if (grid_->RowKindAt(row) == RowKind::line) hidden.Set(row);
  }
}

}  // namespace tz
