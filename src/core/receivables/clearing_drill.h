// Where the rows of two-clearing lead: to their vouchers, and to the general ledger of the account and party.
#pragma once

#include "core/reports/marking.h"
#include "core/reports/report_definition.h"

namespace tz {

namespace clearing_drill {

bool anyLine(const DrillPlace& place);
bool lineRow(const DrillPlace& place);
bool noOpeningLine(const DrillPlace& place);

inline constexpr Message chooseVoucherLine{"请选择凭证记录!"};
inline constexpr Message noVoucherOfOpening{"期初数无法联查凭证"};
inline constexpr Message noVoucherOfPerson{"无法联查凭证"};
inline constexpr Message noVoucherOfUnit{"没有记录,无法联查凭证"};
inline constexpr Message nothingMoved{"无发生额，无法联查总帐"};

inline constexpr std::string_view withoutLines = "没有列出分录。先用“查询”改换条件。";

[[nodiscard]] DrillAnswer voucherTarget(const DrillRule& rule, const DrillPlace& place);
[[nodiscard]] DrillAnswer personLedgerTarget(const DrillRule& rule, const DrillPlace& place);
[[nodiscard]] DrillAnswer unitLedgerTarget(const DrillRule& rule, const DrillPlace& place);

}  // namespace clearing_drill

[[nodiscard]] constexpr DrillRule clearingVoucher(ClearingKind kind) {
  using namespace clearing_drill;
  return {.checks = {{anyLine, kind == ClearingKind::person ? noVoucherOfPerson : noVoucherOfUnit, withoutLines},
                     {lineRow, chooseVoucherLine, "没有选行，或选的是小计、合计。选一行分录再试。"},
                     {noOpeningLine, noVoucherOfOpening, "选的是期初凭证的分录，期初凭证不能打开来看。"}},
          .target = clearing_drill::voucherTarget};
}
[[nodiscard]] constexpr DrillRule clearingLedger(ClearingKind kind) {
  using namespace clearing_drill;
  constexpr int personGeneralLedger = 10189;
  constexpr int unitGeneralLedger = 10201;
  const bool person = kind == ClearingKind::person;
  return {.reports = {person ? personGeneralLedger : unitGeneralLedger},
          .checks = {{anyLine, nothingMoved, withoutLines}},
          .target = person ? personLedgerTarget : unitLedgerTarget};
}

}  // namespace tz
