// A three-column table or general ledger as one record: one account and one member, period by period.
#pragma once

#include <span>
#include <vector>

#include "core/ledger/amount_layout.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/detail_toolbar.h"

namespace tz {

struct PeriodMember {
  Selection selects;  // without groups and order
  ReadingOrder order;
  bool yearTotals = false;  // "本年累计" behind each period
};

struct PeriodReport : ReportDefinition {
  PeriodMember member;
};

// The computation of every three-column table; the report is a PeriodReport.
void computePeriods(const ReportDefinition& report, Session& session, const Conditions& conditions,
                    ComputedReport& computed);

void addPeriodColumns(const ReportDefinition& report, const Conditions& conditions, CTzGrid& grid);

// What a record leaves out is the family's.
[[nodiscard]] constexpr PeriodReport periods(ReportDefinition report, const PeriodMember& member) {
  report.rules = member.yearTotals ? std::span<const std::string_view>(yearTotalRules) : periodRules;
  if (report.toolbar.empty()) report.toolbar = detailToolbar;
  report.formats = formatsOfAccount;
  report.columnMeanings = periodMeanings;
  report.columns = addPeriodColumns;
  report.compute = computePeriods;
  report.period.printed = months::text;
  report.colours = {};
  report.dialog.databaseNotOpen = balanceLedgerNotOpen;
  return {report, member};
}

[[nodiscard]] std::span<const PeriodReport* const> personPeriods();
[[nodiscard]] std::span<const PeriodReport* const> unitPeriods();
[[nodiscard]] std::span<const PeriodReport* const> departmentPeriods();
[[nodiscard]] std::span<const PeriodReport* const> projectPeriods();

// The whole family.
[[nodiscard]] std::vector<const PeriodReport*> periodReports();

}  // namespace tz
