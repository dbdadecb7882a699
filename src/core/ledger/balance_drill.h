// Where the rows of balance tables and general ledgers lead: to the detail ledger of the same area, with the table's
// own conditions. A row is no condition, unless the ledger asks for a member that the table does not.
#pragma once

#include <optional>
#include <string>

#include "core/reports/report_definition.h"

namespace tz {

// From a member's row; subtotals, totals and no row at all are refused.
[[nodiscard]] DrillAnswer drillFromMember(int target, const Conditions& conditions, const ComputedReport& shown,
                                          std::int64_t row);
// From a period's row, to that period alone.
[[nodiscard]] DrillAnswer drillFromPeriod(int target, const Conditions& conditions, const ComputedReport& shown,
                                          std::int64_t row);

// From a project's own row; those of its accounts are refused.
[[nodiscard]] DrillAnswer drillFromProject(int target, const Conditions& conditions, const ComputedReport& shown,
                                           std::int64_t row);
// From a period of one project; of one department of it, to the ledger that can be asked for that.
[[nodiscard]] DrillAnswer drillFromPeriodOfProject(int target, int targetOfDept, const Conditions& conditions,
                                                   const ComputedReport& shown, std::int64_t row);

// What a row's own member fills in where the ledger asks for it; the member's name stands in the first column.
using FillMember = std::optional<Refusal> (*)(DetailTarget&, const Subject& subject, const std::string& name);
[[nodiscard]] std::optional<Refusal> fillUnitClass(DetailTarget& target, const Subject& subject,
                                                   const std::string& name);
[[nodiscard]] std::optional<Refusal> fillDept(DetailTarget& target, const Subject& subject, const std::string& name);
[[nodiscard]] std::optional<Refusal> fillClerk(DetailTarget& target, const Subject& subject, const std::string& name);
[[nodiscard]] DrillAnswer drillWithMember(int target, FillMember fill, const Conditions& conditions,
                                          const ComputedReport& shown, std::int64_t row);

// The same as records name them.
template <int target>
[[nodiscard]] DrillAnswer memberTo(const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  return drillFromMember(target, conditions, shown, row);
}
template <int target, FillMember fill>
[[nodiscard]] DrillAnswer memberTo(const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  return drillWithMember(target, fill, conditions, shown, row);
}
template <int target>
[[nodiscard]] DrillAnswer projectTo(const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  return drillFromProject(target, conditions, shown, row);
}
template <int target, int targetOfDept>
[[nodiscard]] DrillAnswer periodOfProjectTo(const Conditions& conditions, const ComputedReport& shown,
                                            std::int64_t row) {
  return drillFromPeriodOfProject(target, targetOfDept, conditions, shown, row);
}
template <int target>
[[nodiscard]] DrillAnswer periodTo(const Conditions& conditions, const ComputedReport& shown, std::int64_t row) {
  return drillFromPeriod(target, conditions, shown, row);
}

}  // namespace tz
