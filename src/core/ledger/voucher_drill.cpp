#include "core/ledger/voucher_drill.h"

namespace tz {

DrillAnswer drillToVoucher(const VoucherWords& words, const ComputedReport& shown, std::int64_t row) {
  if (shown.grid.GetRows() == 0) return refusalWith(words.nothingShown);
  if (row < 0) return refusalWith(words.noRow);
  if (const auto line = shown.subjects.line(row)) return VoucherTarget{*line};
  return refusalWith(shown.grid.RowKindAt(row) == RowKind::opening ? words.opening : words.noVoucher);
}

}  // namespace tz
