// Every report of the catalogue: ids are unique, each computes over a ledger without contents and over the sample
// company in every format that it offers, and what its rows say of each other holds.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/ledger/detail_report.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

// Where a report in amounts has its columns: the summary is the last text before the debits, the direction the first
// one behind the credits, and the balance stands behind it.
struct Places {
  int debit, credit, summary, direction, balance;

  explicit Places(const CTzGrid& grid)
      : debit(moving(grid, ColumnKind::debitAmount)),
        credit(moving(grid, ColumnKind::creditAmount)),
        summary(text(grid, debit - 1, -1)),
        direction(text(grid, credit + 1, 1)),
        balance(direction + 1) {}

 private:
  static int moving(const CTzGrid& grid, ColumnKind kind) {
    const auto found = std::ranges::find(grid.Columns(), kind, &GridColumn::kind);
    if (found == grid.Columns().end()) throw std::runtime_error("no column of such movements");
    return static_cast<int>(found - grid.Columns().begin());
  }
  static int text(const CTzGrid& grid, int from, int step) {
    while (grid.Columns().at(static_cast<std::size_t>(from)).kind != ColumnKind::text) from += step;
    return from;
  }
};

// The rows of a detail ledger in amounts: each balance follows from the one before it, each total from its lines.
class RowsOf {
 public:
  explicit RowsOf(const CTzGrid& grid) : grid_(grid), at_(grid) {}

  void check() {
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) checkRow(row);
  }
  [[nodiscard]] int lines() const { return lines_; }

 private:
  double signedBalance(std::int64_t row) const {
    const double shown = grid_.NumberAt(row, at_.balance);
    return grid_.TextAt(row, at_.direction) == "贷" ? -shown : shown;
  }

  void checkRow(std::int64_t row) {
    const auto caption = std::string(grid_.TextAt(row, at_.summary));
    switch (grid_.RowKindAt(row)) {
      case RowKind::heading:
        running_ = blockDebit_ = blockCredit_ = 0;
        break;
      case RowKind::opening:
        running_ = signedBalance(row);
        break;
      case RowKind::line:
        addLine(row);
        break;
      case RowKind::monthTotal:
        EXPECT_EQ(caption, "本月合计");
        expectRow(row, monthDebit_, monthCredit_, running_);
        monthDebit_ = monthCredit_ = 0;
        break;
      case RowKind::yearTotal:
        EXPECT_EQ(caption, "本年累计");
        expectRow(row, blockDebit_, blockCredit_, running_);
        break;
      case RowKind::subtotal:
        checkSubtotal(row);
        break;
      case RowKind::total:
        expectRow(row, allDebit_, allCredit_, closings_);
        break;
    }
  }

  void addLine(std::int64_t row) {
    const double d = grid_.NumberAt(row, at_.debit);
    const double c = grid_.NumberAt(row, at_.credit);
    running_ += d - c;
    monthDebit_ += d;
    monthCredit_ += c;
    blockDebit_ += d;
    blockCredit_ += c;
    near(signedBalance(row), running_, row);
    ++lines_;
    lastIsBlock_ = false;
  }

  // The innermost subtotals alone: those of outer groups follow on them.
  void checkSubtotal(std::int64_t row) {
    if (!lastIsBlock_ || grid_.RowKindAt(row - 1) != RowKind::subtotal) {
      expectRow(row, blockDebit_, blockCredit_, running_);
      closings_ += running_;
      allDebit_ += blockDebit_;
      allCredit_ += blockCredit_;
      lastIsBlock_ = true;
    }
  }

  void expectRow(std::int64_t row, double d, double c, double closing) {
    near(grid_.NumberAt(row, at_.debit), d, row);
    near(grid_.NumberAt(row, at_.credit), c, row);
    near(signedBalance(row), closing, row);
  }
  static void near(double shown, double expected, std::int64_t row) {
    constexpr double tolerance = 1e-5;
    EXPECT_NEAR(shown, expected, tolerance) << "row " << row;
  }

  const CTzGrid& grid_;
  const Places at_;
  double running_ = 0, monthDebit_ = 0, monthCredit_ = 0, blockDebit_ = 0, blockCredit_ = 0;
  double closings_ = 0, allDebit_ = 0, allCredit_ = 0;
  bool lastIsBlock_ = false;
  int lines_ = 0;
};

TEST(Catalogue, NamesEachReportOnce) {
  std::set<int> commands;
  for (const auto* report : catalogue()) {
    EXPECT_TRUE(commands.insert(report->command).second) << report->command;
    EXPECT_EQ(findReport(report->command), report);
    EXPECT_FALSE(report->printTitle.empty()) << report->command;
    EXPECT_NE(report->dialog.id, 0) << report->command;
  }
  EXPECT_EQ(findReport(1), nullptr);
}

class CatalogueWalk : public DatabaseTest {};

TEST_P(CatalogueWalk, RowsOfDetailLedgersFollowFromEachOther) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
  Reader reader(place.address());
  std::size_t reports = 0;
  int lines = 0;
  const auto details = detailReports();
  for (auto question : everyReport(reader)) {
    if (std::ranges::find(details, question.report->command, &DetailReport::command) == details.end()) continue;
    SCOPED_TRACE(question.report->command);
    question.request.set(ParameterKey::format, "金额式");
    const auto outcome = reader.ask(question);
    const auto* computed = std::get_if<ComputedReport>(&outcome);
    ASSERT_NE(computed, nullptr) << answerText(outcome);
    RowsOf rows(computed->grid);
    rows.check();
    lines += rows.lines();
    ++reports;
  }
  EXPECT_EQ(reports, details.size());
  EXPECT_GT(lines, 300);
}

TEST_P(CatalogueWalk, EmptyLedgersRefuseEveryReport) {
  TestLedger ledger(GetParam());
  ledger.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 空 | 4222 | 2006");
  Reader reader(ledger.address());
  for (const auto& question : everyReport(reader)) {
    const auto outcome = reader.ask(question);
    EXPECT_TRUE(std::holds_alternative<Refusal>(outcome)) << question.report->command;
  }
}

TZ_ON_BOTH_DATABASES(CatalogueWalk);

}  // namespace
}  // namespace tz::test
