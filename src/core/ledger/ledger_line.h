// Running balance and voucher line of the ledger engine. Amounts are home currency, quantities in the account's unit,
// foreign amounts in its currency; nothing is rounded. A balance is debit-positive.
#pragma once

#include <cstdint>
#include <string>

#include "core/data/value.h"

namespace tz {

struct LedgerBalance {
  double unitPrice = 0;     // amount ÷ quantity, as last computed
  double exchangeRate = 0;  // by the account's rate method, as last computed
  double quantity = 0;
  double foreignAmount = 0;
  double amount = 0;
};

// The three figures of one side of a line or total.
struct SideFigures {
  double quantity = 0;
  double foreign = 0;
  double amount = 0;

  SideFigures& operator+=(const SideFigures& other) {
    quantity += other.quantity;
    foreign += other.foreign;
    amount += other.amount;
    return *this;
  }
  SideFigures& operator-=(const SideFigures& other) { return *this += other.times(-1); }
  [[nodiscard]] SideFigures times(double factor) const {
    return {factor * quantity, factor * foreign, factor * amount};
  }
};

// A voucher line, or a total, which has neither date nor voucher number.
struct LedgerLine {
  Date date;                  // of the voucher
  std::string voucherNumber;  // "记-0001"
  std::string summary;
  std::int64_t account = 0;  // its lId
  std::int64_t line = 0;     // its own lId
  std::int64_t voucher = 0;  // its lTieId
  int month = 0;             // calendar month of the voucher date
  double unitPrice = 0;
  double exchangeRate = 0;
  SideFigures debit;
  SideFigures credit;
};

}  // namespace tz
