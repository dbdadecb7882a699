#include "core/receivables/line_matching.h"

#include <bit>
#include <string_view>
#include <unordered_map>

#include "core/receivables/millionths.h"

namespace tz {
namespace {

// What a pair has in common.
struct PairKey {
  double amount = 0;
  std::string_view business;

  bool operator==(const PairKey&) const = default;
};
struct PairKeyHash {
  std::size_t operator()(const PairKey& key) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;
    // Zero and its negative are the same amount.
    const auto bits = key.amount == 0 ? 0 : std::bit_cast<std::uint64_t>(key.amount);
    auto hash = (std::hash<std::string_view>()(key.business) ^ bits) * spread;
    hash ^= hash >> 29U;
    return hash * spread;
  }
};

// The lines of one side that have the same key, in their order; those before `next` are behind the line that looks.
struct Side {
  std::vector<std::size_t> places;
  std::size_t next = 0;
};
struct Sides {
  Side debit, credit;

  [[nodiscard]] Side& of(bool isDebit) { return isDebit ? debit : credit; }
};

class Matching {
 public:
  Matching(ClearingKind kind, std::span<const OpenLine> lines) : kind_(kind), lines_(lines), marked_(lines.size()) {}

  Matched run() {
    pairUp();
    clearWhole();
    Matched matched{.places = {}, .counts = counts_};
    for (std::size_t place = 0; place < lines_.size(); ++place) {
      if (marked_[place]) matched.places.push_back(place);
    }
    return matched;
  }

 private:
  void pairUp() {
    std::unordered_map<PairKey, Sides, PairKeyHash> byKey(lines_.size());
    const auto keyOf = [&](const OpenLine& line) { return PairKey{line.amount, line.business}; };
    for (std::size_t place = 0; place < lines_.size(); ++place) {
      byKey[keyOf(lines_[place])].of(lines_[place].debit).places.push_back(place);
    }
    for (std::size_t place = 0; place < lines_.size(); ++place) {
      if (marked_[place]) continue;
      const auto& line = lines_[place];
      auto& others = byKey.find(keyOf(line))->second.of(!line.debit);
      while (others.next < others.places.size() && others.places[others.next] < place) ++others.next;
      if (others.next == others.places.size()) continue;
      marked_[place] = marked_[others.places[others.next++]] = true;
      (line.business.empty() ? counts_.pairwise : counts_.byNumber) += 2;
    }
  }

  void clearWhole() {
    const bool persons = kind_ == ClearingKind::person;
    const auto end = persons && !lines_.empty() ? lines_.size() - 1 : lines_.size();
    std::vector<std::size_t> collected;
    MillionthSum rest;
    for (std::size_t place = 0; place < end; ++place) {
      const auto& line = lines_[place];
      if (marked_[place] || !line.business.empty() || line.amount == 0) continue;
      collected.push_back(place);
      if (persons || line.debit) {
        rest -= line.amount;
      } else {
        rest += line.amount;
      }
    }
    if (collected.empty() || rest.sign() != 0) return;
    for (const auto place : collected) marked_[place] = true;
    counts_.whole += static_cast<std::int64_t>(collected.size());
  }

  ClearingKind kind_;
  std::span<const OpenLine> lines_;
  std::vector<bool> marked_;
  MatchCounts counts_;
};

}  // namespace

MatchCounts& MatchCounts::operator+=(const MatchCounts& other) {
  byNumber += other.byNumber;
  pairwise += other.pairwise;
  whole += other.whole;
  return *this;
}

Matched matchLines(ClearingKind kind, std::span<const OpenLine> lines) { return Matching(kind, lines).run(); }

}  // namespace tz
