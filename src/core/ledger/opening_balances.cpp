#include "core/ledger/opening_balances.h"

namespace tz {
namespace {

constexpr int firstPeriodOfYear = 1;

class OpeningReader {
 public:
  OpeningReader(const Selection& selection, Session& session, const Conditions& conditions)
      : selection_(selection), connection_(session.db.Current()), conditions_(conditions) {}

  OpeningBalances read(OpeningSource source) {
    const bool yearStart = source == OpeningSource::yearStart;
    addRecords(yearStart ? firstPeriodOfYear : conditions_.from);
    if (yearStart) addEarlierPosted();
    if (conditions_.unposted) addEarlierUnposted();
    return std::move(balances_);
  }

 private:
  void addRecords(int period) {
    const GroupColumns groups(selection_.groups, 4);
    const auto rows = connection_.query(
        Sql("SELECT lCodeId, dBegin, mBeginFor, mBegin" + groups.ofBalances() + " FROM AssAcc s WHERE ") +
        balanceFilter(selection_, conditions_) + Sql(" AND byPeroid = ? ORDER BY lId", period));
    while (rows->next()) {
      const auto* account = conditions_.data->GetCODEINFOByID(rows->integer(0));
      const double sign = account == nullptr || account->bDirect != 0 ? 1 : -1;
      auto& balance = balanceOf(groups, *rows);
      balance.quantity += sign * rows->real(1);
      balance.foreignAmount += sign * rows->real(2);
      balance.amount += sign * rows->real(3);
    }
  }

  void addEarlierPosted() {
    const GroupColumns groups(selection_.groups, 4);
    const auto earlier = earlierLines(Book::posted, firstPeriodOfYear);
    const auto rows =
        connection_.query(lineStatement(earlier, "s.bDirect, s.dAmount, s.mForeign, s.mMoney" + groups.ofBalances()));
    while (rows->next()) {
      const double sign = rows->integer(0) != 0 ? 1 : -1;
      auto& balance = balanceOf(groups, *rows);
      balance.quantity += sign * rows->real(1);
      balance.foreignAmount += sign * rows->real(2);
      balance.amount += sign * rows->real(3);
    }
  }

  // Amounts only: quantities and foreign amounts of earlier unposted lines stay out of the opening. A balance knows no
  // clerk, so the lines of every clerk move it.
  void addEarlierUnposted() {
    const GroupColumns groups(selection_.groups, 2);
    const auto earlier = earlierLines(Book::unposted, 0);
    const auto rows = connection_.query(lineStatement(earlier, "s.bDirect, s.mMoney" + groups.ofBalances()));
    while (rows->next()) {
      balanceOf(groups, *rows).amount += rows->integer(0) != 0 ? rows->real(1) : -rows->real(1);
    }
  }

  // The lines of the periods before the first one asked for.
  [[nodiscard]] LineQuery earlierLines(Book book, int firstPeriod) const {
    return {.book = book,
            .filter = commonFilter(selection_, conditions_),
            .firstPeriod = firstPeriod,
            .lastPeriod = conditions_.from - 1,
            .order = lineOrder(selection_, book)};
  }

  LedgerBalance& balanceOf(const GroupColumns& groups, const Cursor& row) {
    groups.read(row, key_);
    return balances_[key_];
  }

  const Selection& selection_;
  Connection& connection_;
  const Conditions& conditions_;
  GroupKey key_;
  OpeningBalances balances_;
};

}  // namespace

OpeningBalances readOpenings(const Selection& selection, OpeningSource source, Session& session,
                             const Conditions& conditions) {
  return OpeningReader(selection, session, conditions).read(source);
}

}  // namespace tz
