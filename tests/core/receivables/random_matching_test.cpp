// Automatic matching over random ledgers: which lines it takes, in which order and by which amount, against a second
// computation that reads the records themselves.
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <tuple>

#include "core/data/record_io.h"
#include "core/receivables/automatic_matching.h"
#include "core/receivables/naive_matching.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr Id foreignAccount = 2, personAccount = 3;

void fillRandomLines(TestLedger& ledger, std::mt19937& dice) {
  constexpr std::array amounts = {-1.0, 0.0, 0.1, 0.2, 0.3, 1.0, 1.0, 2.0, 3.0};
  constexpr std::array numbers = {"", "", "", "A", "B"};
  const auto any = [&](const auto& list) { return list.at(dice() % list.size()); };
  std::vector<RegMainInfo> heads;
  std::vector<RegSubInfo> lines;
  for (Id voucher = 1; voucher <= 12; ++voucher) {
    const Date bill{2006, static_cast<std::uint8_t>(1 + dice() % 2), static_cast<std::uint8_t>(1 + dice() % 3)};
    heads.push_back({.lTieId = voucher, .byPeroid = static_cast<int>(dice() % 3), .dtBill = bill, .dtDate = bill});
    heads.back().sWord = any(std::array{"记", "付"});
    heads.back().nNumber = static_cast<int>(dice() % 3);
  }
  for (Id line = 1; line <= 90; ++line) {
    RegSubInfo one{.lId = line, .lTieId = static_cast<Id>(1 + dice() % 12), .lCodeId = static_cast<Id>(1 + dice() % 5)};
    if (one.lCodeId >= personAccount) {
      one.lPersonId = static_cast<Id>(1 + dice() % 2);
      one.lDeptId = static_cast<Id>(1 + dice() % 2);  // he may have changed departments
    } else {
      one.lEnterId = static_cast<Id>(1 + dice() % 2);
    }
    one.mMoney = any(amounts);
    one.mForeign = any(amounts);
    one.bDirect = static_cast<int>(dice() % 2);
    one.byFlag = dice() % 8 == 0 ? 1 : 0;
    one.sBusiness = any(numbers);
    one.dtDate = {2006, 1, 1};
    lines.push_back(one);
  }
  for (const char* table : {"RegMain", "RegSub", "MarkLog"})
    ledger.keeper().execute(Sql(std::string("DELETE FROM ") + table));
  insertRecords(ledger.keeper(), heads);
  insertRecords(ledger.keeper(), lines);
}

// The marks that the lines have afterwards, by line; and what each account counts.
struct NaiveRun {
  std::map<Id, int> marks;
  std::map<Id, MatchCounts> counts;
};

NaiveRun naiveRun(const CQnCwDB& db, ClearingKind kind) {
  std::map<Id, RegMainInfo> heads;
  for (const auto& head : db.RegMain_GetInfo("1 = 1")) heads[head.lTieId] = head;
  auto lines = db.RegSub_GetInfo("1 = 1");
  std::ranges::sort(lines, {}, [&](const RegSubInfo& line) {
    const auto& head = heads.at(line.lTieId);
    return std::tuple(head.dtBill, head.sWord, head.nNumber, line.lId);
  });
  NaiveRun run;
  const bool persons = kind == ClearingKind::person;
  std::map<std::pair<Id, Id>, std::vector<OpenLine>> parties;
  for (const auto& line : lines) {
    run.marks[line.lId] = line.byFlag;
    const Id party = persons ? line.lPersonId : line.lEnterId;
    if (party == 0 || line.byFlag != 0 || (persons && line.mMoney <= 0)) continue;
    if (line.lCodeId == 5) continue;  // no leaf
    const bool foreign = line.lCodeId == foreignAccount || line.lCodeId == 4;
    parties[{line.lCodeId, party}].push_back({.line = line.lId,
                                              .amount = foreign ? line.mForeign : line.mMoney,
                                              .debit = line.bDirect != 0,
                                              .business = line.sBusiness});
  }
  for (const auto& [key, open] : parties) {
    const auto matched = naiveMatching(kind, open);
    for (const auto place : matched.places) run.marks[open[place].line] = 2;
    run.counts[key.first] += matched.counts;
  }
  return run;
}

class RandomMatching : public DatabaseTest {};

TEST_P(RandomMatching, MarksWhatASecondComputationMarks) {
  TestLedger ledger(GetParam());
  ledger.fill("Code", R"(
      lId | sCode | sName | bEnd | bDirect | sAssBook | byExchId
      1   | 1131  | 应收  | 1    | 1       | BC       | 0
      2   | 1132  | 美元  | 1    | 1       | B        | 2
      3   | 1133  | 借款  | 1    | 1       | CA       | 0
      4   | 1134  | 外币  | 1    | 1       | A        | 2
      5   | 1135  | 上级  | 0    | 1       | A        | 0 )");
  ledger.fill("Person", "lId | sPersonId | sName | lDeptId\n 1 | P1 | 张三 | 1\n 2 | P2 | 李四 | 2");
  ledger.fill("Enter", "lId | sEnterId | sEnterName\n 1 | E1 | 甲\n 2 | E2 | 乙");
  CQnCwDB db(Access::report);
  db.Open(ledger.address());
  Session session{.db = db, .ledger = ledger.address(), .logon = {2006, 2, 28}};
  MatchCounts reached;
  const unsigned seeds = onServer() ? 5 : 60;
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    std::mt19937 dice(seed);
    fillRandomLines(ledger, dice);
    for (const auto kind : {ClearingKind::person, ClearingKind::unit}) {
      auto expected = naiveRun(db, kind);
      const auto outcome = matchAutomatically(session, kind, allParties(session, kind));
      for (const auto& one : outcome.accounts) {
        EXPECT_EQ(one.counts, expected.counts[one.account.lId]) << seed << " " << one.text();
      }
      for (const auto& line : db.RegSub_GetInfo("1 = 1")) {
        ASSERT_EQ(line.byFlag, expected.marks[line.lId]) << "seed " << seed << ", line " << line.lId;
      }
      reached += outcome.all();
    }
  }
  EXPECT_GT(reached.byNumber, seeds);
  EXPECT_GT(reached.pairwise, 3 * seeds);
  EXPECT_TRUE(reached.whole > 0 || onServer());
}

TZ_ON_BOTH_DATABASES(RandomMatching);

}  // namespace
}  // namespace tz::test
