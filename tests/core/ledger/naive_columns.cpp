#include "core/ledger/naive_columns.h"

#include <algorithm>
#include <cmath>

namespace tz::test::naive {

SubAccountColumns::SubAccountColumns(const Ledger& ledger, const CodeInfo& parent, char flag, bool absolute,
                                     std::size_t firstColumn)
    : ledger_(ledger), debit_(parent.bDirect != 0), absolute_(absolute), firstColumn_(firstColumn) {
  for (const auto& account : ledger.accounts) {
    const bool below = account.sCode.starts_with(parent.sCode) && account.byGrade == parent.byGrade + 1;
    if (below && account.keeps(flag)) columns_.push_back({account});
  }
  std::sort(columns_.begin(), columns_.end(),
            [](const Column& a, const Column& b) { return a.account.sCode < b.account.sCode; });
}

// The first column whose account is the line's, above it or below it; without one the date column.
std::size_t SubAccountColumns::placeOf(Id account) const {
  std::string code;
  for (const auto& candidate : ledger_.accounts) {
    if (candidate.lId == account) code = candidate.sCode;
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const auto& own = columns_[i].account.sCode;
    if (code.starts_with(own) || own.starts_with(code)) return firstColumn_ + i;
  }
  return 0;
}

void SubAccountColumns::line(Id account, const Figures& figures, Row& row) {
  widen(row);
  const auto place = placeOf(account);
  if (debit_ && figures.debit.money != 0) row.cells[place] = figures.debit.money;
  if (figures.credit.money != 0) row.cells[place] = figures.credit.money;
  const double net = figures.debit.money - figures.credit.money;
  for (auto& column : columns_) {
    if (column.account.lId != account) continue;
    column.month += absolute_ ? std::fabs(net) : net;
    column.year += absolute_ ? std::fabs(net) : net;
  }
}

void SubAccountColumns::monthTotal(Row& row) {
  total(row, &Column::month);
  for (auto& column : columns_) column.month = 0;
}

void SubAccountColumns::yearTotal(Row& row) const { total(row, &Column::year); }

void SubAccountColumns::total(Row& row, double Column::*sum) const {
  widen(row);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const double shown = debit_ ? columns_[i].*sum : -(columns_[i].*sum);
    if (shown != 0) row.cells[firstColumn_ + i] = shown;
  }
}

}  // namespace tz::test::naive
