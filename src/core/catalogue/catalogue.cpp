#include "core/catalogue/catalogue.h"

#include <algorithm>
#include <vector>

#include "core/ledger/balance_report.h"
#include "core/ledger/detail_report.h"
#include "core/ledger/period_report.h"
#include "core/receivables/clearing_report.h"

namespace tz {

std::span<const ReportDefinition* const> catalogue() {
  static const auto reports = [] {
    std::vector<const ReportDefinition*> all;
    const auto add = [&](const auto& family) { all.insert(all.end(), family.begin(), family.end()); };
    add(detailReports());
    add(balanceReports());
    add(periodReports());
    add(clearingReports());
    std::ranges::sort(all, {}, [](const auto* report) { return report->command; });
    return all;
  }();
  return reports;
}

const ReportDefinition* findReport(int command) {
  const auto reports = catalogue();
  const auto found = std::ranges::find(reports, command, [](const auto* report) { return report->command; });
  return found == reports.end() ? nullptr : *found;
}

bool mayReadVouchers(const Operator& who) {
  return std::ranges::any_of(detailReports(), [&](const auto* report) { return who.may(report->right); });
}

}  // namespace tz
