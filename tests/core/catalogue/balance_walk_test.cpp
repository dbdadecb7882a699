// Every balance table, general ledger and three-column table of the catalogue, over the sample company and over random
// ledgers of hostile names and amounts: rows follow from each other, and a member closes alike in the table, in the
// ledger that its row leads to, and in each table that has a row of the same member.
#include <algorithm>
#include <gtest/gtest.h>
#include <map>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/ledger/detail_report.h"
#include "core/ledger/period_report.h"
#include "core/ledger/random_ledger.h"
#include "core/reports/offers.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

// A balance below the thresholds has no side: its sign is not to be seen.
constexpr double nearEnough = 0.005;

std::vector<int> columnsOf(const CTzGrid& grid, ColumnKind kind) {
  std::vector<int> found;
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (grid.Columns()[static_cast<std::size_t>(column)].kind == kind) found.push_back(column);
  }
  return found;
}

std::vector<int> directionsOf(const CTzGrid& grid) {
  std::vector<int> found;
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (grid.Columns()[static_cast<std::size_t>(column)].caption == "方向") found.push_back(column);
  }
  return found;
}

// Which side a balance stands on says the direction before it.
double signedAt(const CTzGrid& grid, std::int64_t row, int direction, int column) {
  const double shown = grid.NumberAt(row, column);
  return grid.TextAt(row, direction) == "贷" ? -shown : shown;
}

// The last balance of a row.
double closingAt(const CTzGrid& grid, std::int64_t row, std::size_t balance) {
  return signedAt(grid, row, directionsOf(grid).at(balance), columnsOf(grid, ColumnKind::amount).at(balance));
}
double tableClosing(const ComputedReport& table, std::int64_t row) { return closingAt(table.grid, row, 1); }
double ledgerClosing(const ComputedReport& ledger, std::int64_t row) { return closingAt(ledger.grid, row, 0); }

// The rows of a balance table in any format.
class TableRows {
 public:
  explicit TableRows(const ComputedReport& table) : table_(table), grid_(table.grid), directions_(directionsOf(grid_)) {
    using enum ColumnKind;
    measures_.push_back({amount, debitAmount, creditAmount});
    if (!columnsOf(grid_, quantity).empty()) measures_.push_back({quantity, debitQuantity, creditQuantity});
    if (!columnsOf(grid_, foreign).empty()) measures_.push_back({foreign, debitForeign, creditForeign});
    group_.resize(measures_.size());
    head_.resize(measures_.size());
    all_.resize(measures_.size());
  }

  void check() {
    ASSERT_GT(grid_.GetRows(), 0);
    ASSERT_EQ(table_.subjects.size(), grid_.GetRows());
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) {
      SCOPED_TRACE(row);
      EXPECT_FALSE(table_.subjects.line(row));
      for (std::size_t i = 0; i < measures_.size(); ++i) checkRow(row, i);
    }
    EXPECT_EQ(grid_.RowKindAt(grid_.GetRows() - 1), RowKind::total);
    EXPECT_EQ(grid_.TextAt(grid_.GetRows() - 1, 0), "合计");
  }

 private:
  struct Measure {
    ColumnKind balance, debit, credit;
  };
  struct Sums {
    double opening = 0, debit = 0, credit = 0;
  };

  void checkRow(std::int64_t row, std::size_t measure) {
    const auto& kinds = measures_.at(measure);
    const auto balances = columnsOf(grid_, kinds.balance);
    const double debit = grid_.NumberAt(row, columnsOf(grid_, kinds.debit).front());
    const double credit = grid_.NumberAt(row, columnsOf(grid_, kinds.credit).front());
    double opening = signedAt(grid_, row, directions_[0], balances[0]);
    const double closing = signedAt(grid_, row, directions_[1], balances[1]);
    if (measure == 0) {
      EXPECT_NEAR(opening + debit - credit, closing, nearEnough);
    } else {
      // The direction is that of the amount: quantities show how much alone.
      const double turned = std::abs(std::abs(debit - credit - opening) - std::abs(closing));
      EXPECT_LT(std::min(turned, std::abs(std::abs(opening + debit - credit) - std::abs(closing))), nearEnough);
      opening = 0;
    }
    const Sums sums{opening, debit, credit};
    const auto kind = grid_.RowKindAt(row);
    if (kind != RowKind::line && head_.at(measure)) {
      expect(group_.at(measure), *head_.at(measure));
      group_.at(measure) = {};
    }
    if (kind == RowKind::heading) head_.at(measure) = sums;  // the rows below it are parts of it
    if (kind == RowKind::line) add(group_.at(measure), sums);
    if (kind == RowKind::heading || (kind == RowKind::line && !head_.at(measure))) add(all_.at(measure), sums);
    if (kind == RowKind::subtotal) {
      expect(group_.at(measure), sums);
      group_.at(measure) = {};
    }
    if (kind == RowKind::total) expect(all_.at(measure), sums);
  }
  static void expect(const Sums& added, const Sums& shown) {
    EXPECT_NEAR(added.opening, shown.opening, nearEnough);
    EXPECT_NEAR(added.debit, shown.debit, nearEnough);
    EXPECT_NEAR(added.credit, shown.credit, nearEnough);
  }
  static void add(Sums& sums, const Sums& more) {
    sums.opening += more.opening;
    sums.debit += more.debit;
    sums.credit += more.credit;
  }

  const ComputedReport& table_;
  const CTzGrid& grid_;
  std::vector<int> directions_;
  std::vector<Measure> measures_;
  std::vector<Sums> group_, all_;
  std::vector<std::optional<Sums>> head_;
};

