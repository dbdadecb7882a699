// Marks as operators set them and take them back, alike on both databases: what is toggled, reversed, matched, undone,
// and what somebody is told who was overtaken.
#include "core/receivables/clearing_marks.h"

#include <gtest/gtest.h>

#include "core/receivables/automatic_matching.h"
#include "core/receivables/clearing_check.h"
#include "core/receivables/clearing_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr auto person = ClearingKind::person, unit = ClearingKind::unit;

class ClearingMarks : public DatabaseTest {
 protected:
  ClearingMarks() {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 公司 | 4222 | 2006");
    ledger_.fill("Code", R"(
        lId | sCode | sName | bEnd | bDirect | sAssBook | byExchId
        1   | 1131  | 应收  | 1    | 1       | BC       | 0
        2   | 1132  | 美元  | 1    | 1       | B        | 2
        3   | 1133  | 借款  | 1    | 1       | CA       | 0
        4   | 1001  | 现金  | 1    | 1       |          | 0 )");
    ledger_.fill("Cyrency", "lId | byExchId | sName\n 1 | 2 | 美元");
    ledger_.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 1 | 10 | D1 | 销售部");
    ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 7 | P1 | 张三 | 10\n 8 | P2 | 李四 | 10");
    ledger_.fill("Enter", "lId | sEnterId | sEnterName\n 11 | E1 | 甲公司\n 12 | E2 | 乙公司");
    // Line ids and voucher order differ: line 9 stands in the first voucher.
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 1        | 2006-01-05 | 2006-01-05 | 记    | 1
        2      | 1        | 2006-01-31 | 2006-01-31 | 记    | 2 )");
    ledger_.fill("RegSub", R"(
        lId|lTieId|lCodeId|lDeptId|lPersonId|lEnterId|mMoney|mForeign|bDirect|sBusiness|byFlag|dtDate    
        9  |1     |1      |0      |0        |11      |100   |0       |1      |         |0     |2006-01-05
        2  |2     |1      |0      |0        |11      |100   |0       |1      |         |0     |2006-01-31
        3  |2     |1      |0      |0        |11      |100   |0       |0      |         |0     |2006-01-31
        4  |2     |2      |0      |0        |12      |70    |10      |1      |U        |0     |2006-01-31
        5  |2     |2      |0      |0        |12      |71    |10      |0      |U        |0     |2006-01-31
        6  |1     |3      |10     |7        |0       |30    |0       |1      |         |0     |2006-01-05
        7  |2     |3      |10     |7        |0       |30    |0       |0      |         |0     |2006-01-31
        8  |2     |4      |10     |7        |11      |1     |0       |0      |         |0     |2006-01-31 )");
    db_.Open(ledger_.address());
  }

  [[nodiscard]] Session sessionOf(CQnCwDB& db, const std::string& name) const {
    Session session{.db = db, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
    session.who.name = name;
    session.ask = [](const Question&) { return true; };
    return session;
  }
  std::string marks() { return ledger_.rows("SELECT lId, byFlag FROM RegSub WHERE byFlag <> 0 ORDER BY lId"); }
  // Toggles and tells the mark that came of it, or what was answered.
  std::string toggled(Session& session, ClearingKind kind, Id line, std::optional<int> seen = {}) {
    const auto outcome = toggleMark(session, kind, line, 0, seen);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refusal->text;
    if (const auto* other = std::get_if<ToggleOvertaken>(&outcome)) return other->text;
    return std::to_string(std::get<Toggled>(outcome).mark);
  }
  std::string undone(Session& session) {
    const auto batch = lastBatch(session);
    if (!batch) return "nothing";
    const auto outcome = undoBatch(session, *batch);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refusal->text;
    if (std::holds_alternative<Cancelled>(outcome)) return "no";
    const auto& [lines, kept] = std::get<Undone>(outcome);
    return workText(batch->work) + " " + std::to_string(lines) + " " + std::to_string(kept);
  }
  MatchCounts matchAll(Session& session, ClearingKind kind) {
    const auto outcome = matchAutomatically(session, kind, allParties(session, kind));
    EXPECT_FALSE(outcome.failure);
    return outcome.all();
  }

  TestLedger ledger_{GetParam()};
  CQnCwDB db_{Access::report};
};

