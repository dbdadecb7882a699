#include "core/ledger/balance_rows.h"

#include <cmath>
#include <vector>

#include "core/grid/column_adder.h"
#include "core/ledger/credit_limits.h"

namespace tz {
namespace {

constexpr int figureWidth = 100;
constexpr int keyWidth = 100;
constexpr int directionWidth = 60;

SideFigures absolute(const SideFigures& figures) {
  return {std::abs(figures.quantity), std::abs(figures.foreign), std::abs(figures.amount)};
}

}  // namespace

BalanceRows::BalanceRows(const BalanceGrouping& grouping, const Conditions& conditions, ComputedReport& computed)
    : grouping_(grouping),
      conditions_(conditions),
      grid_(computed.grid),
      subjects_(computed.subjects),
      shown_(traitsOf(conditions.format)) {
  using enum ColumnKind;
  const auto addDirection = [&] {
    CTzGridControl::AddCol(grid_, "方向", directionWidth, text);
    return grid_.GetCols() - 1;
  };
  for (const auto& key : grouping.keys) CTzGridControl::AddCol(grid_, key.caption, keyWidth, text);
  openingDirection_ = addDirection();
  opening_ = addFigures("期初余额", amount, quantity, foreign);
  debit_ = addFigures("借方", debitAmount, debitQuantity, debitForeign);
  credit_ = addFigures("贷方", creditAmount, creditQuantity, creditForeign);
  closingDirection_ = addDirection();
  closing_ = addFigures("期末余额", amount, quantity, foreign);
  limit_ = addLimitColumns(grid_, conditions);  // NOLINT(cppcoreguidelines-prefer-member-initializer): stands behind
}

BalanceRows::Places BalanceRows::addFigures(std::string_view caption, ColumnKind amount, ColumnKind quantity,
                                            ColumnKind foreign) {
  Places places{-1, -1, -1};
  std::vector<ColumnKind> kinds;
  const auto take = [&](ColumnKind kind) {
    kinds.push_back(kind);
    return grid_.GetCols() + static_cast<int>(kinds.size()) - 1;
  };
  if (shown_.quantities) places.quantity = take(quantity);
  if (shown_.foreign) places.foreign = take(foreign);
  places.amount = take(amount);
  CTzGridControl::AddGroup(grid_, caption, figureWidth, kinds);
  return places;
}

void BalanceRows::writeMember(const GroupKey& key, const Subject& subject, const BalanceFigures& figures) {
  const auto innermost = grouping_.levels.size() - 1;
  const auto row = append(RowKind::line, subject, static_cast<int>(innermost));
  writeKeys(row, key, innermost);
  write(row, figures, directions::rowOpening, directions::rowClosing);
  writeLimit(grid_, row, limit_, subject, figures.closing().amount, conditions_);
}

void BalanceRows::writeGroup(RowKind kind, const GroupKey& key, const Subject& subject, const BalanceFigures& figures) {
  const auto row = append(kind, subject, 0);
  writeKeys(row, key, 0);
  write(row, figures, directions::rowOpening, directions::rowClosing);
}

void BalanceRows::writeSubtotal(std::string_view caption, const GroupKey& key, std::size_t level,
                                const Subject& subject, const BalanceFigures& figures) {
  const auto row = append(RowKind::subtotal, subject, static_cast<int>(level));
  grid_.SetText(row, conditions_.hideDetails ? writeKeys(row, key, level) : 0, caption);
  write(row, figures, directions::ofTotal, directions::ofTotal);
  writeLimit(grid_, row, limit_, subject, figures.closing().amount, conditions_);
}

void BalanceRows::writeTotal(std::string_view caption, const Subject& subject, const BalanceFigures& figures) {
  const auto row = append(RowKind::total, subject, RowSubjects::wholeReport);
  grid_.SetText(row, 0, caption);
  write(row, figures, directions::ofTotal, directions::ofTotal);
}

int BalanceRows::writeKeys(std::int64_t row, const GroupKey& key, std::size_t level) {
  int column = 0;
  for (const auto& shown : grouping_.keys) {
    if (shown.level > level) break;
    grid_.SetText(row, column++, keyText(shown, key));
  }
  return column;
}

std::string BalanceRows::keyText(const KeyColumn& column, const GroupKey& key) const {
  const auto& part = key.parts.at(column.level);
  const auto entity = grouping_.levels[column.level].entity;
  if (column.code) return conditions_.data->GetCodeCode(part.id);
  // What carries no department is in none.
  if (entity == Entity::dept && part.id == 0) return {};
  return entityName(entity, part, conditions_);
}

std::int64_t BalanceRows::append(RowKind kind, const Subject& subject, int level) {
  const auto row = grid_.GetRows();
  grid_.SetRows(row + 1);
  grid_.SetRowKind(row, kind);
  subjects_.set(row, subjects_.keep(subject), level);
  return row;
}

void BalanceRows::write(std::int64_t row, const BalanceFigures& figures, const DirectionRule& ofOpening,
                        const DirectionRule& ofClosing) {
  const auto closing = figures.closing();
  grid_.SetText(row, openingDirection_, directionText(figures.opening.amount, ofOpening));
  writeFigures(row, opening_, absolute(figures.opening));
  writeFigures(row, debit_, figures.debit);
  writeFigures(row, credit_, figures.credit);
  grid_.SetText(row, closingDirection_, directionText(closing.amount, ofClosing));
  writeFigures(row, closing_, absolute(closing));
}

void BalanceRows::writeFigures(std::int64_t row, const Places& places, const SideFigures& figures) {
  const auto put = [&](int column, double figure) {
    // No minus before a zero.
    if (column >= 0) grid_.SetNumber(row, column, figure == 0 ? 0 : figure);
  };
  put(places.quantity, figures.quantity);
  put(places.foreign, figures.foreign);
  put(places.amount, figures.amount);
}

}  // namespace tz
