// Where the rows of detail ledgers lead: a voucher line to its voucher. What the others answer is worded by each area
// in its own way.
#pragma once

#include "core/reports/report_definition.h"

namespace tz {

namespace drills {
bool lineShown(const DrillPlace& place);
bool rowChosen(const DrillPlace& place);
bool noOpening(const DrillPlace& place);
bool rowOfVoucher(const DrillPlace& place);  // no heading, no total
}  // namespace drills

[[nodiscard]] DrillAnswer voucherTarget(const DrillRule& rule, const DrillPlace& place);

inline constexpr Message chooseVoucherRecord{"请选择凭证记录!", "岚川财务软件"};
inline constexpr Message chooseOneVoucherRecord{"请选择一条凭证记录!"};
inline constexpr Message chooseVoucherRecordFirst{"请先选中一条凭证记录!"};
inline constexpr Message noVoucherOfNothing{"没有记录,无法联查凭证"};
inline constexpr Message openingHasNoVoucher{"期初数无法联查凭证"};
inline constexpr Message noVoucherOfRow{"无法联查凭证"};

// What the detail ledgers of an area have unless they say otherwise.
[[nodiscard]] constexpr DrillRule toVoucherOf(Area area) {
  const bool ofPersons = area == Area::person;
  const Message& noRow = ofPersons            ? chooseVoucherRecord
                         : area == Area::unit ? chooseOneVoucherRecord
                                              : chooseVoucherRecordFirst;
  return {.checks = {{drills::lineShown, noVoucherOfNothing, "表里没有行。先用“查询”改换条件。"},
                     {drills::rowChosen, noRow, "没有选行。选一行凭证的分录再试。"},
                     {drills::noOpening, openingHasNoVoucher, "选的是期初行，它不来自一张凭证。选一行凭证的分录。"},
                     {drills::rowOfVoucher, ofPersons ? chooseVoucherRecord : noVoucherOfRow,
                      "选的是标题或合计，它不来自一张凭证。选一行凭证的分录。"}},
          .target = voucherTarget};
}

}  // namespace tz
