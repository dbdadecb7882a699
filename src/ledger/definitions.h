// The report definitions of src/ledger, for the catalogue.
#pragma once

#include "reports/report_definition.h"

namespace tz {

extern const ReportDefinition personThreeColumnDetail;  // 10190

}  // namespace tz
