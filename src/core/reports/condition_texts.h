// The conditions of a computed report in words: beside its combos in a window, above its table in files, in the name
// that is proposed for a file, and as notices where they make the figures mean something else than one may think.
#pragma once

#include <string>
#include <vector>

#include "core/grid/notice.h"
#include "core/reports/report_definition.h"

namespace tz {

// Whether the line of the period says it already.
[[nodiscard]] bool toldByPeriod(const ReportDefinition& report, const ControlSpec& control);

// Every condition that neither the subtitle nor the period tells, the amount format included.
[[nodiscard]] std::vector<std::string> conditionTexts(const ReportDefinition& report, const Conditions& conditions);

// The same for a printed page, where nothing stands twice: of what the subtitle names, only what it leaves unsaid.
[[nodiscard]] std::vector<std::string> printedConditionTexts(const ReportDefinition& report,
                                                             const Conditions& conditions);

// Reversed months and ranges, the format that does not fit its captions, a logon date outside the account year.
[[nodiscard]] std::vector<Notice> conditionNotices(const ReportDefinition& report, const Conditions& conditions,
                                                   const Session& session, std::optional<int> accountYear);

// What the report is about and of when, "122101 职工借款 李明 2025.01–2025.03": how one window is told from another of
// the same report. Empty where neither is asked for.
[[nodiscard]] std::string subjectText(const ReportDefinition& report, const Conditions& conditions, int year);

// "应收余额 122101 职工借款 李明 2025.01-03": a name that every file system takes, without an ending.
[[nodiscard]] std::string proposedFileName(const ReportDefinition& report, const Conditions& conditions, int year);

}  // namespace tz