TEST_P(ClearingMarks, ToggleOneLineAndTellWhoWasThereFirst) {
  auto session = sessionOf(db_, "王会计");
  EXPECT_EQ(toggled(session, unit, 9, 0), "1");
  EXPECT_EQ(toggled(session, unit, 9, 1), "0");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 2 WHERE lId = 9");
  EXPECT_EQ(toggled(session, unit, 9, 2), "0") << "one toggle opens a line that was matched";
  EXPECT_EQ(toggled(session, person, 6), "1");

  CQnCwDB otherDb(Access::report);
  otherDb.Open(ledger_.address());
  auto other = sessionOf(otherDb, "李会计");
  other.now = [] { return std::chrono::sys_days{std::chrono::year{2006} / 2 / 1}; };
  EXPECT_EQ(toggled(other, unit, 9), "1");
  EXPECT_EQ(toggled(session, unit, 9, 0), "这条分录的两清标记已被李会计（" + localTextOf("2006-02-01T00:00:00Z") +
                                              "）改动，现在是手工两清（√），没有再改。");
  EXPECT_EQ(marks(), "6|1\n9|1\n");
  EXPECT_EQ(toggled(session, unit, 99), "编号为 99 的分录不在已记帐分录中");
  ledger_.keeper().execute("UPDATE RegSub SET lTieId = 98 WHERE lId = 3");
  EXPECT_EQ(toggled(session, unit, 3), "编号为 3 的分录不在已记帐分录中") << "its voucher is gone";
  EXPECT_EQ(toggled(session, unit, 8), "编号为 8 的分录不是个人往来或单位往来的分录");
  EXPECT_EQ(toggled(session, unit, 6), "编号为 6 的分录不是单位往来的分录");
}

TEST_P(ClearingMarks, MatchEachAccountAndPartyAndCountByRule) {
  auto session = sessionOf(db_, "王会计");
  const auto outcome = matchAutomatically(session, unit, allParties(session, unit));
  ASSERT_EQ(outcome.accounts.size(), 2U);
  EXPECT_EQ(outcome.accounts[0].text(), "应收(1131)");
  EXPECT_EQ(outcome.accounts[0].counts, (MatchCounts{.pairwise = 2}));
  EXPECT_EQ(outcome.accounts[1].counts, (MatchCounts{.byNumber = 2})) << "foreign amounts are compared";
  EXPECT_EQ(marks(), "3|2\n4|2\n5|2\n9|2\n") << "by date and voucher line 9 is the first";
  EXPECT_EQ(ledger_.rows("SELECT count(*), count(DISTINCT sBatch), count(DISTINCT sWhen) FROM MarkLog"), "4|1|1\n");
  CTzGrid grid;
  fillMatchGrid(outcome, grid);
  EXPECT_EQ(grid.ShownAt(1, 1) + grid.ShownAt(1, 2) + grid.ShownAt(1, 3), "2");
  EXPECT_EQ(matchAll(session, unit), MatchCounts{}) << "only what is open";

  // Stopped between two parties: the first of them is whole.
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 0");
  int asked = 0;
  const MatchWatch watch{.party = [&](const Party&) { ++asked; }};
  ledger_.keeper().execute("UPDATE RegSub SET lCodeId = 1 WHERE lEnterId = 12");
  ledger_.keeper().execute("UPDATE RegSub SET lEnterId = 11, lCodeId = 2, mForeign = 1 WHERE lId IN (2, 3)");
  session.cancelled = [&] { return asked == 1; };
  const auto stopped = matchAutomatically(session, unit, allParties(session, unit), watch);
  EXPECT_TRUE(stopped.stopped);
  EXPECT_EQ(stopped.all(), MatchCounts{}) << "one line alone on the first account";
  EXPECT_EQ(asked, 1);
  session.cancelled = [] { return false; };
  EXPECT_EQ(matchAll(session, person), (MatchCounts{.pairwise = 2}));
  EXPECT_EQ(partiesOfDept(session, 10).size(), 2U);
}

TEST_P(ClearingMarks, ReverseEverybodyOfTheKindOnceThePersonAgrees) {
  auto session = sessionOf(db_, "王会计");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 2 WHERE lId IN (3, 4)");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 1 WHERE lId IN (6, 9)");
  std::string asked;
  session.ask = [&](const Question& question) { return asked += question.text, false; };
  EXPECT_TRUE(std::holds_alternative<Cancelled>(reverseClearing(session, unit)));
  EXPECT_TRUE(std::holds_alternative<Cancelled>(reverseClearing(session, person)));
  EXPECT_EQ(asked, "是否对所有单位往来业务进行反两清?是否对所有个人往来业务进行反两清?");
  session.ask = [](const Question&) { return true; };
  EXPECT_EQ(std::get<std::int64_t>(reverseClearing(session, unit)), 3);
  EXPECT_EQ(marks(), "6|1\n");
  EXPECT_EQ(std::get<std::int64_t>(reverseClearing(session, unit)), 0);
  EXPECT_EQ(undone(session), "反两清（单位往来） 3 0");
  EXPECT_EQ(marks(), "3|2\n4|2\n6|1\n9|1\n");
  EXPECT_EQ(undone(session), "nothing");
}

