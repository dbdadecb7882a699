// Small random ledgers for the comparison with the naive computation: a chart of three grades with both directions,
// every dimension, quantity and currency accounts, names that occur twice, ids that are easily mistaken for each other,
// red entries, voucher dates in and out of their periods. The same seed makes the same ledger everywhere.
#pragma once

#include <cstdint>

#include "core/data/connection.h"
#include "core/ledger/naive_ledger.h"
#include "core/ledger/naive_reports.h"

namespace tz::test::naive {

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 1) {}
  // 0 to bound - 1.
  [[nodiscard]] int below(int bound) {
    state_ ^= state_ << 13U;
    state_ ^= state_ >> 7U;
    state_ ^= state_ << 17U;
    return static_cast<int>((state_ >> 11U) % static_cast<std::uint64_t>(bound));
  }
  [[nodiscard]] bool once(int in) { return below(in) == 0; }
  template <class List>
  [[nodiscard]] const auto& oneOf(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
  }

 private:
  std::uint64_t state_;
};

// The two classes of project items that every ledger has item tables of.
inline constexpr const char* itemClasses[] = {"Z9", "01"};

// What posted lines hold. Openings and unposted amounts are always multiples of powers of two, so that their sums do
// not depend on an order that nothing fixes.
enum class Amounts {
  cents,         // for reports that add lines only in an order that is fixed
  sixtyFourths,  // for all reports
};

[[nodiscard]] Ledger randomLedger(Dice& dice, Amounts amounts);
// One whose balances follow from its vouchers, which are dated inside their periods and post to leaf accounts.
[[nodiscard]] Ledger tidyLedger(Dice& dice);
// In place of what the tables hold; those of the items are there.
void writeLedger(Connection& keeper, const Ledger& ledger);
// Mostly a question that has an answer, now and then one that is refused.
[[nodiscard]] Question randomQuestion(Dice& dice, const Ledger& ledger, const Report& report);

}  // namespace tz::test::naive
