#include "core/ledger/balance_reader.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/reports/cancellation.h"

namespace tz {
namespace {

// Classes are looked up by their units: that is cheaper than a look into the archive for each record.
GroupLevels levelsToRead(const BalanceMember& member, const Conditions& conditions) {
  const auto& levels = member.groupingFor(conditions).levels;
  std::vector<GroupLevel> read(levels.begin(), levels.end());
  for (auto& level : read) {
    if (level.entity == Entity::unitClass) level.entity = Entity::unit;
  }
  return {read};
}

// The periods whose records count; the latest ones before the range may be of any period, the entered opening's too.
PeriodRange recordPeriods(const BalanceMember& member, const Conditions& conditions) {
  if (member.opening == BalanceOpening::firstRecord) return {conditions.from, conditions.to};
  return {0, std::max(conditions.from, conditions.to)};
}

RecordRows recordRows(const BalanceMember& member, const Conditions& conditions) {
  return {member.selects, levelsToRead(member, conditions), conditions, member.opening == BalanceOpening::latestRecord};
}

// What a record or line counts in.
struct Counted {
  BalanceFigures* member = nullptr;
  BalanceFigures* group = nullptr;  // null: groups have no figures of their own

  template <class Count>
  void each(Count count) const {
    if (member != nullptr) count(*member);
    if (group != nullptr) count(*group);
  }
};

class BalanceReader {
 public:
  BalanceReader(const BalanceMember& member, Session& session, const Conditions& conditions)
      : member_(member),
        classLevel_(levelOf(member.groupingFor(conditions).levels, Entity::unitClass)),
        headed_(member.groupingFor(conditions).headed),
        connection_(session.db.Current()),
        conditions_(conditions),
        before_{0, conditions.from - 1},
        range_{conditions.from, conditions.to},
        steps_(session) {}

  TableBalances read() {
    switch (member_.opening) {
      case BalanceOpening::firstRecord:
        addRecords();
        break;
      case BalanceOpening::latestRecord:
        addRecordsFromLatest();
        break;
      case BalanceOpening::lines:
        addLines(Book::posted, before_, moveOpening);
        addLines(Book::posted, range_, move);
        break;
    }
    if (conditions_.unposted) {
      if (member_.earlierUnposted) addLines(Book::unposted, before_, moveOpeningAmount);
      addLines(Book::unposted, range_, move);
    }
    return std::move(balances_);
  }

 private:
  using Move = void (*)(BalanceFigures&, const LineRows&);
  static void move(BalanceFigures& balance, const LineRows& line) {
    (line.debit ? balance.debit : balance.credit) += line.figures;
  }
  static void moveOpening(BalanceFigures& balance, const LineRows& line) {
    balance.opening += line.figures.times(line.debit ? 1 : -1);
  }
  // Quantities and foreign amounts of earlier unposted lines stay out of the opening.
  static void moveOpeningAmount(BalanceFigures& balance, const LineRows& line) {
    balance.opening.amount += line.debit ? line.figures.amount : -line.figures.amount;
  }

  void addRecords() {
    auto row = recordRows(member_, conditions_);
    const auto records = connection_.query(row.statement(recordPeriods(member_, conditions_), member_.order.records));
    Counted counted;
    while (records->next()) {
      if (row.read(*records) || counted.member == nullptr) counted = of(row.key);
      counted.each([&](BalanceFigures& balance) { balance.addRecord(row.record, row.period); });
      steps_.step();
    }
  }

  // The records of a member stand together, those of one account and dimension in the order of their periods.
  void addRecordsFromLatest() {
    auto row = recordRows(member_, conditions_);
    const auto records = connection_.query(row.statement(recordPeriods(member_, conditions_), member_.order.records));
    std::map<RecordChain, SideFigures> latest;
    Counted counted;
    const auto open = [&] {
      for (const auto& ofChain : latest) {
        counted.each([&](BalanceFigures& balance) { balance.opening += ofChain.second; });
      }
      latest.clear();
    };
    while (records->next()) {
      if (row.read(*records) || counted.member == nullptr) {
        open();
        counted = of(row.key);
      }
      if (row.period <= range_.first) {
        latest[row.chain(*records)] = row.period == range_.first ? row.record.opening : row.record.closing();
      }
      if (row.period >= range_.first && row.period <= range_.last) {
        counted.each([&](BalanceFigures& balance) {
          balance.debit += row.record.debit;
          balance.credit += row.record.credit;
        });
      }
      steps_.step();
    }
    open();
  }

  void addLines(Book book, PeriodRange periods, Move move) {
    LineRows row(member_.selects, levelsToRead(member_, conditions_), conditions_);
    const auto lines = connection_.query(row.statement(book, periods, member_.order.lines));
    Counted counted;
    while (lines->next()) {
      if (row.read(*lines) || counted.member == nullptr) counted = of(row.key);
      counted.each([&](BalanceFigures& balance) { move(balance, row); });
      steps_.step();
    }
  }

  Counted of(GroupKey key) {
    if (classLevel_) {
      auto& part = key.parts.at(*classLevel_);
      part.id = conditions_.data->GetEnterClassIdByEnterId(part.id);
    }
    if (member_.byCode) key.parts.front().text = conditions_.data->GetCodeCode(key.parts.front().id);
    Counted counted{.member = &balances_.members[key]};
    if (headed_) counted.group = &balances_.groups[GroupKey{{key.parts[0]}}];
    return counted;
  }

  const BalanceMember& member_;
  std::optional<std::size_t> classLevel_;
  bool headed_;
  Connection& connection_;
  const Conditions& conditions_;
  PeriodRange before_;
  PeriodRange range_;
  Steps steps_;
  TableBalances balances_;
};

}  // namespace

TableBalances readBalances(const BalanceMember& member, Session& session, const Conditions& conditions) {
  return BalanceReader(member, session, conditions).read();
}

Sql recordStatement(const BalanceMember& member, const Conditions& conditions) {
  return recordRows(member, conditions).statement(recordPeriods(member, conditions), member.order.records);
}

}  // namespace tz
