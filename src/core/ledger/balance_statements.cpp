#include "core/ledger/balance_statements.h"

#include <fmt/format.h>

namespace tz {
namespace {

// Behind account and period.
constexpr int firstChainColumn = 2;
constexpr int chainColumns = 5;
constexpr std::string_view chainNames = ", s.lDeptId, s.lPersonId, s.lEnterId, s.lItemId, s.sItemId";

}  // namespace

FigureColumns::FigureColumns(const Conditions& conditions, int first)
    : quantities_(traitsOf(conditions.format).quantities || conditions.hideZero),
      foreign_(traitsOf(conditions.format).foreign || conditions.hideZero),
      next_(first) {}

std::string FigureColumns::add(std::string_view amount, std::string_view quantity, std::string_view foreign,
                               SideFigures& into) {
  std::string names;
  const auto take = [&](std::string_view column, double& figure) {
    names += fmt::format(", s.{}", column);
    places_.emplace_back(next_++, &figure);
  };
  take(amount, into.amount);
  if (quantities_) take(quantity, into.quantity);
  if (foreign_) take(foreign, into.foreign);
  return names;
}

void FigureColumns::read(const Cursor& row) {
  for (const auto& [column, figure] : places_) *figure = row.real(column);
}

RecordRows::RecordRows(const Selection& selection, const GroupLevels& levels, const Conditions& conditions, bool chains)
    : selection_(selection),
      conditions_(conditions),
      chains_(chains),
      figures_(conditions, firstChainColumn + (chains ? chainColumns : 0)),
      names_(names()),
      groups_(levels, figures_.next()) {}

std::string RecordRows::names() {
  std::string all = "s.lCodeId, s.byPeroid";
  if (chains_) all += chainNames;
  all += figures_.add("mBegin", "dBegin", "mBeginFor", record.opening);
  all += figures_.add("mDebit", "dDebit", "mDebitFor", record.debit);
  all += figures_.add("mCredit", "dCredit", "mCreditFor", record.credit);
  return all;
}

Sql RecordRows::statement(PeriodRange periods, std::string_view order) const {
  return Sql("SELECT " + names_ + groups_.ofBalances() + " FROM AssAcc s WHERE ") +
         balanceFilter(selection_, conditions_) +
         Sql(fmt::format(" AND byPeroid BETWEEN ? AND ? ORDER BY {}, s.lId", order), periods.first, periods.last);
}

bool RecordRows::read(const Cursor& row) {
  figures_.read(row);
  account_ = row.integer(0);
  if (account_ != knownAccount_) {
    const auto* account = conditions_.data->GetCODEINFOByID(account_);
    sign_ = account == nullptr || account->bDirect != 0 ? 1 : -1;
    knownAccount_ = account_;
  }
  record.opening = record.opening.times(sign_);
  period = static_cast<int>(row.integer(1));
  return groups_.read(row, key);
}

RecordChain RecordRows::chain(const Cursor& row) const {
  int column = firstChainColumn;
  RecordChain chain;
  chain.account = account_;
  for (auto* id : {&chain.dept, &chain.person, &chain.unit, &chain.item}) *id = row.integer(column++);
  chain.itemClass = row.text(column);
  return chain;
}

LineRows::LineRows(const Selection& selection, const GroupLevels& levels, const Conditions& conditions)
    : selection_(selection),
      conditions_(conditions),
      columns_(conditions, 2),
      names_("s.bDirect, m.byPeroid" + columns_.add("mMoney", "dAmount", "mForeign", figures)),
      groups_(levels, columns_.next()) {}

Sql LineRows::statement(Book book, PeriodRange periods, std::string_view order) const {
  return lineStatement({.book = book,
                        .filter = lineFilter(selection_, conditions_),
                        .firstPeriod = periods.first,
                        .lastPeriod = periods.last,
                        .order = std::string(order)},
                       names_ + groups_.ofLines());
}

bool LineRows::read(const Cursor& row) {
  columns_.read(row);
  debit = row.integer(0) != 0;
  period = static_cast<int>(row.integer(1));
  return groups_.read(row, key);
}

}  // namespace tz
