// The amount formats of the detail ledgers: which columns each has and in which of them the figures of a row stand.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/data/amount_format.h"
#include "core/grid/tz_grid.h"
#include "core/ledger/ledger_line.h"
#include "core/reports/conditions.h"

namespace tz {

// Columns of a row's figures, counted from 0; none where the format does not show a figure.
struct AmountLayout {
  static constexpr int none = -1;

  AmountFormat format;
  int unitPrice = none, exchangeRate = none;
  int debitQuantity = none, debitForeign = none, debitAmount = none;
  int creditQuantity = none, creditForeign = none, creditAmount = none;

  struct Balance {
    int direction = none, quantity = none, unitPrice = none, foreign = none, exchangeRate = none, amount = none;
  };
  Balance balance;  // of lines and totals
  Balance opening;  // of the opening row

  [[nodiscard]] bool showsQuantities() const { return traitsOf(format).quantities; }
  [[nodiscard]] bool showsForeign() const { return traitsOf(format).foreign; }
};

[[nodiscard]] const AmountLayout& amountLayout(AmountFormat format);
// What a detail ledger offers beyond the account's own formats: "外币式" where the account keeps foreign amounts.
[[nodiscard]] std::vector<AmountFormat> detailFormats(const Conditions& conditions);
// The same without "外币式": of multi-column ledgers, whose sub-account columns its figures would fall into, and of
// balance tables.
[[nodiscard]] std::vector<AmountFormat> formatsOfAccount(const Conditions& conditions);
// Reports without one account: every format, "金额式" first; and the same without "外币式".
[[nodiscard]] std::vector<AmountFormat> formatsOfManyAccounts(const Conditions& conditions);
[[nodiscard]] std::vector<AmountFormat> commonFormats(const Conditions& conditions);

// Captions and widths of the fixed columns.
struct FixedColumn {
  std::string_view caption;
  int width;
};
struct LedgerCaptions {
  FixedColumn date, voucher, summary, debit, credit, direction, balance;
};
inline constexpr LedgerCaptions threeColumnCaptions = {{"日期", 70},  {"凭证号", 60}, {"摘要", 120}, {"借方", 100},
                                                       {"贷方", 100}, {"方向", 40},   {"余额", 100}};
inline constexpr LedgerCaptions multiColumnCaptions = {{"日期", 80},      {"凭证号", 80},    {"摘  要", 120},
                                                       {"借方金额", 100}, {"贷方金额", 100}, {"方向", 60},
                                                       {"期末余额", 100}};

// Date, voucher number, summary, price and rate, debit, credit, direction and balance.
void addLedgerColumns(CTzGrid& grid, const AmountLayout& layout, const LedgerCaptions& captions);

// A balance as direction text and absolute figures; figures that are exactly 0 stay empty.
void writeBalance(CTzGrid& grid, std::int64_t row, const AmountLayout::Balance& places, std::string_view direction,
                  const LedgerBalance& balance);
// The movements of a line or total, signed; figures that are exactly 0 stay empty.
void writeMovements(CTzGrid& grid, std::int64_t row, const AmountLayout& layout, const LedgerLine& line);

}  // namespace tz
