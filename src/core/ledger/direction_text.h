// "借", "贷" or "平": the direction of a balance. Reports differ in what they still take for even, and on purpose.
#pragma once

#include <cmath>
#include <string_view>

namespace tz {

// Below `even` a balance is even, on whichever side; above `above` it is a debit, otherwise a credit.
struct DirectionRule {
  double even;
  double above;
};

namespace directions {
// Lines and totals of detail ledgers, periods of three-column tables. A balance of exactly the threshold reads "贷".
inline constexpr DirectionRule running{0.0001, 0.0001};
inline constexpr DirectionRule multiColumn{0.00001, 0};
// Rows of balance tables: the closing is finer than the opening. Totals take the sign of the finest balance.
inline constexpr DirectionRule rowOpening{0.0001, 0.0001};
inline constexpr DirectionRule rowClosing{0.00001, 0.00001};
inline constexpr DirectionRule ofTotal{0.00001, 0};
// What is carried forward: an opening of a detail ledger, and the first row of a three-column table.
inline constexpr DirectionRule carriedForward{0.00001, 0};
}  // namespace directions

[[nodiscard]] inline std::string_view directionText(double amount, const DirectionRule& rule) {
  if (std::abs(amount) < rule.even) return "平";
  return amount > rule.above ? "借" : "贷";
}

}  // namespace tz
