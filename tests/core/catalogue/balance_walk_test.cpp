// Every balance table, general ledger and three-column table over the sample company: its rows follow from each other,
// say whom they are about, and agree with the detail ledgers that they lead to.
#include <algorithm>
#include <gtest/gtest.h>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/ledger/detail_report.h"
#include "core/ledger/period_report.h"
#include "core/reports/offers.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr double nearEnough = 1e-5;

double signedAmount(const CTzGrid& grid, std::int64_t row, int direction) {
  const double shown = grid.NumberAt(row, direction + 1);
  return grid.TextAt(row, direction) == "贷" ? -shown : shown;
}

std::vector<int> columnsNamed(const CTzGrid& grid, std::string_view caption) {
  std::vector<int> found;
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (grid.Columns()[static_cast<std::size_t>(column)].caption == caption) found.push_back(column);
  }
  return found;
}

// A balance table in amounts.
class TableRows {
 public:
  explicit TableRows(const ComputedReport& table)
      : table_(table),
        grid_(table.grid),
        opening_(columnsNamed(grid_, "方向").at(0)),
        debit_(columnsNamed(grid_, "借方").at(0)),
        closing_(columnsNamed(grid_, "方向").at(1)) {}

  [[nodiscard]] double closing(std::int64_t row) const { return signedAmount(grid_, row, closing_); }

  void check() {
    ASSERT_GT(grid_.GetRows(), 0);
    ASSERT_EQ(table_.subjects.size(), grid_.GetRows());
    for (std::int64_t row = 0; row < grid_.GetRows(); ++row) {
      SCOPED_TRACE(row);
      const auto figures = of(row);
      EXPECT_NEAR(figures[0] + figures[1] - figures[2], closing(row), nearEnough);
      EXPECT_FALSE(table_.subjects.line(row));
      switch (grid_.RowKindAt(row)) {
        case RowKind::line:
          add(group_, figures);
          if (!head_) add(all_, figures);
          break;
        case RowKind::heading:
          endHead();
          head_ = figures;
          add(all_, figures);
          break;
        case RowKind::subtotal:
          expect(group_, figures);
          group_ = {};
          break;
        default:
          EXPECT_EQ(row, grid_.GetRows() - 1);
          EXPECT_EQ(grid_.TextAt(row, 0), "合计");
          endHead();
          expect(all_, figures);
      }
    }
    EXPECT_EQ(grid_.RowKindAt(grid_.GetRows() - 1), RowKind::total);
  }

 private:
  using Figures = std::array<double, 3>;  // opening, debit, credit
  [[nodiscard]] Figures of(std::int64_t row) const {
    return {signedAmount(grid_, row, opening_), grid_.NumberAt(row, debit_), grid_.NumberAt(row, debit_ + 1)};
  }
  static void add(Figures& sums, const Figures& figures) {
    for (std::size_t i = 0; i < sums.size(); ++i) sums.at(i) += figures.at(i);
  }
  // The rows below a group's own row add up to it.
  void endHead() {
    if (head_) expect(group_, *head_);
    group_ = {};
  }
  static void expect(const Figures& sums, const Figures& figures) {
    for (std::size_t i = 0; i < sums.size(); ++i) EXPECT_NEAR(sums.at(i), figures.at(i), nearEnough);
  }

  const ComputedReport& table_;
  const CTzGrid& grid_;
  int opening_, debit_, closing_;
  Figures group_ = {}, all_ = {};
  std::optional<Figures> head_;
};

// What a detail ledger closes with: the whole of it, or the block about a subject.
class DetailClosings {
 public:
  DetailClosings(Reader& reader, const DetailTarget& target) : report_(ask(reader, target)) {}

  // The ledger may ask more of its account than the table does.
  [[nodiscard]] bool refused() const { return report_.report == 0; }
  // Accounts on which nothing was posted are not listed.
  [[nodiscard]] bool leavesOutOpenings() const {
    return static_cast<const DetailReport&>(*findReport(report_.report)).member.listed == Listed::postedAccounts;
  }

  [[nodiscard]] double last() const {
    const auto rows = report_.grid.GetRows();
    return rows == 0 ? 0 : at(rows - 1);
  }
  [[nodiscard]] std::optional<double> of(const Subject& subject) const {
    std::optional<double> found;
    for (std::int64_t row = 0; row < report_.grid.GetRows(); ++row) {
      const auto kind = report_.grid.RowKindAt(row);
      const bool closes = kind == RowKind::subtotal || kind == RowKind::total;
      if (closes && report_.subjects.of(row) == subject) found = at(row);
    }
    return found;
  }

