#include "core/ledger/amount_layout.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

constexpr std::array layouts = {
    AmountLayout{.format = AmountFormat::amount,
                 .kind = 0,
                 .columns = 7,
                 .debitAmount = 3,
                 .creditAmount = 4,
                 .balance = {.direction = 5, .amount = 6},
                 .opening = {.direction = 5, .amount = 6}},
    // The header of 金额式 under the places of a wider one: the grid refuses what lies beyond its seven columns.
    AmountLayout{.format = AmountFormat::foreignAlone,
                 .kind = 0,
                 .columns = 7,
                 .debitForeign = 4,
                 .creditForeign = 6,
                 .balance = {.direction = 8, .foreign = 9},
                 .opening = {.direction = 5, .foreign = 6}},
    AmountLayout{.format = AmountFormat::quantityAmount,
                 .kind = 1,
                 .columns = 12,
                 .unitPrice = 3,
                 .debitQuantity = 4,
                 .debitAmount = 5,
                 .creditQuantity = 6,
                 .creditAmount = 7,
                 .balance = {.direction = 8, .quantity = 9, .unitPrice = 10, .amount = 11},
                 .opening = {.direction = 8, .quantity = 9, .unitPrice = 10, .amount = 11}},
    AmountLayout{.format = AmountFormat::foreignAmount,
                 .kind = 2,
                 .columns = 12,
                 .exchangeRate = 3,
                 .debitForeign = 4,
                 .debitAmount = 5,
                 .creditForeign = 6,
                 .creditAmount = 7,
                 .balance = {.direction = 8, .foreign = 9, .exchangeRate = 10, .amount = 11},
                 .opening = {.direction = 8, .foreign = 9, .exchangeRate = 10, .amount = 11}},
    AmountLayout{
        .format = AmountFormat::quantityForeign,
        .kind = 3,
        .columns = 17,
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

// Refused by the grid for a figure that the format does not show.
std::array<std::pair<int, Movement>, 6> movementsOf(const AmountLayout& layout) {
  return {{{layout.debitAmount, Movement::debitAmount},
           {layout.creditAmount, Movement::creditAmount},
           {layout.debitQuantity, Movement::debitQuantity},
           {layout.creditQuantity, Movement::creditQuantity},
           {layout.debitForeign, Movement::debitForeign},
           {layout.creditForeign, Movement::creditForeign}}};
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

std::vector<AmountFormat> multiColumnFormats(const Conditions& conditions) { return conditions.amounts.formats; }

std::vector<AmountFormat> formatsOfManyAccounts(const Conditions& /*conditions*/) {
  std::vector<AmountFormat> all;
  for (const auto& shown : amountFormats) all.push_back(shown.format);
  return all;
}

void addLedgerColumns(CTzGrid& grid, const AmountLayout& layout, const LedgerCaptions& captions) {
  constexpr int textKind = -1;
  constexpr int numberKind = -2;
  constexpr int balanceKinds = 4;
  const auto add = [&](const FixedColumn& column, int kind) {
    CTzGridControl::AddCol(grid, column.caption, column.width, kind);
  };
  add(captions.date, textKind);
  add(captions.voucher, textKind);
  add(captions.summary, textKind);
  if (layout.kind == 1 || layout.kind == 3) add({"单价", 60}, numberKind);
  if (layout.kind == 2 || layout.kind == 3) add({"汇率", 60}, numberKind);
  add(captions.debit, layout.kind);
  add(captions.credit, layout.kind);
  add(captions.direction, textKind);
  add(captions.balance, layout.kind + balanceKinds);
  assert(grid.GetCols() == layout.columns);
  for (const auto& [column, movement] : movementsOf(layout)) grid.SetMovement(column, movement);
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
