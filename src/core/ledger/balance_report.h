// A balance table or summary general ledger as one record: the report, which balances it reads and what its rows are
// made of. The maker fills in what the family shares; the engine does the rest.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "core/ledger/amount_layout.h"
#include "core/ledger/balance_manual.h"
#include "core/ledger/balance_statements.h"
#include "core/ledger/balance_toolbar.h"
#include "core/ledger/selection.h"
#include "core/reports/report_definition.h"

namespace tz {

// A column that tells whose row it is: the name on a level of the groups, or an account's code.
struct KeyColumn {
  std::string_view caption;
  std::size_t level = 0;
  bool code = false;
};
inline constexpr std::size_t mostKeyColumns = 4;

// The innermost level makes the rows; the outer ones close with a subtotal where they have a caption for it.
struct BalanceGrouping {
  GroupLevels levels;
  Few<KeyColumn, mostKeyColumns> keys;
  // Two levels: each group opens with a row of its own figures instead of closing with a sum, and "合计" sums these.
  bool headed = false;
};
inline constexpr std::size_t mostGroupings = 3;

// What a row's opening is.
enum class BalanceOpening {
  // The opening of its first period in the range.
  firstRecord,
  // Of each account and dimension the latest record at or before the first period: its opening where it is of that
  // period, otherwise its closing.
  latestRecord,
  // The posted lines before the range; movements are lines too. For members that balances do not know.
  lines,
};

struct BalanceMember {
  Selection selects;  // without groups and order
  Few<BalanceGrouping, mostGroupings> groupings;
  // Which of them holds; null: the first.
  std::size_t (*grouping)(const Conditions&) = nullptr;
  BalanceOpening opening = BalanceOpening::firstRecord;
  // With unposted vouchers, their lines of earlier periods move the opening's amount.
  bool earlierUnposted = false;
  // Its accounts stand by their codes, not by their ids.
  bool byCode = false;
  ReadingOrder order;

  [[nodiscard]] const BalanceGrouping& groupingFor(const Conditions& conditions) const {
    return groupings[grouping == nullptr ? 0 : grouping(conditions)];
  }
};

struct BalanceReport : ReportDefinition {
  BalanceMember member;
};

// The computation of every balance table; the report is a BalanceReport.
void computeBalance(const ReportDefinition& report, Session& session, const Conditions& conditions,
                    ComputedReport& computed);

void addBalanceColumns(const ReportDefinition& report, const Conditions& conditions, CTzGrid& grid);

// What the family says of a ledger that is not open.
inline constexpr Message balanceLedgerNotOpen{"The Database is not Opened!"};

// What a record leaves out is the family's.
[[nodiscard]] constexpr BalanceReport balance(ReportDefinition report, const BalanceMember& member) {
  report.rules = member.opening == BalanceOpening::latestRecord ? std::span(latestRecordRules) : balanceRules;
  if (report.toolbar.empty()) report.toolbar = balanceToolbar;
  report.formats = member.selects.accounts == chosenAccount ? formatsOfAccount : commonFormats;
  report.columnMeanings = balanceMeanings;
  report.columns = addBalanceColumns;
  report.compute = computeBalance;
  if (report.period.printed == monthsPeriod.printed) report.period.printed = months::text;
  report.colours = {};
  report.dialog.databaseNotOpen = balanceLedgerNotOpen;
  return {report, member};
}

[[nodiscard]] std::span<const BalanceReport* const> personBalances();
[[nodiscard]] std::span<const BalanceReport* const> unitBalances();
[[nodiscard]] std::span<const BalanceReport* const> departmentGenerals();
[[nodiscard]] std::span<const BalanceReport* const> projectGenerals();

// The whole family.
[[nodiscard]] std::vector<const BalanceReport*> balanceReports();

}  // namespace tz
