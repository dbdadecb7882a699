// What the examples of help and manual ask the sample company's ledger for.
#pragma once

#include "core/reports/report_definition.h"

namespace tz::manual {

// The value of a condition as an option takes it; empty for conditions that an example leaves out.
[[nodiscard]] std::string_view sampleValue(const ReportDefinition& report, ParameterKey key);
[[nodiscard]] Request sampleRequest(const ReportDefinition& report);
// The command that asks for it, without the program's name.
[[nodiscard]] std::string sampleCommand(const ReportDefinition& report);

}  // namespace tz::manual