TEST_P(ClearingMarks, UndoGoesBackBatchByBatch) {
  auto session = sessionOf(db_, "王会计");
  EXPECT_EQ(undone(session), "nothing");
  EXPECT_EQ(toggled(session, person, 6), "1");
  EXPECT_EQ(matchAll(session, unit).pairwise, 2);
  EXPECT_EQ(undone(session), "自动勾对（单位往来） 4 0");
  EXPECT_EQ(marks(), "6|1\n");
  EXPECT_EQ(toggled(session, unit, 2), "1");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0");
  EXPECT_EQ(undone(session), "手工勾对（个人往来） 1 0");
  EXPECT_EQ(undone(session), "nothing") << "what was taken back is no batch";
  EXPECT_EQ(marks(), "");

  // Another operator's batch is asked about.
  EXPECT_EQ(toggled(session, unit, 2), "1");
  auto other = sessionOf(db_, "李会计");
  std::string asked;
  other.ask = [&](const Question& question) { return asked = question.text, false; };
  EXPECT_EQ(undone(other), "no");
  EXPECT_TRUE(asked.starts_with("最近一批是王会计的手工勾对（单位往来）（")) << asked;
  EXPECT_TRUE(asked.ends_with("，1 条分录）。要撤销吗?")) << asked;
  const auto batch = *lastBatch(session);
  EXPECT_TRUE(std::holds_alternative<Undone>(undoBatch(session, batch)));
  EXPECT_EQ(std::get<Refusal>(undoBatch(session, batch)).text, "这一批标记已被别人撤销");
}

TEST_P(ClearingMarks, UndoTakesBackWhatIsMarkedAnewAfterOthersWereTakenBack) {
  // A server's ledger may hold one line id in several vouchers.
  if (GetParam() == Engine::postgres) ledger_.keeper().execute("UPDATE RegSub SET lId = 9 WHERE lId = 3");
  auto session = sessionOf(db_, "王会计");
  EXPECT_EQ(toggled(session, unit, 2), "1");
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(toggled(session, unit, 2), "0");
    EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0");
    EXPECT_EQ(marks(), "2|1\n");
  }
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0");
  EXPECT_EQ(matchAll(session, unit).pairwise, 2);
  EXPECT_EQ(toggled(session, unit, 2), "1");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0") << "two batches that opened the line are gone long since";
  EXPECT_EQ(undone(session), "自动勾对（单位往来） 4 0");
  EXPECT_EQ(marks(), "");
}

// A mark that another program wrote is left alone, and stands in the way of no earlier batch.
TEST_P(ClearingMarks, UndoGoesPastMarksThatNobodyMaySet) {
  auto session = sessionOf(db_, "王会计");
  EXPECT_EQ(toggled(session, person, 6), "1");
  EXPECT_EQ(toggled(session, unit, 2), "1");
  if (GetParam() == Engine::postgres)
    ledger_.keeper().execute("ALTER TABLE RegSub DROP CONSTRAINT IF EXISTS regsub_marks");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 3 WHERE lId = 2");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 0 1");
  EXPECT_EQ(undone(session), "手工勾对（个人往来） 1 0");
  EXPECT_EQ(undone(session), "nothing");
  EXPECT_EQ(marks(), "2|3\n");
}

