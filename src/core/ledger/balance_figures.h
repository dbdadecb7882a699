// What a row of a balance table shows. Debit-positive, nothing is rounded.
#pragma once

#include <cmath>

#include "core/ledger/ledger_line.h"

namespace tz {

struct BalanceFigures {
  SideFigures opening;
  int openedIn = 0;  // the period of the records that the opening is of; 0: of none
  SideFigures debit;
  SideFigures credit;

  [[nodiscard]] SideFigures closing() const {
    SideFigures all = opening;
    all += debit;
    all -= credit;
    return all;
  }
  // A balance record: the earliest ones make the opening, all move.
  void addRecord(const BalanceFigures& record, int period) {
    if (openedIn == 0 || period < openedIn) {
      openedIn = period;
      opening = {};
    }
    if (period == openedIn) opening += record.opening;
    debit += record.debit;
    credit += record.credit;
  }
  void add(const BalanceFigures& other) {
    opening += other.opening;
    debit += other.debit;
    credit += other.credit;
  }
};

// A sum of cents as a whole number of millionths, for comparing: 0.1 + 0.2 is not more than 0.3.
[[nodiscard]] inline double wholeMillionths(double amount) {
  constexpr double millionths = 1e6;
  return std::round(amount * millionths);
}

[[nodiscard]] inline bool isZero(const SideFigures& figures) {
  return wholeMillionths(figures.amount) == 0 && wholeMillionths(figures.quantity) == 0 &&
         wholeMillionths(figures.foreign) == 0;
}
[[nodiscard]] inline bool isZero(const BalanceFigures& balance) {
  return isZero(balance.opening) && isZero(balance.debit) && isZero(balance.credit) && isZero(balance.closing());
}

}  // namespace tz
