// Figures of a row and where a format shows them, for the naive computation.
#pragma once

#include <map>

#include "core/ledger/naive_ledger.h"

namespace tz::test::naive {

struct Side {
  double quantity = 0, foreign = 0, money = 0;

  void add(const Side& other, double sign = 1);
};

struct Figures {
  double price = 0, rate = 0;
  Side debit, credit;

  void add(const Figures& other);  // all but price and rate
};

struct Balance : Side {
  double price = 0, rate = 0;

  void move(const Figures& movement);
};

// What an account keeps besides money.
struct Keeps {
  std::string unit, currency;
  bool multiplies = true;  // home amount = foreign amount × rate

  void priceAndRate(Balance& balance) const;
};

enum class Place { opening, running };

// The row's cells from the fourth column on; the first three are texts.
[[nodiscard]] std::vector<nlohmann::json> figureCells(const std::string& format, Place place, const Figures& figures,
                                                      const std::string& direction, const Balance& balance);
// How many columns a format has.
[[nodiscard]] std::size_t columnsOf(const std::string& format);

}  // namespace tz::test::naive
