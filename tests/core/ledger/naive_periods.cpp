#include <cmath>
#include <fmt/format.h>
#include <map>

#include "core/ledger/naive_families.h"
#include "core/ledger/naive_format.h"
#include "core/ledger/naive_lines.h"

namespace tz::test::naive {
namespace {

class Periods {
 public:
  Periods(const Ledger& ledger, const Report& report, const Question& question)
      : ledger_(ledger), report_(report), question_(question), chosen_(choose(ledger, report, question)) {}

  Answer run() {
    answer_.refused = chosen_.refused;
    if (answer_.refused) return answer_;
    format_ = formatOf(ledger_, report_, question_, chosen_);
    answer_.format = format_.name;
    answer_.unit = format_.unit;
    answer_.wrongUse = format_.wrongUse;
    if (answer_.wrongUse) return answer_;
    read();
    write();
    if (report_.yearTotals && question_.from != 1 && answer_.rows.size() > 1) answer_.notices.push_back(question_.from);
    if (question_.to < question_.from) answer_.notices.push_back(0);
    return answer_;
  }

 private:
  void read() {
    const Lines lines(ledger_, report_, question_, chosen_);
    const auto records = lines.records(question_.from, question_.to);
    int first = 99;
    for (const auto& record : records) first = record.period < first ? record.period : first;
    for (const auto& record : records) {
      if (record.period == first) balance_.add(record.opening);
      moved_[record.period].add(record.moved);
    }
    if (!question_.unposted) return;
    for (const auto& entry : lines.unposted(question_.from, question_.to)) {
      moved_[entry.head.byPeroid].add(entry.figures);
    }
  }

  void write() {
    format_.keeps.priceAndRate(balance_);
    const double carried = balance_.money;
    add(RowKind::opening, "", {}, std::fabs(carried) < 0.00001 ? "平" : carried > 0 ? "借" : "贷", Place::opening);
    Figures year;
    for (const auto& [period, movement] : moved_) {
      balance_.move(movement);
      format_.keeps.priceAndRate(balance_);
      const double money = balance_.money;
      const std::string direction = std::fabs(money) < 0.0001 ? "平" : money > 0.0001 ? "借" : "贷";
      add(RowKind::line, fmt::format("2006.{:02}", period), movement, direction, Place::running);
      year.add(movement);
      if (report_.yearTotals) add(RowKind::yearTotal, "", year, direction, Place::running);
    }
  }

  void add(RowKind kind, const std::string& date, Figures figures, const std::string& direction, Place place) {
    figures.price = figures.rate = 0;
    Row row;
    row.kind = kind;
    row.cells = {date.empty() ? nlohmann::json() : nlohmann::json(date), nullptr, "caption"};
    for (const auto& cell : figureCells(format_.name, place, figures, direction, balance_)) row.cells.push_back(cell);
    if (report_.limits && question_.limits) {
      const double limit = chosen_.unit.mCredit;
      const double beyond = std::fabs(balance_.money) - limit;
      row.cells.push_back(limit == 0 ? nlohmann::json() : nlohmann::json(limit));
      row.cells.push_back(limit == 0 || beyond <= 0 ? nlohmann::json() : nlohmann::json(beyond));
    }
    answer_.rows.push_back(row);
  }

  const Ledger& ledger_;
  const Report& report_;
  const Question& question_;
  const Chosen chosen_;
  Format format_;
  Balance balance_;
  std::map<int, Figures> moved_;
  Answer answer_;
};

}  // namespace

Answer periodTable(const Ledger& ledger, const Report& report, const Question& question) {
  return Periods(ledger, report, question).run();
}

Answer answerTo(const Ledger& ledger, const Question& question) {
  const auto& report = *findNaive(question.report);
  if (report.family == Family::balance) return balanceTable(ledger, report, question);
  return (report.family == Family::periods ? periodTable : detailLedger)(ledger, report, question);
}

}  // namespace tz::test::naive
