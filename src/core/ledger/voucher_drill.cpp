#include "core/ledger/voucher_drill.h"

namespace tz {

namespace drills {

bool lineShown(const DrillPlace& place) { return place.shown.grid.GetRows() != 0; }

bool rowChosen(const DrillPlace& place) { return place.row >= 0; }

bool noOpening(const DrillPlace& place) {
  return rowOfVoucher(place) || place.shown.grid.RowKindAt(place.row) != RowKind::opening;
}

bool rowOfVoucher(const DrillPlace& place) { return place.shown.subjects.line(place.row).has_value(); }

}  // namespace drills

DrillAnswer voucherTarget(const DrillRule& /*rule*/, const DrillPlace& place) {
  return VoucherTarget{*place.shown.subjects.line(place.row)};
}

}  // namespace tz
