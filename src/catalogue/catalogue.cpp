#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>

#include "ledger/definitions.h"

namespace tz {

std::span<const ReportDefinition* const> catalogue() {
  static constexpr std::array reports = {&personThreeColumnDetail};
  return reports;
}

const ReportDefinition* findReport(int command) {
  const auto reports = catalogue();
  const auto found = std::ranges::find(reports, command, [](const auto* report) { return report->command; });
  return found == reports.end() ? nullptr : *found;
}

}  // namespace tz
