#include "core/ledger/period_report.h"

#include <array>
#include <fmt/format.h>

#include "core/ledger/credit_limits.h"
#include "core/ledger/direction_text.h"
#include "core/ledger/price_and_rate.h"
#include "core/reports/cancellation.h"

namespace tz {
namespace {

constexpr int lastPeriodOfYear = 12;

// The periods of one member.
class PeriodBalances {
 public:
  PeriodBalances(const PeriodMember& member, Session& session, const Conditions& conditions)
      : connection_(session.db.Current()), steps_(session) {
    const PeriodRange range{conditions.from, conditions.to};
    addRecords(member, conditions, range);
    if (conditions.unposted) addUnposted(member, conditions, range);
  }

  // Debit-positive, that of the first period which has a record.
  [[nodiscard]] const SideFigures& opening() const { return whole_.opening; }
  // What moves in a period; null for one without record and line.
  [[nodiscard]] const BalanceFigures* moved(int period) const {
    const auto& one = periods_.at(static_cast<std::size_t>(period));
    return one.there ? &one.figures : nullptr;
  }

 private:
  void addRecords(const PeriodMember& member, const Conditions& conditions, PeriodRange range) {
    RecordRows row(member.selects, {}, conditions, false);
    const auto records = connection_.query(row.statement(range, member.order.records));
    while (records->next()) {
      row.read(*records);
      whole_.addRecord(row.record, row.period);
      auto& figures = at(row.period);
      figures.debit += row.record.debit;
      figures.credit += row.record.credit;
      steps_.step();
    }
  }

  void addUnposted(const PeriodMember& member, const Conditions& conditions, PeriodRange range) {
    LineRows row(member.selects, {}, conditions);
    const auto lines = connection_.query(row.statement(Book::unposted, range, member.order.lines));
    while (lines->next()) {
      row.read(*lines);
      auto& figures = at(row.period);
      (row.debit ? figures.debit : figures.credit) += row.figures;
      steps_.step();
    }
  }

  BalanceFigures& at(int period) {
    auto& one = periods_.at(static_cast<std::size_t>(period));
    one.there = true;
    return one.figures;
  }

  struct Period {
    bool there = false;
    BalanceFigures figures;
  };

  Connection& connection_;
  Steps steps_;
  BalanceFigures whole_;
  std::array<Period, lastPeriodOfYear + 1> periods_;
};

class PeriodRows {
 public:
  PeriodRows(const Conditions& conditions, const Subject& subject, ComputedReport& computed)
      : conditions_(conditions),
        subject_(subject),
        grid_(computed.grid),
        subjects_(computed.subjects),
        layout_(amountLayout(conditions.format)) {
    addLedgerColumns(grid_, layout_, threeColumnCaptions);
    limit_ = addLimitColumns(grid_, conditions);  // NOLINT(cppcoreguidelines-prefer-member-initializer): stands behind
  }

  void writeOpening(std::string_view caption, const LedgerBalance& balance) {
    const auto row = append(RowKind::opening, caption, balance);
    writeBalance(grid_, row, layout_.opening, directionText(balance.amount, directions::carriedForward), balance);
  }
  std::int64_t write(RowKind kind, const LedgerLine& moved, const LedgerBalance& balance) {
    const auto row = append(kind, moved.summary, balance);
    writeMovements(grid_, row, layout_, moved);
    writeBalance(grid_, row, layout_.balance, directionText(balance.amount, directions::running), balance);
    return row;
  }

 private:
  std::int64_t append(RowKind kind, std::string_view caption, const LedgerBalance& balance) {
    constexpr int summaryColumn = 2;
    const auto row = grid_.GetRows();
    grid_.SetRows(row + 1);
    grid_.SetRowKind(row, kind);
    grid_.SetText(row, summaryColumn, caption);
    subjects_.set(row, subjects_.keep(subject_), RowSubjects::wholeReport);
    writeLimit(grid_, row, limit_, subject_, balance.amount, conditions_);
    return row;
  }

  const Conditions& conditions_;
  const Subject& subject_;
  CTzGrid& grid_;
  RowSubjects& subjects_;
  const AmountLayout& layout_;
  int limit_ = -1;
};

void move(LedgerBalance& balance, const BalanceFigures& moved) {
  balance.quantity += moved.debit.quantity - moved.credit.quantity;
  balance.foreignAmount += moved.debit.foreign - moved.credit.foreign;
  balance.amount += moved.debit.amount - moved.credit.amount;
}

}  // namespace

void computePeriods(const ReportDefinition& report, Session& session, const Conditions& conditions,
                    ComputedReport& computed) {
  const auto& member = static_cast<const PeriodReport&>(report).member;
  const PeriodBalances balances(member, session, conditions);
  const auto subject = wholeSubject(report, conditions);
  PeriodRows rows(conditions, subject, computed);
  const auto& opening = balances.opening();
  LedgerBalance balance;
  balance.quantity = opening.quantity;
  balance.foreignAmount = opening.foreign;
  balance.amount = opening.amount;
  recomputePriceAndRate(balance, conditions.amounts);
  rows.writeOpening("上年结转", balance);
  LedgerLine year;
  year.summary = "本年累计";
  for (int period = conditions.from; period <= conditions.to; ++period) {
    const auto* moved = balances.moved(period);
    if (moved == nullptr) continue;
    move(balance, *moved);
    recomputePriceAndRate(balance, conditions.amounts);
    LedgerLine month;
    month.summary = "本月合计";
    month.debit = moved->debit;
    month.credit = moved->credit;
    const auto row = rows.write(RowKind::line, month, balance);
    computed.grid.SetText(row, 0, fmt::format("{:4}.{:02}", session.logon.year, period));
    if (!member.yearTotals) continue;
    year.debit += moved->debit;
    year.credit += moved->credit;
    rows.write(RowKind::yearTotal, year, balance);
    if (conditions.from > 1 && computed.grid.notices.empty()) {
      computed.grid.notices.push_back(
          {fmt::format("本年累计自{}月起累计。", conditions.from), Notice::Weight::warning});
    }
  }
}

void addPeriodColumns(const ReportDefinition& /*report*/, const Conditions& conditions, CTzGrid& grid) {
  addLedgerColumns(grid, amountLayout(conditions.format), threeColumnCaptions);
  (void)addLimitColumns(grid, conditions);
}

std::vector<const PeriodReport*> periodReports() {
  std::vector<const PeriodReport*> all;
  for (const auto ofArea : {personPeriods(), unitPeriods(), departmentPeriods(), projectPeriods()})
    all.insert(all.end(), ofArea.begin(), ofArea.end());
  return all;
}

}  // namespace tz
