#include "core/ledger/detail_report.h"

#include "core/ledger/detail_engine.h"

namespace tz {

void computeDetail(const ReportDefinition& report, Session& session, const Conditions& conditions,
                   ComputedReport& computed) {
  const auto& member = static_cast<const DetailReport&>(report).member;
  runDetailLedger(member, session, conditions, wholeSubject(report, conditions), computed);
}

void addDetailColumns(const ReportDefinition& report, const Conditions& conditions, CTzGrid& grid) {
  const bool multiColumn = static_cast<const DetailReport&>(report).member.columnFlag != 0;
  addLedgerColumns(grid, amountLayout(conditions.format), multiColumn ? multiColumnCaptions : threeColumnCaptions);
}

std::vector<const DetailReport*> detailReports() {
  std::vector<const DetailReport*> all;
  for (const auto ofArea : {personDetails(), unitDetails(), departmentDetails(), projectDetails()}) {
    all.insert(all.end(), ofArea.begin(), ofArea.end());
  }
  return all;
}

}  // namespace tz