using Compared = std::map<int, int>;  // rows that were held against another report, by report

// One ledger, asked as its dialogs offer.
class Walk {
 public:
  Walk(Reader& reader, naive::Dice& dice, int draws) : reader_(reader), dice_(dice), draws_(draws) {}

  void walk(Compared& compared) {
    for (const auto* table : balanceReports()) {
      for (int i = 0; i < draws_; ++i) compared[table->command] += walkTable(*table);
    }
    for (const auto* table : periodReports()) {
      for (int i = 0; i < draws_; ++i) compared[table->command] += walkPeriods(*table);
    }
  }

 private:
  // Conditions drawn from what the dialog offers for each.
  Request drawn(const ReportDefinition& report, bool earlierUnposted) {
    Request request;
    const auto keys = parametersOf(report);
    const auto asks = [&](ParameterKey key) { return std::ranges::find(keys, key) != keys.end(); };
    for (const auto key : keys) {
      if ((key == ParameterKey::projectFrom || key == ParameterKey::projectTo) && !dice_.once(4)) continue;
      const auto entries = offered(report.dialog, key, request, reader_.db());
      if (!entries.empty()) request.choose(key, choiceOf(key, dice_.oneOf(entries)));
    }
    if (asks(ParameterKey::unitGrouping) && dice_.once(2)) request.set(ParameterKey::unitGrouping, "project");
    if (asks(ParameterKey::creditLimit) && dice_.once(2)) request.set(ParameterKey::creditLimit, "1");
    if (asks(ParameterKey::unposted) && dice_.once(2)) request.set(ParameterKey::unposted, "1");
    if (!asks(ParameterKey::from)) return request;
    // A ledger's opening has the unposted lines before the range; of a table that leaves them out the year is asked
    // for.
    const bool anywhere = earlierUnposted || !request.flag(ParameterKey::unposted);
    const int from = anywhere ? 1 + dice_.below(12) : 1;
    request.set(ParameterKey::from, std::to_string(from));
    request.set(ParameterKey::to, std::to_string(from + dice_.below(13 - from)));
    return request;
  }

  // Nothing where the conditions are refused, as those of a person without records are.
  std::optional<ComputedReport> ask(const ReportDefinition& report, const Request& request) {
    auto outcome = reader_.ask({&report, request});
    auto* shown = std::get_if<ComputedReport>(&outcome);
    return shown == nullptr ? std::nullopt : std::optional(std::move(*shown));
  }

  // In each format that the conditions offer; the last one is given back.
  template <class Check>
  std::optional<ComputedReport> inEachFormat(const ReportDefinition& report, Request request, const Check& check) {
    auto shown = ask(report, request);
    if (!shown) return shown;
    for (const auto format : std::vector(shown->formats)) {
      request.set(ParameterKey::format, formatName(format));
      shown = ask(report, request);
      SCOPED_TRACE(formatName(format));
      check(*shown);
    }
    return shown;
  }

