// Computing a report for a window: what the core computes, with the conditions behind it, which the window's combos and
// labels show.
#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "core/reports/report_definition.h"

namespace tz {

struct ShownReport {
  Request request;
  Conditions conditions;
  std::vector<AmountFormat> formats;  // to choose from; empty for reports without amount formats
  ComputedReport report;
};

// The formats of the account that is asked for, and the one of them that holds.
struct OfferedFormats {
  std::vector<AmountFormat> formats;
  std::optional<AmountFormat> chosen;  // none for reports without formats
};
[[nodiscard]] OfferedFormats offeredFormats(const ReportDefinition& report, const Request& request, const CQnCwDB& db);

// A format that the request's account does not offer gives way to the account's own. Throws DbError.
[[nodiscard]] std::variant<ShownReport, Refusal, Cancelled> computeForWindow(const ReportDefinition& report,
                                                                             Request request, Session& session);

}  // namespace tz
