#include "core/ledger/opening_balances.h"

#include "core/ledger/member_filter.h"

namespace tz {
namespace {

constexpr int firstPeriodOfYear = 1;

class OpeningReader {
 public:
  OpeningReader(const DetailMember& member, Session& session, const Conditions& conditions)
      : member_(member), connection_(session.db.Current()), conditions_(conditions) {}

  OpeningBalances read() {
    const bool yearStart = member_.openingSource == OpeningSource::yearStart;
    addRecords(yearStart ? firstPeriodOfYear : conditions_.from);
    if (yearStart) addEarlierPosted();
    if (conditions_.unposted) addEarlierUnposted();
    return std::move(balances_);
  }

 private:
  void addRecords(int period) {
    const GroupColumns groups(member_, 4);
    auto statement = Sql("SELECT lCodeId, dBegin, mBeginFor, mBegin" + groups.names("") + " FROM AssAcc WHERE ") +
                     memberFilter(member_, conditions_) + Sql(" AND byPeroid = ?", period);
    if (!member_.openingFilter.empty()) statement += Sql(" AND " + std::string(member_.openingFilter));
    const auto rows = connection_.query(statement + " ORDER BY lId");
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
    const GroupColumns groups(member_, 4);
    const LineQuery earlier{Book::posted, memberFilter(member_, conditions_), firstPeriodOfYear, conditions_.from - 1,
                            member_.postedOrder};
    const auto rows =
        connection_.query(lineStatement(earlier, "s.bDirect, s.dAmount, s.mForeign, s.mMoney" + groups.names("s.")));
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
    const GroupColumns groups(member_, 2);
    const LineQuery earlier{Book::unposted, memberFilter(member_, conditions_), 0, conditions_.from - 1,
                            member_.unpostedOrder};
    const auto rows = connection_.query(lineStatement(earlier, "s.bDirect, s.mMoney" + groups.names("s.")));
    while (rows->next()) {
      balanceOf(groups, *rows).amount += rows->integer(0) != 0 ? rows->real(1) : -rows->real(1);
    }
  }

  LedgerBalance& balanceOf(const GroupColumns& groups, const Cursor& row) {
    groups.read(row, key_);
    return balances_[key_];
  }

  const DetailMember& member_;
  Connection& connection_;
  const Conditions& conditions_;
  GroupKey key_;
  OpeningBalances balances_;
};

}  // namespace

OpeningBalances readOpenings(const DetailMember& member, Session& session, const Conditions& conditions) {
  return OpeningReader(member, session, conditions).read();
}

}  // namespace tz