 private:
  static ComputedReport ask(Reader& reader, const DetailTarget& target) {
    const auto* report = findReport(target.command);
    if (report == nullptr) throw std::runtime_error("no report " + std::to_string(target.command));
    Question question{report, target.conditions};
    question.request.set(ParameterKey::format, "金额式");
    auto outcome = reader.ask(question);
    auto* computed = std::get_if<ComputedReport>(&outcome);
    if (computed != nullptr) return std::move(*computed);
    EXPECT_EQ(std::get<Refusal>(outcome).about, ParameterKey::account);
    return {};
  }
  [[nodiscard]] double at(std::int64_t row) const {
    return signedAmount(report_.grid, row, columnsNamed(report_.grid, "方向").at(0));
  }

  ComputedReport report_;
};

class BalanceWalk : public DatabaseTest {
 protected:
  BalanceWalk() {
    createLedger(place_.address(), [](Connection& connection) { fillSample(connection, {}); });
    reader_.emplace(place_.address());
  }

  // Half of the year, in amounts; with unposted vouchers where the ledger behind counts those before the range alike.
  [[nodiscard]] Question ofHalfYear(Question question, bool unposted) const {
    const auto keys = parametersOf(*question.report);
    question.request.set(ParameterKey::format, "金额式");
    if (!unposted) question.request.clear(ParameterKey::unposted);
    if (std::ranges::find(keys, ParameterKey::from) == keys.end()) return question;
    question.request.set(ParameterKey::from, "4");
    question.request.set(ParameterKey::to, "9");
    return question;
  }

  // The question for each account that the dialog offers, and for some who have balances where it asks for a person.
  [[nodiscard]] std::vector<Question> variantsOf(const Question& question) {
    const auto keys = parametersOf(*question.report);
    const auto asksFor = [&](ParameterKey key) { return std::ranges::find(keys, key) != keys.end(); };
    std::vector<Question> questions = {question};
    if (asksFor(ParameterKey::person)) {
      questions.clear();
      const auto people = reader_->db().QRYGetData(
          "SELECT DISTINCT sDeptName, sName FROM AssAcc, Dept, Person WHERE Dept.lDeptId = AssAcc.lDeptId AND "
          "Person.lId = AssAcc.lPersonId ORDER BY sDeptName, sName LIMIT 4");
      for (int row = 0; row < people.rows; ++row) {
        questions.push_back(question);
        questions.back().request.set(ParameterKey::dept, people.at(row, 0));
        questions.back().request.set(ParameterKey::person, people.at(row, 1));
      }
    }
    if (!asksFor(ParameterKey::account) || takesSeveral(*question.report, ParameterKey::account)) return questions;
    std::vector<Question> ofAccounts;
    for (const auto& entry : offered(question.report->dialog, ParameterKey::account, {}, reader_->db())) {
      for (auto one : questions) {
        one.request.set(ParameterKey::account, CGetData::GetCode_Separator(entry.text));
        ofAccounts.push_back(std::move(one));
      }
    }
    return ofAccounts;
  }

  // What the report shows of the half year, where its conditions can be met.
  [[nodiscard]] std::optional<ComputedReport> shownOf(const Question& question, bool unposted) {
    auto outcome = reader_->ask(ofHalfYear(question, unposted));
    auto* shown = std::get_if<ComputedReport>(&outcome);
    return shown == nullptr ? std::nullopt : std::optional(std::move(*shown));
  }

  static DetailTarget leadsTo(const ReportDefinition& report, const ComputedReport& shown, std::int64_t row) {
    return std::get<DetailTarget>(report.detail(*shown.resolved, shown, row));
  }

  // A member's closing in the ledger behind; where its blocks are others, that of the ledger of the row's account.
  double closingBehind(const ReportDefinition& report, const ComputedReport& shown, std::int64_t row,
                       const DetailClosings& ledger) {
    const auto& subject = shown.subjects.of(row);
    if (const auto closing = ledger.of(subject)) return *closing;
    if (ledger.leavesOutOpenings()) return TableRows(shown).closing(row);
    const auto& whole = shown.subjects.of(shown.grid.GetRows() - 1);
    if (whole.account == 0 || whole.account == subject.account) return 0;
    auto target = leadsTo(report, shown, row);
    target.conditions.set(ParameterKey::account, CGetData(reader_->db()).GetCodeCode(subject.account));
    return DetailClosings(*reader_, target).of(subject).value_or(0);
  }

