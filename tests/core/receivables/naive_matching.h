// The rules of automatic matching word for word, comparing every pair of lines in order: in squares of their number.
#pragma once

#include <cmath>
#include <vector>

#include "core/receivables/line_matching.h"

namespace tz::test {

inline std::int64_t inMillionths(double amount) { return std::llround(amount * 1e6); }

inline Matched naiveMatching(ClearingKind kind, const std::vector<OpenLine>& lines) {
  std::vector<bool> marked(lines.size());
  Matched result{};
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    for (std::size_t j = i + 1; j < lines.size() && !marked[i]; ++j) {
      if (marked[j] || lines[i].amount != lines[j].amount || lines[i].debit == lines[j].debit) continue;
      if (lines[i].business != lines[j].business) continue;
      marked[i] = marked[j] = true;
      (lines[i].business.empty() ? result.counts.pairwise : result.counts.byNumber) += 2;
    }
  }
  const std::size_t end = kind == ClearingKind::person && !lines.empty() ? lines.size() - 1 : lines.size();
  std::vector<std::size_t> collected;
  std::int64_t debits = 0, credits = 0;
  for (std::size_t i = 0; i < end; ++i) {
    if (marked[i] || !lines[i].business.empty() || lines[i].amount == 0) continue;
    collected.push_back(i);
    const auto amount = inMillionths(lines[i].amount);
    if (kind == ClearingKind::person) {
      lines[i].debit ? debits -= amount : credits += amount;
    } else {
      lines[i].debit ? debits += amount : credits += amount;
    }
  }
  const bool level = kind == ClearingKind::person ? debits - credits == 0 : credits - debits == 0;
  if (!collected.empty() && level) {
    for (const auto place : collected) marked[place] = true;
    result.counts.whole = static_cast<std::int64_t>(collected.size());
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (marked[i]) result.places.push_back(i);
  }
  return result;
}

}  // namespace tz::test
