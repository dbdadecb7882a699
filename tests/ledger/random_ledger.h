// Small random ledgers for the comparison with the naive computation: a chart with parents over both directions,
// quantity and currency accounts, names that occur twice, ids that are easily mistaken for each other, red entries,
// voucher dates in and out of their periods. The same seed makes the same ledger everywhere.
#pragma once

#include <cstdint>

#include "ledger/naive_ledger.h"

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

// Openings and unposted amounts are multiples of powers of two, so that their sums do not depend on an order that
// nothing fixes; posted lines, whose order is fixed, hold any cents.
[[nodiscard]] Ledger randomLedger(Dice& dice);
// Mostly a question that has an answer, now and then one that is refused.
[[nodiscard]] Question randomQuestion(Dice& dice, const Ledger& ledger);

}  // namespace tz::test::naive
