// Automatic matching against a second computation that compares every pair of lines in order, as the rules are told.
#include <gtest/gtest.h>
#include <random>

#include "core/receivables/naive_matching.h"

namespace tz::test {
namespace {

OpenLine debit(double amount, const char* business = "") {
  return {.amount = amount, .debit = true, .business = business};
}
OpenLine credit(double amount, const char* business = "") { return {.amount = amount, .business = business}; }

using Places = std::vector<std::size_t>;

TEST(LineMatching, FollowsItsThreeRules) {
  constexpr auto unit = ClearingKind::unit, person = ClearingKind::person;
  auto found = matchLines(unit, std::vector{debit(100), debit(100), credit(100)});
  EXPECT_EQ(found.places, (Places{0, 2})) << "the first debit takes the credit";
  EXPECT_EQ(found.counts, (MatchCounts{.pairwise = 2}));
  EXPECT_TRUE(matchLines(unit, std::vector{debit(100, "A1"), credit(100, "A2")}).places.empty());
  EXPECT_TRUE(matchLines(unit, std::vector{debit(100, "A1"), credit(100)}).places.empty());
  EXPECT_EQ(matchLines(unit, std::vector{debit(100, "A1"), credit(100, "A1")}).counts, (MatchCounts{.byNumber = 2}));
  const std::vector whole = {debit(30), debit(70), credit(100)};
  EXPECT_EQ(matchLines(unit, whole).counts, (MatchCounts{.whole = 3}));
  EXPECT_EQ(matchLines(person, whole).counts, MatchCounts{});
  EXPECT_EQ(matchLines(unit, std::vector{debit(0.1), debit(0.2), credit(0.3)}).counts, (MatchCounts{.whole = 3}));
  // Foreign amounts of both signs cancel for persons, the last line apart.
  EXPECT_EQ(matchLines(person, std::vector{debit(5), credit(-5), debit(9)}).counts, (MatchCounts{.whole = 2}));
  EXPECT_EQ(matchLines(person, std::vector{debit(5), credit(-5)}).counts, MatchCounts{});
  EXPECT_EQ(matchLines(unit, std::vector{debit(0), credit(-0.0)}).counts, (MatchCounts{.pairwise = 2}));
  EXPECT_EQ(matchLines(unit, {}).counts, MatchCounts{});
}

TEST(LineMatching, MarksWhatComparingEveryPairInOrderMarks) {
  constexpr std::array amounts = {0.0, 0.1, 0.2, 0.3, 1.0, -1.0, 1e9, 4.0};
  constexpr std::array numbers = {"", "", "", "A", "B"};
  MatchCounts reached;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    std::mt19937 dice(seed);
    std::vector<OpenLine> lines(dice() % 14);
    const auto kinds = 1 + dice() % amounts.size();  // few amounts make many pairs, many leave more to the whole
    for (auto& line : lines) {
      line = {.amount = amounts.at(dice() % kinds), .debit = dice() % 2 == 0, .business = numbers.at(dice() % 5)};
    }
    for (const auto kind : {ClearingKind::person, ClearingKind::unit}) {
      const auto expected = naiveMatching(kind, lines);
      const auto found = matchLines(kind, lines);
      ASSERT_EQ(found.places, expected.places) << "seed " << seed;
      ASSERT_EQ(found.counts, expected.counts) << "seed " << seed;
      if (kind == ClearingKind::unit) reached += found.counts;
    }
  }
  EXPECT_GT(reached.byNumber, 500);
  EXPECT_GT(reached.pairwise, 2000);
  EXPECT_GT(reached.whole, 100);
}

}  // namespace
}  // namespace tz::test
