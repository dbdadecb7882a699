// Which open lines of one account and party settle each other, as a computation over lines alone.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/data/records.h"
#include "core/reports/marking.h"

namespace tz {

// An open line: what is compared of it.
struct OpenLine {
  Id line = 0, voucher = 0;
  double amount = 0;  // or the foreign amount, where the account keeps one
  bool debit = false;
  std::string business;  // empty: none
};

// How many lines each rule clears.
struct MatchCounts {
  std::int64_t byNumber = 0;  // pairs of one business number
  std::int64_t pairwise = 0;  // pairs without one
  std::int64_t whole = 0;     // what is left without a number and comes out level together

  MatchCounts& operator+=(const MatchCounts& other);
  bool operator==(const MatchCounts&) const = default;
};

struct Matched {
  std::vector<std::size_t> places;  // of the lines to be marked, rising
  MatchCounts counts;
};

// The lines in their order. Each line that is still open takes the first later one of the same amount, the other side
// and the same business number, or like it none. Then the lines that are left without a number and with an amount are
// cleared together if they come out level: of units when debits equal credits; of persons without the last line, and
// only when debits and credits add up to nothing, which positive amounts never do. Linear in the number of lines.
[[nodiscard]] Matched matchLines(ClearingKind kind, std::span<const OpenLine> lines);

}  // namespace tz