  // Both return how many rows they compared.
  int checkTable(const BalanceReport& report, const ComputedReport& shown) {
    const auto& grid = shown.grid;
    TableRows rows(shown);
    rows.check();
    EXPECT_TRUE(std::holds_alternative<Refusal>(report.detail(*shown.resolved, shown, grid.GetRows() - 1)))
        << "a total leads nowhere";
    std::optional<DetailClosings> ledger;
    Request ofLedger;
    int members = 0;
    const bool headed = report.member.groupingFor(*shown.resolved).headed;
    for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
      const auto kind = grid.RowKindAt(row);
      if (kind != RowKind::line && kind != RowKind::heading) continue;
      const auto answer = report.detail(*shown.resolved, shown, row);
      if (headed && kind == RowKind::line) {
        EXPECT_EQ(std::get<Refusal>(answer).text, "请选择项目记录!");
        continue;
      }
      if (std::holds_alternative<Refusal>(answer)) {
        EXPECT_EQ(grid.TextAt(row, 0), "") << "a row without department leads nowhere";
        continue;
      }
      const auto& target = std::get<DetailTarget>(answer);
      if (!ledger || ofLedger.values() != target.conditions.values()) ledger.emplace(*reader_, target);
      ofLedger = target.conditions;
      ++members;
      // Balances know no clerk: another source.
      if (report.member.opening == BalanceOpening::lines || ledger->refused()) continue;
      const double behind = headed ? ledger->last() : closingBehind(report, shown, row, *ledger);
      EXPECT_NEAR(rows.closing(row), behind, nearEnough) << "row " << row;
    }
    return members;
  }

  int checkPeriods(const ReportDefinition& report, const ComputedReport& shown) {
    const auto& grid = shown.grid;
    const int direction = columnsNamed(grid, "方向").at(0);
    double running = signedAmount(grid, 0, direction);
    EXPECT_EQ(grid.TextAt(0, 2), "上年结转");
    EXPECT_TRUE(std::holds_alternative<Refusal>(report.detail(*shown.resolved, shown, 0)));
    int periods = 0;
    for (std::int64_t row = 1; row < grid.GetRows(); ++row) {
      if (grid.RowKindAt(row) != RowKind::line) continue;
      running += grid.NumberAt(row, direction - 2) - grid.NumberAt(row, direction - 1);
      const double closing = signedAmount(grid, row, direction);
      EXPECT_NEAR(running, closing, nearEnough) << "row " << row;
      const DetailClosings month(*reader_, leadsTo(report, shown, row));
      if (month.refused()) continue;
      EXPECT_NEAR(month.last(), closing, nearEnough) << "row " << row;
      ++periods;
    }
    return periods;
  }

  TestPlace place_{GetParam()};
  std::optional<Reader> reader_;
};

TEST_P(BalanceWalk, TablesAgreeWithTheLedgersTheyLeadTo) {
  const auto tables = balanceReports();
  for (const auto& found : everyReport(*reader_)) {
    const auto table = std::ranges::find(tables, found.report->command, &BalanceReport::command);
    if (table == tables.end()) continue;
    int members = 0;
    for (const auto& question : variantsOf(found)) {
      SCOPED_TRACE(std::to_string(found.report->command) + " " + question.request.text(ParameterKey::account));
      const auto shown = shownOf(question, (*table)->member.earlierUnposted);
      if (shown) members += checkTable(**table, *shown);
    }
    EXPECT_GT(members, 1) << found.report->command;
  }
}

TEST_P(BalanceWalk, PeriodsAgreeWithTheLedgersOfTheirMonths) {
  const auto tables = periodReports();
  for (const auto& found : everyReport(*reader_)) {
    if (std::ranges::find(tables, found.report->command, &PeriodReport::command) == tables.end()) continue;
    int periods = 0;
    for (const auto& question : variantsOf(found)) {
      SCOPED_TRACE(std::to_string(found.report->command) + " " + question.request.text(ParameterKey::account));
      if (const auto shown = shownOf(question, false)) periods += checkPeriods(*question.report, *shown);
    }
    EXPECT_GT(periods, 1) << found.report->command;
  }
}

TZ_ON_BOTH_DATABASES(BalanceWalk);

}  // namespace
}  // namespace tz::test
