// Every report of the module, in the order of the navigator's command ids.
#pragma once

#include <span>

#include "core/reports/report_definition.h"

namespace tz {

[[nodiscard]] std::span<const ReportDefinition* const> catalogue();
// The report of a command id, or null.
[[nodiscard]] const ReportDefinition* findReport(int command);

}  // namespace tz
