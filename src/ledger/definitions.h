// The report definitions of src/ledger, for the catalogue.
#pragma once

#include "ledger/detail_member.h"
#include "reports/report_definition.h"

namespace tz {

extern const ReportDefinition personThreeColumnDetail;  // 10190

// What a detail ledger selects, by its command id; null for other reports.
[[nodiscard]] const DetailMember* detailMember(int command);

}  // namespace tz
