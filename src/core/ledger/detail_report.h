// A detail ledger as one record: the report, what it selects and how it captions. The maker fills in what the family
// shares; the engine does the rest.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "core/ledger/amount_layout.h"
#include "core/ledger/detail_manual.h"
#include "core/ledger/detail_toolbar.h"
#include "core/ledger/listed_entities.h"
#include "core/ledger/opening_balances.h"
#include "core/ledger/selection.h"
#include "core/ledger/voucher_drill.h"
#include "core/reports/report_definition.h"

namespace tz {

struct DetailMember {
  Selection selects;
  OpeningSource openingSource = OpeningSource::startPeriod;
  std::string_view openingCaption;
  Listed listed = Listed::all;
  // Of multi-column ledgers: the flag that a sub-account must carry to have a column; 0: there are no such columns.
  char columnFlag = 0;
};

struct DetailReport : ReportDefinition {
  DetailMember member;
};

// The computation of every detail ledger; the report is a DetailReport.
void computeDetail(const ReportDefinition& report, Session& session, const Conditions& conditions,
                   ComputedReport& computed);

// Its columns but those of sub-accounts.
void addDetailColumns(const ReportDefinition& report, const Conditions& conditions, CTzGrid& grid);

// What a record leaves out is the family's.
[[nodiscard]] constexpr DetailReport detail(ReportDefinition report, const DetailMember& member) {
  const bool multiColumn = member.columnFlag != 0;
  const bool oneAccount = member.selects.accounts == chosenAccount;
  report.rules = multiColumn ? std::span<const std::string_view>(multiColumnRules) : detailRules;
  report.columnMeanings = multiColumn ? std::span<const ColumnMeaning>(multiColumnMeanings) : detailMeanings;
  report.toolbar = detailToolbar;
  report.formats = multiColumn ? formatsOfAccount : oneAccount ? detailFormats : formatsOfManyAccounts;
  report.columns = addDetailColumns;
  report.compute = computeDetail;
  if (report.detail == nullptr) report.detail = toVoucherOf(report.area);
  if (report.area == Area::unit) report.period.printed = months::printedWide;
  return {report, member};
}

[[nodiscard]] std::span<const DetailReport* const> personDetails();
[[nodiscard]] std::span<const DetailReport* const> unitDetails();
[[nodiscard]] std::span<const DetailReport* const> departmentDetails();
[[nodiscard]] std::span<const DetailReport* const> projectDetails();

// The whole family.
[[nodiscard]] std::vector<const DetailReport*> detailReports();

}  // namespace tz
