#include "core/ledger/sub_account_columns.h"

#include <algorithm>
#include <cmath>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

// The accounts one grade below that carry the flag, in code order.
std::vector<CodeInfo> subAccounts(const CQnCwDB& db, const CodeInfo& parent, char flag) {
  auto found = db.Code_GetInfo(Sql("byGrade = ? ORDER BY sCode", parent.byGrade + 1));
  std::erase_if(
      found, [&](const CodeInfo& account) { return !account.sCode.starts_with(parent.sCode) || !account.keeps(flag); });
  return found;
}

}  // namespace

SubAccountColumns::SubAccountColumns(const CQnCwDB& db, const Conditions& conditions, char flag)
    : conditions_(conditions) {
  for (auto& account : subAccounts(db, conditions.account, flag)) {
    ownColumn_.emplace(account.lId, columns_.size());
    columns_.push_back({.account = account.lId, .code = std::move(account.sCode), .name = std::move(account.sName)});
  }
  columns_.emplace_back();
}

void SubAccountColumns::addTo(CTzGrid& grid) {
  constexpr int width = 100;
  for (auto& column : columns_) {
    if (column.account == 0) continue;
    column.column = grid.GetCols();
    CTzGridControl::AddCol(grid, column.code + " " + column.name, width, ColumnKind::repeatedAmount);
  }
}

void SubAccountColumns::writeLine(CTzGrid& grid, std::int64_t row, const LedgerLine& line) {
  const int column = columns_[shownIn(line.account)].column;
  const bool debitParent = conditions_.account.bDirect != 0;
  if (debitParent && line.debit.amount != 0) grid.SetNumber(row, column, line.debit.amount);
  if (line.credit.amount != 0) grid.SetNumber(row, column, line.credit.amount);
}

void SubAccountColumns::add(const LedgerLine& line) {
  auto& column = columns_[summedIn(line.account)];
  const double net = line.debit.amount - line.credit.amount;
  const double amount = conditions_.analysis == Analysis::amount ? std::abs(net) : net;
  column.month += amount;
  column.year += amount;
}

void SubAccountColumns::writeMonth(CTzGrid& grid, std::int64_t row) {
  for (auto& column : columns_) {
    writeSum(grid, row, column, column.month);
    column.month = 0;
  }
}

void SubAccountColumns::writeYear(CTzGrid& grid, std::int64_t row) const {
  for (const auto& column : columns_) writeSum(grid, row, column, column.year);
}

std::size_t SubAccountColumns::shownIn(Id account) {
  if (const auto known = shownIn_.find(account); known != shownIn_.end()) return known->second;
  std::size_t place = 0;
  while (place + 1 < columns_.size() && !matches(columns_[place], account)) ++place;
  shownIn_.emplace(account, place);
  return place;
}

std::size_t SubAccountColumns::summedIn(Id account) const {
  const auto found = ownColumn_.find(account);
  return found == ownColumn_.end() ? columns_.size() - 1 : found->second;
}

// The same account, or the code of the one of lower grade begins the code of the other.
bool SubAccountColumns::matches(const LedgerColumn& column, Id account) const {
  if (column.account == account) return true;
  const auto* one = conditions_.data->GetCODEINFOByID(account);
  const auto* other = conditions_.data->GetCODEINFOByID(column.account);
  if (one == nullptr || other == nullptr) return false;
  if (one->byGrade > other->byGrade || (one->byGrade == other->byGrade && one->lId > other->lId)) {
    std::swap(one, other);
  }
  return other->sCode.starts_with(one->sCode);
}

// Credit-direction parents show their sums with the other sign.
void SubAccountColumns::writeSum(CTzGrid& grid, std::int64_t row, const LedgerColumn& column, double sum) const {
  if (column.account == 0 || sum == 0) return;
  grid.SetNumber(row, column.column, conditions_.account.bDirect != 0 ? sum : -sum);
}

}  // namespace tz