// A matching run of another operator goes on while lines that it has marked are changed again: its batch ends last.
TEST_P(ClearingMarks, UndoLeavesWhatWasChangedSinceAndMakesNoHalfPair) {
  auto session = sessionOf(db_, "王会计");
  auto run = markLines(session, std::vector<MarkChange>{{9, 1, 0, 2}, {3, 2, 0, 2}}, MarkWork::What::match, unit);
  const auto batch = std::get<MarksWritten>(run).batch;
  EXPECT_EQ(toggled(session, unit, 3), "0");
  EXPECT_EQ(toggled(session, unit, 3), "1");
  EXPECT_EQ(toggled(session, unit, 9), "0");
  run = markLines(session, std::vector<MarkChange>{{9, 1, 0, 2}, {2, 2, 0, 2}}, MarkWork::What::match, unit);
  run = markLines(session, std::vector<MarkChange>{{4, 2, 0, 2}, {5, 2, 0, 2}}, batch);
  EXPECT_EQ(undone(session), "自动勾对（单位往来） 2 2");
  EXPECT_EQ(marks(), "2|2\n3|1\n9|2\n");
  EXPECT_EQ(undone(session), "自动勾对（单位往来） 2 0");
  EXPECT_EQ(marks(), "3|1\n");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 0 0") << "line 9 was open before the batch that is gone";
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 0 0");
  EXPECT_EQ(undone(session), "nothing");
  EXPECT_EQ(marks(), "");

  // A voucher that was unposted takes its lines with it.
  EXPECT_EQ(toggled(session, unit, 2), "1");
  EXPECT_EQ(toggled(session, unit, 4), "1");
  ledger_.keeper().execute("DELETE FROM RegSub WHERE lId = 4");
  EXPECT_EQ(undone(session), "手工勾对（单位往来） 1 0");
  EXPECT_EQ(marks(), "");
}

TEST_P(ClearingMarks, AreCheckedAsTheRowsShowThem) {
  auto session = sessionOf(db_, "王会计");
  Request request;
  request.set(ParameterKey::account, "1132");
  request.set(ParameterKey::unit, "乙公司");
  const auto check = [&] {
    auto outcome = runReport(clearingReport(unit), request, session);
    return checkClearing(std::get<ComputedReport>(outcome));
  };
  EXPECT_TRUE(check().level) << "nothing is marked";
  EXPECT_EQ(toggled(session, unit, 4), "1");
  EXPECT_FALSE(check().level);
  EXPECT_EQ(check().debit, 10);
  EXPECT_EQ(toggled(session, unit, 5), "1");
  EXPECT_TRUE(check().level) << "the foreign amounts are";
  request.set(ParameterKey::format, "金额式");
  const auto amounts = check();
  EXPECT_FALSE(amounts.level);
  CTzGrid grid;
  fillCheckGrid(amounts, grid);
  EXPECT_EQ(grid.ShownAt(0, 0) + " " + grid.ShownAt(0, 1) + " " + grid.ShownAt(0, 2), "金额不平 70.00 71.00");
  EXPECT_EQ(grid.Columns()[1].caption + grid.Columns()[2].caption, "借方勾对金额贷方勾对金额");
}

TEST_P(ClearingMarks, StandOnRowsThatLeadToVouchersAndToTheGeneralLedger) {
  ledger_.keeper().execute("UPDATE RegMain SET byPeroid = 0 WHERE lTieId = 1");
  auto session = sessionOf(db_, "王会计");
  const auto answers = [&](ClearingKind kind, std::string_view month) {
    Request request;
    request.set(ParameterKey::account, kind == unit ? "1131" : "1133");
    if (kind == unit) request.set(ParameterKey::unit, "甲公司");
    if (kind == person) request.set(ParameterKey::dept, "销售部");
    if (kind == person) request.set(ParameterKey::person, month.empty() ? "李四" : "张三");
    if (!month.empty()) request.set(ParameterKey::month, month);
    const auto& report = clearingReport(kind);
    const auto outcome = runReport(report, request, session);
    const auto& shown = std::get<ComputedReport>(outcome);
    std::string text;
    const auto tell = [&](const DrillAnswer& answer) {
      if (const auto* refusal = std::get_if<Refusal>(&answer)) text += refusal->text;
      if (const auto* voucher = std::get_if<VoucherTarget>(&answer)) text += std::to_string(voucher->line.line);
      if (const auto* target = std::get_if<DetailTarget>(&answer)) {
        text += std::to_string(target->command) + target->conditions.text(ParameterKey::unit) +
                target->conditions.text(ParameterKey::person) + target->conditions.text(ParameterKey::to);
      }
      text += "|";
    };
    for (std::int64_t row = -1; row < shown.grid.GetRows(); ++row) tell(report.detail(*shown.resolved, shown, row));
    tell(report.generalLedger(*shown.resolved, shown, 0));
    return text;
  };
  EXPECT_EQ(answers(unit, "1"), "请选择凭证记录!|期初数无法联查凭证|2|3|请选择凭证记录!|10201甲公司1|");
  EXPECT_EQ(answers(person, "1"), "请选择凭证记录!|期初数无法联查凭证|7|请选择凭证记录!|10189张三|");
  EXPECT_EQ(answers(person, ""), "无法联查凭证|无法联查凭证|无发生额，无法联查总帐|");
}

TZ_ON_BOTH_DATABASES(ClearingMarks);

}  // namespace
}  // namespace tz::test
