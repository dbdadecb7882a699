#include "core/ledger/sub_account_columns.h"

#include <algorithm>
#include <cmath>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

// "sCode Like '%s%%' AND byGrade = %d AND sAssBook Like '%%A%%'", in code order.
std::vector<CodeInfo> subAccounts(const CQnCwDB& db, const CodeInfo& parent, char flag) {
  auto found = db.Code_GetInfo(Sql("byGrade = ? ORDER BY sCode", parent.byGrade + 1));
  std::erase_if(
      found, [&](const CodeInfo& account) { return !account.sCode.starts_with(parent.sCode) || !account.keeps(flag); });
  return found;
}

SideFigures net(const LedgerLine& line, bool absolute) {
  SideFigures figures{line.debit.quantity - line.credit.quantity, line.debit.foreign - line.credit.foreign,
                      line.debit.amount - line.credit.amount};
  if (absolute) figures = {std::abs(figures.quantity), std::abs(figures.foreign), std::abs(figures.amount)};
  return figures;
}

}  // namespace

SubAccountColumns::SubAccountColumns(const CQnCwDB& db, const Conditions& conditions, char flag)
    : conditions_(conditions) {
  for (auto& account : subAccounts(db, conditions.account, flag)) {
    ownColumn_.emplace(account.lId, columns_.size());
    columns_.push_back({account.lId, 0, std::move(account.sCode), std::move(account.sName), {}, {}});
  }
  columns_.emplace_back();
}

void SubAccountColumns::addTo(CTzGrid& grid) {
  constexpr int width = 100;
  constexpr int oneAmount = 0;
  for (auto& column : columns_) {
    if (column.account == 0) continue;
    column.column = grid.GetCols();
    CTzGridControl::AddCol(grid, column.code + " " + column.name, width, oneAmount);
    grid.SetMovement(column.column, Movement::repeated);
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
  const auto figures = net(line, conditions_.absoluteSums);
  column.month.figures += figures;
  column.year.figures += figures;
}

void SubAccountColumns::writeMonth(CTzGrid& grid, std::int64_t row) {
  for (auto& column : columns_) {
    if (column.account == 0) continue;
    formPrices(column.month);
    writeSum(grid, row, column, column.month.figures.amount);
    column.month = {};
  }
  columns_.back().month = {};
}

void SubAccountColumns::writeYear(CTzGrid& grid, std::int64_t row) {
  for (auto& column : columns_) {
    if (column.account == 0) continue;
    formPrices(column.year);
    writeSum(grid, row, column, column.year.figures.amount);
  }
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

// No test for 0: an infinite or undefined price or rate is kept as it is.
void SubAccountColumns::formPrices(ColumnSum& sum) const {
  const auto& [quantity, foreign, amount] = sum.figures;
  if (!conditions_.amounts.unit.empty()) sum.unitPrice = amount / quantity;
  if (conditions_.amounts.currency.empty()) return;
  sum.exchangeRate = std::abs(conditions_.amounts.rateMethod == 1 ? amount / foreign : foreign / amount);
}

// Credit-direction parents show their sums with the other sign.
void SubAccountColumns::writeSum(CTzGrid& grid, std::int64_t row, const LedgerColumn& column, double sum) const {
  if (sum == 0) return;
  grid.SetNumber(row, column.column, conditions_.account.bDirect != 0 ? sum : -sum);
}

}  // namespace tz
