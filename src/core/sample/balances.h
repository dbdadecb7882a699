// The sample company's balances while its vouchers are written, in whole cents and thousandths, and the AssAcc records
// that come of them: every leaf account has records, also those without dimensions.
#pragma once

#include <array>
#include <map>
#include <vector>

#include "core/sample/voucher.h"

namespace tz::sample {

struct Amounts {
  Cents money = 0;
  std::int64_t quantity = 0;
  Cents foreign = 0;

  void add(const Line& line) {
    money += line.money;
    quantity += line.quantity;
    foreign += line.foreign;
  }
};

class Balances {
 public:
  struct Rest {
    BalanceKey key;
    Cents money;  // debits minus credits
    std::int64_t quantity;
  };

  void open(const Line& line);
  void move(const Line& line, int period);

  // What stands on an account at present, per combination of dimensions; those that are level are left out.
  [[nodiscard]] std::vector<Rest> standing(Id account) const;
  // Debits minus credits of one month on an account, all dimensions together.
  [[nodiscard]] Cents movement(Id account, int period) const;
  // Debits minus credits of all openings.
  [[nodiscard]] Cents openingDifference() const;

  void write(Connection& connection) const;

 private:
  struct Entry {
    Amounts opening;  // debits minus credits
    bool opened = false;
    std::array<Amounts, 13> debits, credits;  // by period; place 0 stays empty
  };
  std::map<BalanceKey, Entry> entries_;
};

}  // namespace tz::sample
