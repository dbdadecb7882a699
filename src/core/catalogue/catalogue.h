// Every report of the module, in the order of the navigator's command ids.
#pragma once

#include <span>

#include "core/reports/operator.h"
#include "core/reports/report_definition.h"

namespace tz {

[[nodiscard]] std::span<const ReportDefinition* const> catalogue();
// The report of a command id, or null.
[[nodiscard]] const ReportDefinition* findReport(int command);
// Vouchers tell what the detail ledgers tell: whoever may open one of these may look at them.
[[nodiscard]] bool mayReadVouchers(const Operator& who);

}  // namespace tz
