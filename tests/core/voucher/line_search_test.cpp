// The search at work: what was found so far is told while it goes on, and stopping it keeps that.
#include "core/voucher/line_search.h"

#include <gtest/gtest.h>

#include "core/data/create_ledger.h"
#include "core/sample/sample_company.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using LineSearchTest = DatabaseTest;

TEST_P(LineSearchTest, TellsWhatItFindsAndKeepsItWhenStopped) {
  const TestPlace place(GetParam());
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {.lines = 30'000}); });
  CQnCwDB db(Access::read);
  db.Open(place.address());
  bool stop = false;
  Session session{.db = db, .ledger = place.address(), .logon = {2025, 12, 31}};
  session.cancelled = [&] { return stop; };
  LineSearch search{.text = readSearchText("款"), .most = 100, .onSome = {}};

  const auto whole = std::get<FoundLines>(searchLines(session, search));
  EXPECT_FALSE(whole.stopped);
  ASSERT_EQ(whole.lines.size(), 100);
  EXPECT_GT(whole.found, 5000);
  const auto order = [](const FoundLine& line) {
    return std::tuple(line.period, line.word, line.number, line.id.line);
  };
  EXPECT_TRUE(std::ranges::is_sorted(whole.lines, {}, order));

  std::vector<std::int64_t> told;
  search.onSome = [&](const FoundLines& some) {
    told.push_back(some.found);
    EXPECT_TRUE(std::ranges::is_sorted(some.lines, {}, order));
    EXPECT_FALSE(some.lines.front().names.account.empty());
    stop = some.found >= 1000;
  };
  const auto stopped = std::get<FoundLines>(searchLines(session, search));
  EXPECT_EQ(told.front(), 1);
  EXPECT_TRUE(stopped.stopped);
  EXPECT_GE(stopped.found, told.back());
  EXPECT_LT(stopped.found, whole.found);
  EXPECT_EQ(stopped.lines.size(), 100);
  EXPECT_EQ(foundReport(search.text, stopped).grid.notices.size(), 2);

  stop = false;
  search.onSome = {};
  EXPECT_EQ(std::get<FoundLines>(searchLines(session, search)).found, whole.found);
}

TZ_ON_BOTH_DATABASES(LineSearchTest);

}  // namespace
}  // namespace tz::test
