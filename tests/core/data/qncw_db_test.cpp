// The operations of the access class: which ledger is current, free queries, and the few writes.
#include "core/data/qncw_db.h"

#include "support/test_ledger.h"

namespace tz::test {
namespace {

class Operations : public DatabaseTest {
 protected:
  Operations() : ledger_(GetParam()) {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 华源 | 4222 | 2025");
    ledger_.fill("RegSub", "lId | lTieId | lCodeId | mMoney | byFlag | dtDate\n 5 | 2 | 1 | 12.5 | 0 | 2025-01-01");
    db_.Open(ledger_.address());
  }

  TestLedger ledger_;
  CQnCwDB db_{Access::report};
};

TEST_P(Operations, SelectsAnOpenLedgerOnly) {
  EXPECT_EQ(db_.DBSelect(ledger_.address()), 0);
  EXPECT_NE(db_.DBSelect("another"), 0);
  EXPECT_NO_THROW((void)db_.Current());
  db_.Close(ledger_.address());
  EXPECT_NE(db_.DBSelect(ledger_.address()), 0);
  EXPECT_THROW((void)db_.Person_GetInfo("lId > 0"), DbError);
  EXPECT_THROW(db_.Open(ledger_.address() + "x"), DbError);
  EXPECT_THROW((void)db_.Current(), DbError);
}

TEST_P(Operations, AnswersFreeQueriesAsText) {
  const auto table = db_.QRYGetData(Sql("SELECT lId, mMoney, dtDate FROM RegSub WHERE lTieId = ?", 2));
  ASSERT_EQ(table.rows * 10 + table.columns, 13);
  EXPECT_EQ(table.at(0, 0) + "|" + table.at(0, 1) + "|" + table.at(0, 2), "5|12.5|2025-01-01");
  EXPECT_EQ(db_.QRYGetData("SELECT lId FROM RegSub WHERE lId = 6").rows, 0);
  EXPECT_THROW((void)db_.QRYGetData("SELECT nothing FROM RegSub"), DbError);
  EXPECT_EQ(db_.zAccountM_GetInfo(1)->nYear, 2025);
  EXPECT_FALSE(db_.zAccountM_GetInfo(2).has_value());
  EXPECT_TRUE(db_.Exists("RegSub", "lTieId = 2"));
}

TEST_P(Operations, WritesPlansRoundedToFourDecimals) {
  const auto first = db_.Plan_AddNew({.lCodeId = 1, .byPeroid = 1, .mPPlan = 2.00015, .mPFact = -1.00005});
  const auto second = db_.Plan_AddNew({.lCodeId = 1, .byPeroid = 2});
  EXPECT_GT(second, first);
  EXPECT_TRUE(db_.Plan_Edit({.lId = second, .lCodeId = 1, .byPeroid = 2, .mPLast = 1.23449}));
  EXPECT_FALSE(db_.Plan_Edit({.lId = 99}));
  EXPECT_EQ(ledger_.rows("SELECT byPeroid, mPPlan, mPFact, mPLast FROM Plan ORDER BY lId"),
            "1|2.0002|-1.0001|0\n2|0|0|1.2345\n");
  EXPECT_EQ(db_.QRYExecuteSQL("UPDATE Plan SET mPPlan = 7"), 2);
  EXPECT_TRUE(db_.Plan_Delete(first));
  EXPECT_FALSE(db_.Plan_Delete(first));
}

TEST_P(Operations, WritesIntervals) {
  const auto id = db_.Ages_AddNew({.byType = 1, .nNumber = 1, .lLength = 30});
  EXPECT_TRUE(db_.Ages_Edit({.lId = id, .byType = 1, .nNumber = 1, .lLength = 60}));
  EXPECT_EQ(db_.Ages_GetInfo("byType = 1").front().lLength, 60);
  EXPECT_TRUE(db_.Ages_Delete(id));
  EXPECT_TRUE(db_.Ages_GetInfo("byType = 1").empty());
}

TEST_P(Operations, WritesAMarkOnlyOverTheOneThatWasRead) {
  auto line = db_.RegSub_GetInfo("lId = 5").front();
  line.byFlag = 1;
  line.mMoney = 99;  // a mark is all that is written
  EXPECT_TRUE(db_.RegSub_Edit(line, 0));
  EXPECT_FALSE(db_.RegSub_Edit(line, 0));
  EXPECT_EQ(ledger_.rows("SELECT byFlag, mMoney FROM RegSub"), "1|12.5\n");
}

TZ_ON_BOTH_DATABASES(Operations);

TEST(PlanAmounts, AreRoundedHalfAwayFromZero) {
  EXPECT_EQ(roundPlanAmount(0.00005), 0.0001);
  EXPECT_EQ(roundPlanAmount(-1.00005), -1.0001);
  EXPECT_EQ(roundPlanAmount(1.00004999), 1.0);
  EXPECT_EQ(roundPlanAmount(123456789.12345), 123456789.1235);
  EXPECT_EQ(roundPlanAmount(1e15), 1e15);
}

}  // namespace
}  // namespace tz::test
