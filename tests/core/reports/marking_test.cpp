// What a session gives to whoever writes: the operator, the moment, and the person's answer.
#include "core/reports/marking.h"

#include "support/test_ledger.h"

namespace tz::test {
namespace {

class Marking : public DatabaseTest {
 protected:
  Marking() {
    ledger_.fill("zOperator", "lId | sName\n 4 | 王会计");
    ledger_.fill("RegSub", "lId | lTieId | dtDate | byFlag\n 5 | 2 | 2025-01-05 | 0");
    db_.Open(ledger_.address());
  }

  // Marks the line, or takes its mark back, once the person agrees.
  bool toggle(Session& session, int read) {
    if (!session.ask({.text = "要改两清标记吗？", .caption = "两清", .icon = MessageIcon::information})) return false;
    const std::vector<MarkChange> changes = {{5, 2, read, read == 0 ? 1 : 0}};
    return std::holds_alternative<MarksWritten>(
        markLines(session, changes, MarkWork::What::toggle, ClearingKind::person));
  }

  TestLedger ledger_{GetParam()};
  CQnCwDB db_{Access::report};
};

TEST_P(Marking, MarksALineAndTakesItBackEachTimeWithARowInTheLog) {
  using namespace std::chrono_literals;
  const auto who = logonQuestion(db_, "王会计").who;
  EXPECT_EQ(who.id, 4);
  auto moment = std::chrono::sys_days{2025y / 12 / 31} + 23h + 59min + 59s;
  Session session{.db = db_, .ledger = ledger_.address(), .logon = {2025, 1, 31}, .who = who};
  session.now = [&] { return moment; };
  std::vector<Question> asked;
  bool answer = false;
  session.ask = [&](const Question& question) { return asked.push_back(question), answer; };

  EXPECT_FALSE(toggle(session, 0));
  EXPECT_EQ(ledger_.rows("SELECT byFlag FROM RegSub") + ledger_.rows("SELECT count(*) FROM MarkLog"), "0\n0\n");
  answer = true;
  EXPECT_TRUE(toggle(session, 0));
  EXPECT_EQ(ledger_.rows("SELECT byFlag FROM RegSub"), "1\n");
  moment += 1s;
  EXPECT_TRUE(toggle(session, 1));
  EXPECT_EQ(ledger_.rows("SELECT byFlag FROM RegSub"), "0\n");
  EXPECT_EQ(ledger_.rows("SELECT lTieId, lLineId, byOld, byNew, sOperator, sWhen FROM MarkLog ORDER BY sWhen"),
            "2|5|0|1|王会计|2025-12-31T23:59:59Z\n2|5|1|0|王会计|2026-01-01T00:00:00Z\n");
  EXPECT_EQ(ledger_.rows("SELECT count(DISTINCT lId), count(DISTINCT sBatch) FROM MarkLog"), "2|2\n");
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM MarkLog WHERE sBatch LIKE 'toggle:person:%'"), "2\n");
  EXPECT_EQ(ledger_.rows("SELECT byNew FROM MarkLog ORDER BY lId"), "1\n0\n");
  EXPECT_EQ(asked.size(), 3U);
  EXPECT_FALSE(toggle(session, 1)) << "the mark had been taken back";
}

TZ_ON_BOTH_DATABASES(Marking);

TEST(Batches, SayWhatWasDoneAndToWhom) {
  EXPECT_EQ(workText(workOf("toggle:person:17")), "手工勾对（个人往来）");
  EXPECT_EQ(workText(workOf(undoOf("match:unit:18"))), "撤销自动勾对（单位往来）");
  EXPECT_EQ(workOf(undoOf("reverse:person:19")), (MarkWork{MarkWork::What::reverse, ClearingKind::person, true}));
  for (const auto* const foreign : {"17", "", "match", "match:", "match:plan:3", "notes: of May"}) {
    EXPECT_EQ(workText(workOf(foreign)), "标记") << foreign;
  }
  EXPECT_EQ(workText(workOf("undo:17")), "撤销标记");
}

TEST(Questions, OfTheCommandLineAreAnsweredByAnOption) {
  std::string told;
  const auto tell = [&](const std::string& text) { told += text; };
  const Question question{.text = "是否反两清?"};
  EXPECT_TRUE(answeredBefore(true, "--yes", tell)(question));
  EXPECT_EQ(told, "");
  EXPECT_FALSE(answeredBefore(false, "--yes", tell)(question));
  EXPECT_EQ(told, "是否反两清?\n没有执行；回答“是”请加 --yes");
}

}  // namespace
}  // namespace tz::test
