// The manual's page of a report, drawn up from its record: what it is for, an example, conditions, columns, rules, what
// it refuses in the order in which it is checked, where its rows lead, and the reports beside it.
#pragma once

#include <string>
#include <vector>

#include "core/reports/report_definition.h"

namespace tz::manual {

// "个人往来：科目余额表"; no two reports have the same.
[[nodiscard]] std::string reportTitle(const ReportDefinition& report);
// "reports/10183".
[[nodiscard]] std::string reportPage(const ReportDefinition& report);

// The columns under a format, as far as they are known without the ledger, with the limits where they can be asked for.
[[nodiscard]] std::vector<GridColumn> columnsOf(const ReportDefinition& report, AmountFormat format);
// What a column holds; empty where nobody has said it. One of a group holds a part of what the group does.
[[nodiscard]] std::string_view meaningOf(const ReportDefinition& report, const GridColumn& column);
[[nodiscard]] std::string_view meaningOfPart(ColumnKind kind);
// "## 栏目": what the columns hold, and which of them each format has.
[[nodiscard]] std::string composeColumns(const ReportDefinition& report);
// The formats that a report may offer at all.
[[nodiscard]] std::vector<AmountFormat> possibleFormats(const ReportDefinition& report);

// A refusal as the manual tells it.
struct ExplainedRefusal {
  std::string text;
  std::string advice;  // empty where nobody has said it
};
// Each in the order in which they are checked: before the dialog opens, when it is confirmed, from a row, in a search.
[[nodiscard]] std::vector<ExplainedRefusal> openingRefusals(const ReportDefinition& report);
[[nodiscard]] std::vector<ExplainedRefusal> confirmingRefusals(const ReportDefinition& report);
[[nodiscard]] std::vector<ExplainedRefusal> drillRefusals(const DrillRule& drill);
[[nodiscard]] std::vector<ExplainedRefusal> findRefusals(const ReportDefinition& report);

// The page, as Markdown. `example` is what the sample company's ledger answers to sampleRequest().
[[nodiscard]] std::string composeReportPage(const ReportDefinition& report, const ComputedReport& example);

}  // namespace tz::manual
