#include "core/ledger/amount_layout.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

constexpr std::array layouts = {
    AmountLayout{.format = AmountFormat::amount,
                 .debitAmount = 3,
                 .creditAmount = 4,
                 .balance = {.direction = 5, .amount = 6},
                 .opening = {.direction = 5, .amount = 6}},
    // The header of 金额式 under the places of a wider one: the grid refuses what lies beyond its seven columns.
    AmountLayout{.format = AmountFormat::foreignAlone,
                 .debitForeign = 4,
                 .creditForeign = 6,
                 .balance = {.direction = 8, .foreign = 9},
                 .opening = {.direction = 5, .foreign = 6}},
    AmountLayout{.format = AmountFormat::quantityAmount,
                 .unitPrice = 3,
                 .debitQuantity = 4,
                 .debitAmount = 5,
                 .creditQuantity = 6,
                 .creditAmount = 7,
                 .balance = {.direction = 8, .quantity = 9, .unitPrice = 10, .amount = 11},
                 .opening = {.direction = 8, .quantity = 9, .unitPrice = 10, .amount = 11}},
    AmountLayout{.format = AmountFormat::foreignAmount,
                 .exchangeRate = 3,
                 .debitForeign = 4,
                 .debitAmount = 5,
                 .creditForeign = 6,
                 .creditAmount = 7,
                 .balance = {.direction = 8, .foreign = 9, .exchangeRate = 10, .amount = 11},
                 .opening = {.direction = 8, .foreign = 9, .exchangeRate = 10, .amount = 11}},
    AmountLayout{
        .format = AmountFormat::quantityForeign,
        .unitPrice = 3,
        .exchangeRate = 4,
        .debitQuantity = 5,
        .debitForeign = 6,
        .debitAmount = 7,
        .creditQuantity = 8,
        .creditForeign = 9,
        .creditAmount = 10,
        .balance = {.direction = 11, .quantity = 12, .unitPrice = 13, .foreign = 14, .exchangeRate = 15, .amount = 16},
        .opening = {.direction = 11, .quantity = 12, .unitPrice = 13, .foreign = 14, .exchangeRate = 15, .amount = 16}},
};

// What the lines move in a column; where they move nothing, what else it is.
ColumnKind kindAt(const AmountLayout& layout, int place, ColumnKind otherwise) {
  if (place == layout.debitAmount) return ColumnKind::debitAmount;
  if (place == layout.creditAmount) return ColumnKind::creditAmount;
  if (place == layout.debitQuantity) return ColumnKind::debitQuantity;
  if (place == layout.creditQuantity) return ColumnKind::creditQuantity;
  if (place == layout.debitForeign) return ColumnKind::debitForeign;
  if (place == layout.creditForeign) return ColumnKind::creditForeign;
  return otherwise;
}

// The header of 外币式 is that of 金额式.
const AmountFormatTraits& headerOf(const AmountLayout& layout) {
  const auto& shown = traitsOf(layout.format);
  return shown.amounts ? shown : traitsOf(AmountFormat::amount);
}

void writeFigure(CTzGrid& grid, std::int64_t row, int column, double value) {
  if (column != AmountLayout::none && value != 0) grid.SetNumber(row, column, value);
}

}  // namespace

const AmountLayout& amountLayout(AmountFormat format) {
  const auto* const found = std::ranges::find(layouts, format, &AmountLayout::format);
  assert(found != layouts.end());
  return *found;
}

std::vector<AmountFormat> detailFormats(const Conditions& conditions) {
  auto formats = conditions.amounts.formats;
  if (!conditions.amounts.currency.empty()) formats.push_back(AmountFormat::foreignAlone);
  return formats;
}

std::vector<AmountFormat> formatsOfAccount(const Conditions& conditions) { return conditions.amounts.formats; }

std::vector<AmountFormat> formatsOfManyAccounts(const Conditions& /*conditions*/) {
  std::vector<AmountFormat> all;
  for (const auto& shown : amountFormats) all.push_back(shown.format);
  return all;
}

std::vector<AmountFormat> commonFormats(const Conditions& /*conditions*/) {
  std::vector<AmountFormat> all;
  for (const auto& shown : amountFormats) {
    if (shown.amounts) all.push_back(shown.format);
  }
  return all;
}

void addLedgerColumns(CTzGrid& grid, const AmountLayout& layout, const LedgerCaptions& captions) {
  const auto& shown = headerOf(layout);
  const auto add = [&](const FixedColumn& column, std::vector<ColumnKind> kinds) {
    int place = grid.GetCols();
    for (auto& kind : kinds) kind = kindAt(layout, place++, kind);
    CTzGridControl::AddGroup(grid, column.caption, column.width, kinds);
  };
  const auto figures = [&](bool priced) {
    std::vector<ColumnKind> kinds;
    if (shown.quantities) kinds.push_back(ColumnKind::quantity);
    if (shown.quantities && priced) kinds.push_back(ColumnKind::price);
    if (shown.foreign) kinds.push_back(ColumnKind::foreign);
    if (shown.foreign && priced) kinds.push_back(ColumnKind::rate);
    kinds.push_back(ColumnKind::amount);
    return kinds;
  };
  add(captions.date, {ColumnKind::date});
  add(captions.voucher, {ColumnKind::text});
  add(captions.summary, {ColumnKind::text});
  if (shown.quantities) add({"单价", 60}, {ColumnKind::price});
  if (shown.foreign) add({"汇率", 60}, {ColumnKind::rate});
  add(captions.debit, figures(false));
  add(captions.credit, figures(false));
  add(captions.direction, {ColumnKind::text});
  add(captions.balance, figures(true));
}

void writeBalance(CTzGrid& grid, std::int64_t row, const AmountLayout::Balance& places, std::string_view direction,
                  const LedgerBalance& balance) {
  grid.SetText(row, places.direction, direction);
  writeFigure(grid, row, places.quantity, std::abs(balance.quantity));
  writeFigure(grid, row, places.unitPrice, std::abs(balance.unitPrice));
  writeFigure(grid, row, places.foreign, std::abs(balance.foreignAmount));
  writeFigure(grid, row, places.exchangeRate, std::abs(balance.exchangeRate));
  writeFigure(grid, row, places.amount, std::abs(balance.amount));
}

void writeMovements(CTzGrid& grid, std::int64_t row, const AmountLayout& layout, const LedgerLine& line) {
  writeFigure(grid, row, layout.unitPrice, line.unitPrice);
  writeFigure(grid, row, layout.exchangeRate, line.exchangeRate);
  writeFigure(grid, row, layout.debitQuantity, line.debit.quantity);
  writeFigure(grid, row, layout.debitForeign, line.debit.foreign);
  writeFigure(grid, row, layout.debitAmount, line.debit.amount);
  writeFigure(grid, row, layout.creditQuantity, line.credit.quantity);
  writeFigure(grid, row, layout.creditForeign, line.credit.foreign);
  writeFigure(grid, row, layout.creditAmount, line.credit.amount);
}

}  // namespace tz