  int walkTable(const BalanceReport& report) {
    const auto request = drawn(report, report.member.earlierUnposted);
    SCOPED_TRACE(traceOf(report, request));
    const auto shown = inEachFormat(report, request, [](const ComputedReport& table) { TableRows(table).check(); });
    if (!shown) return 0;
    const auto& grid = shown->grid;
    EXPECT_TRUE(std::holds_alternative<Refusal>(report.detail(*shown->resolved, *shown, grid.GetRows() - 1)));
    int members = 0;
    for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
      const auto kind = grid.RowKindAt(row);
      if (kind != RowKind::line && kind != RowKind::heading) continue;
      const auto answer = report.detail(*shown->resolved, *shown, row);
      if (std::holds_alternative<Refusal>(answer)) continue;  // a row without department, the accounts of a project
      ++members;
      // Balances know no clerk: another source.
      if (report.member.opening == BalanceOpening::lines) continue;
      const auto closing = closingBehind(*shown, row, std::get<DetailTarget>(answer));
      EXPECT_NEAR(tableClosing(*shown, row), closing.value_or(tableClosing(*shown, row)), nearEnough) << "row " << row;
    }
    return members;
  }

  // A member's closing in the ledger behind; where its blocks are others, in that of the row's account. Nothing where
  // the ledger refuses what the table does not, or does not list the member.
  std::optional<double> closingBehind(const ComputedReport& shown, std::int64_t row, DetailTarget target) {
    const auto& subject = shown.subjects.of(row);
    const auto* detail = detailOf(target.command);
    const auto of = [&]() -> std::optional<double> {
      const auto& ledger = ledgerOf(target);
      if (!ledger) return std::nullopt;
      const auto last = ledger->grid.GetRows() - 1;
      if (detail->member.selects.groups.empty()) return last < 0 ? 0 : ledgerClosing(*ledger, last);
      for (std::int64_t at = last; at >= 0; --at) {
        const auto kind = ledger->grid.RowKindAt(at);
        if ((kind == RowKind::subtotal || kind == RowKind::total) && ledger->subjects.of(at) == subject)
          return ledgerClosing(*ledger, at);
      }
      return std::nullopt;
    };
    if (const auto closing = of()) return closing;
    if (!ledgerOf(target) || detail->member.listed == Listed::postedAccounts) return std::nullopt;
    const auto& whole = shown.subjects.of(shown.grid.GetRows() - 1);
    if (whole.account == 0 || whole.account == subject.account) return 0;
    target.conditions.set(ParameterKey::account, CGetData(reader_.db()).GetCodeCode(subject.account));
    const auto closing = of();
    return !closing && ledgerOf(target) ? 0 : closing;
  }

  int walkPeriods(const PeriodReport& report) {
    const auto request = drawn(report, false);
    SCOPED_TRACE(traceOf(report, request));
    const auto shown = inEachFormat(report, request, [](const ComputedReport& table) { checkPeriods(table.grid); });
    if (!shown || shown->grid.GetRows() < 2) return 0;
    EXPECT_TRUE(std::holds_alternative<Refusal>(report.detail(*shown->resolved, *shown, 0)));
    for (std::int64_t row = 1; row < shown->grid.GetRows(); ++row) {
      if (shown->grid.RowKindAt(row) != RowKind::line) continue;
      const auto& month = ledgerOf(std::get<DetailTarget>(report.detail(*shown->resolved, *shown, row)));
      if (!month) continue;
      const auto last = month->grid.GetRows() - 1;
      EXPECT_NEAR(last < 0 ? 0 : ledgerClosing(*month, last), ledgerClosing(*shown, row), nearEnough) << "row " << row;
    }
    return holdAgainstTables(report, *shown);
  }

  // Each month follows from the one before, and the year's sums from the months.
  static void checkPeriods(const CTzGrid& grid) {
    const int debits = columnsOf(grid, ColumnKind::debitAmount).front();
    const int credits = columnsOf(grid, ColumnKind::creditAmount).front();
    EXPECT_EQ(grid.TextAt(0, 2), "上年结转");
    double running = closingAt(grid, 0, 0);
    double debit = 0;
    double credit = 0;
    for (std::int64_t row = 1; row < grid.GetRows(); ++row) {
      if (grid.RowKindAt(row) == RowKind::yearTotal) {
        EXPECT_NEAR(grid.NumberAt(row, debits), debit, nearEnough) << "row " << row;
        EXPECT_NEAR(grid.NumberAt(row, credits), credit, nearEnough) << "row " << row;
      } else {
        debit += grid.NumberAt(row, debits);
        credit += grid.NumberAt(row, credits);
        running += grid.NumberAt(row, debits) - grid.NumberAt(row, credits);
      }
      EXPECT_NEAR(closingAt(grid, row, 0), running, nearEnough) << "row " << row;
    }
  }

  // In the tables of the same area a row of the same member closes as its last period does.
  int holdAgainstTables(const ReportDefinition& report, const ComputedReport& shown) {
    const auto& member = shown.subjects.of(0);
    int compared = 0;
    for (const auto* table : balanceReports()) {
      if (table->area != report.area || table->member.opening == BalanceOpening::lines) continue;
      Request request = shown.resolved->request;
      for (const auto key : {ParameterKey::creditLimit, ParameterKey::format}) request.clear(key);
      request.set(ParameterKey::from, std::to_string(shown.resolved->from));
      request.set(ParameterKey::to, std::to_string(shown.resolved->to));
      const auto all = ask(*table, request);
      for (std::int64_t row = 0; all && row < all->grid.GetRows(); ++row) {
        if (all->grid.RowKindAt(row) != RowKind::line || all->subjects.of(row) != member) continue;
        EXPECT_NEAR(ledgerClosing(shown, shown.grid.GetRows() - 1), tableClosing(*all, row), nearEnough)
            << "in " << table->command;
        ++compared;
      }
    }
    return compared;
  }

  // In amounts, asked for once.
  const std::optional<ComputedReport>& ledgerOf(DetailTarget target) {
    target.conditions.clear(ParameterKey::format);
    if (target.command == askedCommand_ && target.conditions.values() == asked_.values() &&
        target.conditions.ids() == asked_.ids()) {
      return ledger_;
    }
    askedCommand_ = target.command;
    asked_ = target.conditions;
    target.conditions.set(ParameterKey::format, "金额式");
    ledger_ = ask(*findReport(target.command), target.conditions);
    return ledger_;
  }

  static const DetailReport* detailOf(int command) { return static_cast<const DetailReport*>(findReport(command)); }

  static std::string traceOf(const ReportDefinition& report, const Request& request) {
    std::string text = std::to_string(report.command);
    for (const auto& [key, value] : request.values()) {
      text.append(" --").append(parameter(key).option).append(" ").append(value);
    }
    return text;
  }

  Reader& reader_;
  naive::Dice& dice_;
  int draws_;
  int askedCommand_ = 0;
  Request asked_;
  std::optional<ComputedReport> ledger_;
};

class BalanceWalk : public DatabaseTest {};

TEST_P(BalanceWalk, TablesAgreeOverTheSampleCompany) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
  Reader reader(place.address());
  naive::Dice dice(1);
  Compared compared;
  Walk(reader, dice, 20).walk(compared);
  int rows = 0;
  for (const auto& [command, ofReport] : compared) rows += ofReport;
  EXPECT_GT(rows, 200);
}

TEST_P(BalanceWalk, TablesAgreeOverRandomLedgers) {
  TestLedger place(GetParam());
  place.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 随机 | 4222 | 2006");
  for (const char* itemClass : naive::itemClasses) place.makeItemTable(itemClass);
  Reader reader(place.address());
  Compared compared;
  const int seeds = onServer() ? 3 : 25;
  for (int seed = 1; seed <= seeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    naive::Dice dice(static_cast<std::uint64_t>(seed));
    naive::writeLedger(place.keeper(), naive::tidyLedger(dice));
    Walk(reader, dice, 4).walk(compared);
  }
  for (const auto& [command, rows] : compared) EXPECT_GT(rows, onServer() ? 0 : 20) << command;
}

TZ_ON_BOTH_DATABASES(BalanceWalk);

}  // namespace
}  // namespace tz::test
