// Where the rows of two-clearing lead: to their vouchers, and to the general ledger of the account and party.
#pragma once

#include "core/reports/marking.h"
#include "core/reports/report_definition.h"

namespace tz {

[[nodiscard]] DrillAnswer drillToClearedVoucher(ClearingKind kind, const ComputedReport& shown, std::int64_t row);
[[nodiscard]] DrillAnswer drillToGeneralLedger(ClearingKind kind, const Conditions& conditions,
                                               const ComputedReport& shown);

// The same as records name them.
template <ClearingKind kind>
[[nodiscard]] DrillAnswer clearingVoucher(const Conditions& /*conditions*/, const ComputedReport& shown,
                                          std::int64_t row) {
  return drillToClearedVoucher(kind, shown, row);
}
template <ClearingKind kind>
[[nodiscard]] DrillAnswer clearingLedger(const Conditions& conditions, const ComputedReport& shown,
                                         std::int64_t /*row*/) {
  return drillToGeneralLedger(kind, conditions, shown);
}

}  // namespace tz
