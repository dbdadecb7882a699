// Marks of operators who are in each other's way: each of them writes in the very moment between another's reading and
// writing. And a ledger that refuses in the middle. Alike on both databases.
#include <algorithm>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "core/receivables/automatic_matching.h"
#include "core/receivables/clearing_marks.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

constexpr auto ofUnits = ClearingKind::unit;

class OvertakenMarks : public DatabaseTest {
 protected:
  OvertakenMarks() {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 公司 | 4222 | 2006");
    ledger_.fill("Code", "lId | sCode | sName | bEnd | bDirect | sAssBook\n 1 | 1131 | 应收 | 1 | 1 | B");
    ledger_.fill("Enter", "lId | sEnterId | sEnterName\n 11 | E1 | 甲公司\n 12 | E2 | 乙公司");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 1        | 2006-01-05 | 2006-01-05 | 记    | 1
        2      | 1        | 2006-01-31 | 2006-01-31 | 记    | 2 )");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lEnterId | mMoney | bDirect | dtDate
        1   | 2      | 1       | 11       | 10     | 1       | 2006-01-31
        2   | 1      | 1       | 11       | 10     | 0       | 2006-01-05
        3   | 2      | 1       | 11       | 20     | 1       | 2006-01-31
        4   | 1      | 1       | 11       | 20     | 0       | 2006-01-05
        5   | 1      | 1       | 12       | 10     | 1       | 2006-01-05
        6   | 2      | 1       | 12       | 10     | 0       | 2006-01-31 )");
    for (auto* db : {&db_, &otherDb_}) db->Open(ledger_.address());
    other_.who.name = "李会计";
    for (auto* session : {&session_, &other_}) session->ask = [](const Question&) { return true; };
  }

  // Once, in the moment when the session has read and is about to write.
  void meanwhile(std::function<void()> work) {
    session_.now = [this, work = std::move(work), done = false]() mutable {
      if (!std::exchange(done, true)) work();
      return std::chrono::sys_seconds(std::chrono::sys_days{std::chrono::year{2006} / 2 / 1});
    };
  }
  void toggle(Session& session, Id line) {
    EXPECT_TRUE(std::holds_alternative<Toggled>(toggleMark(session, ofUnits, line))) << line;
  }
  MatchOutcome match(Session& session) { return matchAutomatically(session, ofUnits, allParties(session, ofUnits)); }
  // How many lines have their mark of before again and how many stay; or why not.
  std::string undone(Session& session) {
    const auto batch = lastBatch(session);
    if (!batch) return "nothing";
    const auto outcome = undoBatch(session, *batch);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refusal->text;
    const auto& [lines, kept] = std::get<Undone>(outcome);
    return std::to_string(lines) + " " + std::to_string(kept);
  }
  // The marks of lines 1 to 6 in their order, if they are what the log says.
  std::string marks() {
    EXPECT_EQ(ledger_.rows("SELECT lId FROM (SELECT lId, lTieId, byFlag AS mark FROM RegSub UNION ALL SELECT lLineId, "
                           "lTieId, byOld - byNew FROM MarkLog) AS both_of_them GROUP BY lId, lTieId HAVING sum(mark) "
                           "<> 0"),
              "");
    std::string all;
    for (const char mark : ledger_.rows("SELECT byFlag FROM RegSub ORDER BY lId, lTieId")) {
      if (mark != '\n') all += mark;
    }
    return all;
  }

  TestLedger ledger_{GetParam()};
  CQnCwDB db_{Access::report}, otherDb_{Access::report};
  Session session_{.db = db_, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
  Session other_{.db = otherDb_, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
};

TEST_P(OvertakenMarks, AreReadAnewAndNeverOverwritten) {
  meanwhile([&] { toggle(other_, 1); });
  EXPECT_EQ(match(session_).all(), (MatchCounts{.pairwise = 4})) << "line 2 has lost its other half";
  EXPECT_EQ(marks(), "102222");

  meanwhile([&] { toggle(other_, 2); });
  const auto seen = toggleMark(session_, ofUnits, 2, 1, 0);
  ASSERT_TRUE(std::holds_alternative<ToggleOvertaken>(seen));
  EXPECT_EQ(std::get<ToggleOvertaken>(seen).mark, 1);
  EXPECT_EQ(marks(), "112222");
  meanwhile([&] { toggle(other_, 2); });
  toggle(session_, 2);
  EXPECT_EQ(marks(), "112222") << "opened by the other one, toggled once more";

  toggle(other_, 6);
  meanwhile([&] { toggle(other_, 6); });
  EXPECT_EQ(std::get<std::int64_t>(reverseClearing(session_, ofUnits)), 6)
      << "what was marked before it wrote is reached";
  EXPECT_EQ(marks(), "000000");
  EXPECT_EQ(ledger_.rows("SELECT count(DISTINCT sBatch) FROM MarkLog WHERE sBatch LIKE 'reverse:%'"), "1\n");
}

TEST_P(OvertakenMarks, OfABatchAreTakenBackWhereNothingHasHappenedSince) {
  EXPECT_EQ(match(session_).all().pairwise, 6);
  // A line of the first pair is opened, and the pair matched again by somebody else.
  meanwhile([&] {
    for (const Id line : {1, 2}) toggle(other_, line);
    EXPECT_EQ(match(other_).all().pairwise, 2);
  });
  const auto batch = lastBatch(session_);
  ASSERT_TRUE(batch);
  const auto outcome = undoBatch(session_, *batch);
  EXPECT_EQ(std::get<Undone>(outcome).lines, 4);
  EXPECT_EQ(std::get<Undone>(outcome).kept, 2) << "the marks are alike, but another batch's";
  EXPECT_EQ(marks(), "220000");
  EXPECT_EQ(undone(other_), "2 0");
  EXPECT_EQ(undone(other_), "0 0") << "what was toggled open is gone";
  EXPECT_EQ(undone(other_), "0 0");
  EXPECT_EQ(undone(other_), "nothing");

  // Two take back the same batch.
  toggle(session_, 3);
  meanwhile([&] { EXPECT_EQ(undone(other_), "1 0"); });
  EXPECT_EQ(undone(session_), "这一批标记已被别人撤销");
  EXPECT_EQ(marks(), "000000");
}

// A run is still going on when the first part of its batch is taken back.
TEST_P(OvertakenMarks, OfABatchThatGoesOnCanBeTakenBackToo) {
  const auto first =
      markLines(session_, std::vector<MarkChange>{{1, 2, 0, 2}, {2, 1, 0, 2}}, MarkWork::What::match, ofUnits);
  const auto batch = std::get<MarksWritten>(first).batch;
  EXPECT_EQ(undone(session_), "2 0");
  (void)markLines(session_, std::vector<MarkChange>{{1, 2, 0, 2}, {2, 1, 0, 2}}, batch);
  EXPECT_EQ(undone(session_), "2 0");
  meanwhile([&] { (void)markLines(other_, std::vector<MarkChange>{{3, 2, 0, 2}, {4, 1, 0, 2}}, batch); });
  (void)markLines(other_, std::vector<MarkChange>{{5, 1, 0, 2}, {6, 2, 0, 2}}, batch);
  EXPECT_EQ(undone(session_), "2 0");
  EXPECT_EQ(marks(), "002200");
  EXPECT_EQ(undone(session_), "2 0");
  EXPECT_EQ(undone(session_), "nothing");
  EXPECT_EQ(marks(), "000000");
}

// What stands in the log for each line, with what was taken back struck out.
class NaiveStory {
 public:
  struct Row {
    std::string batch;
    std::size_t line;
    int after;
    bool struckOut = false;
  };

  void add(const std::string& batch, const std::string& before, const std::string& after) {
    for (std::size_t line = 0; line < after.size(); ++line) {
      if (before[line] != after[line]) rows_.push_back({batch, line, after[line]});
    }
  }
  // The marks after the last batch was taken back; nothing where there is none.
  std::string takeBack(std::string marks) {
    const auto last = std::ranges::find(rows_.rbegin(), rows_.rend(), false, &Row::struckOut);
    if (last == rows_.rend()) return "nothing";
    const auto name = last->batch;
    for (std::size_t line = 0; line < marks.size(); ++line) {
      int before = '0', mark = marks[line];
      bool of = false, since = false;
      for (auto& row : rows_) {
        if (row.line != line || row.struckOut) continue;
        since = of && row.batch != name;
        if (row.batch == name) of = row.struckOut = true;
        if (!of) before = row.after;
      }
      if (of && !since) mark = before;
      marks[line] = static_cast<char>(mark);
    }
    return marks;
  }

 private:
  std::vector<Row> rows_;
};

TEST_P(OvertakenMarks, AreTakenBackAsANaiveStoryTells) {
  std::mt19937 dice(7);
  NaiveStory story;
  std::vector<std::string> runs;
  for (int step = 0; step < (onServer() ? 60 : 400); ++step) {
    const auto before = marks();
    const auto work = dice() % 10;
    if (work < 4) {
      const auto expected = story.takeBack(before);
      const auto told = undone(session_);
      ASSERT_EQ(told == "nothing" ? told : marks(), expected) << "step " << step << " from " << before;
      continue;
    }
    const auto two = dice() % 3 * 2;
    if (work < 7) {
      toggle(session_, static_cast<Id>(1 + dice() % 6));
    } else if (work < 8) {
      (void)reverseClearing(session_, ofUnits);
    } else if (work < 9 || runs.empty() || before.substr(two, 2) != "00") {
      (void)match(session_);
    } else {  // an earlier run goes on
      const auto id = static_cast<Id>(two) + 1;
      const Id voucher = id == 5 ? 1 : 2;
      (void)markLines(session_, std::vector<MarkChange>{{id, voucher, 0, 2}, {id + 1, 3 - voucher, 0, 2}},
                      runs[dice() % runs.size()]);
    }
    if (marks() == before) continue;
    auto batch = ledger_.rows("SELECT sBatch FROM MarkLog ORDER BY lId DESC LIMIT 1");
    batch.pop_back();
    story.add(batch, before, marks());
    if (batch.starts_with("match:")) runs.push_back(batch);
  }
}

TEST_P(OvertakenMarks, OfOtherProgramsStayAsTheyAre) {
  if (onServer()) ledger_.keeper().execute("ALTER TABLE RegSub DROP CONSTRAINT regsub_marks");
  ledger_.keeper().execute(
      "INSERT INTO MarkLog VALUES (1, 1, 2, 5, 0, '', '', ''), (2, 1, 2, 0, 7, '别人', '', 'x'), "
      "(3, 1, 2, 7, 0, '别人', '', '20060131'), (4, 0, 2, 0, 1, '别人', '', 'plan:set:4')");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 5 WHERE lId = 6");
  EXPECT_EQ(match(session_).all().pairwise, 4);
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 1 WHERE lId = 3");
  ledger_.keeper().execute("UPDATE RegSub SET byFlag = 5 WHERE lId = 4");
  EXPECT_EQ(undone(session_), "2 2");
  EXPECT_EQ(ledger_.rows("SELECT lId, byFlag FROM RegSub WHERE byFlag <> 0 ORDER BY lId"), "3|1\n4|5\n6|5\n");
  toggle(session_, 6);
  EXPECT_EQ(ledger_.rows("SELECT byOld, byNew FROM MarkLog WHERE sBatch LIKE 'toggle:%'"), "2|0\n");
  EXPECT_EQ(undone(session_), "1 0");
  EXPECT_EQ(ledger_.rows("SELECT byFlag FROM RegSub WHERE lId = 6"), "2\n") << "no other mark can be written";
  EXPECT_EQ(lastBatch(session_)->name, "20060131") << "of which no more is known";
  EXPECT_EQ(undone(session_), "1 0");
  EXPECT_EQ(ledger_.rows("SELECT byFlag FROM RegSub WHERE lId = 2"), "2\n");
}

// The row of one line after the other is refused; what belongs to it is not there either.
TEST_P(OvertakenMarks, AreWrittenWithTheirRowsInTheLogOrNotAtAll) {
  const auto refuseFrom = [&](Id line) {
    if (onServer()) {
      ledger_.keeper().execute(
          Sql("CREATE OR REPLACE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN IF "
              "NEW.lLineId = " +
              std::to_string(line) +
              " THEN RAISE EXCEPTION 'full' USING ERRCODE = 'disk_full'; END IF; RETURN NEW; END $$"));
      if (line != 1) return;
      ledger_.keeper().execute(
          "CREATE TRIGGER refusing BEFORE INSERT ON MarkLog FOR EACH ROW EXECUTE FUNCTION refuse()");
      return;
    }
    ledger_.keeper().execute("DROP TRIGGER IF EXISTS refusing");
    ledger_.keeper().execute(Sql("CREATE TRIGGER refusing BEFORE INSERT ON MarkLog WHEN NEW.lLineId = " +
                                 std::to_string(line) + " BEGIN SELECT RAISE(ABORT, 'refused'); END"));
  };
  for (Id line = 1; line <= 6; ++line) {
    refuseFrom(line);
    const auto outcome = match(session_);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->kind(), onServer() ? DbError::Kind::full : DbError::Kind::denied);
    EXPECT_EQ(marks(), line <= 4 ? "000000" : "222200");
    EXPECT_EQ(outcome.all().pairwise, line <= 4 ? 0 : 4) << "tells what was written";
    EXPECT_THROW(toggle(session_, line), DbError);
    refuseFrom(99);
    if (line > 4) (void)reverseClearing(session_, ofUnits);
    (void)match(session_);
    refuseFrom(line == 1 ? 2 : line);
    EXPECT_THROW((void)reverseClearing(session_, ofUnits), DbError);
    EXPECT_THROW((void)undone(session_), DbError);
    EXPECT_EQ(marks(), "222222");
    refuseFrom(99);
    EXPECT_EQ(undone(session_), "6 0");
    EXPECT_EQ(marks(), "000000");
  }
}

TZ_ON_BOTH_DATABASES(OvertakenMarks);

class MarksOnAServer : public OvertakenMarks {};

// Where a line is known by voucher and id, two vouchers may have lines of the same id.
TEST_P(MarksOnAServer, OfLinesWithOneIdAreToldApart) {
  ledger_.fill("RegSub", R"(
      lId | lTieId | lCodeId | lEnterId | mMoney | bDirect | dtDate
      1   | 1      | 1       | 12       | 70     | 1       | 2006-01-05
      2   | 2      | 1       | 12       | 70     | 0       | 2006-01-31 )");
  EXPECT_EQ(std::get<Refusal>(toggleMark(session_, ofUnits, 1)).text, "编号为 1 的分录不止一条，请指明凭证");
  const auto of = [&](Id line) {
    return ledger_.rows("SELECT lTieId, byFlag FROM RegSub WHERE lId = " + std::to_string(line) + " ORDER BY lTieId");
  };
  EXPECT_EQ(std::get<Toggled>(toggleMark(session_, ofUnits, 1, 2)).mark, 1);
  EXPECT_EQ(of(1), "1|0\n2|1\n");
  EXPECT_EQ(match(session_).all().pairwise, 6);
  EXPECT_EQ(of(1), "1|2\n2|1\n");
  EXPECT_EQ(of(2), "1|0\n2|2\n");
  EXPECT_EQ(std::get<Toggled>(toggleMark(session_, ofUnits, 2, 1)).mark, 1);
  EXPECT_EQ(undone(session_), "1 0");
  EXPECT_EQ(undone(session_), "6 0");
  EXPECT_EQ(of(1), "1|0\n2|1\n");
  EXPECT_EQ(undone(session_), "1 0");
  EXPECT_EQ(marks(), "00000000");
}

// Two statements that wait for each other: the server ends one of them, and it begins anew.
TEST_P(MarksOnAServer, BeginAnewWhenTheServerEndsThem) {
  ledger_.keeper().execute(
      "DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET default_transaction_isolation = "
      "serializable', current_database()); END $$");
  CQnCwDB db(Access::report);
  db.Open(ledger_.address());
  Session session{.db = db, .ledger = ledger_.address(), .logon = {2006, 1, 31}};
  std::future<MatchOutcome> matched;
  {
    Transaction holding(ledger_.keeper(), Transaction::Purpose::writing);
    ledger_.keeper().execute("SET LOCAL deadlock_timeout = '1min'");
    ledger_.keeper().execute("UPDATE RegSub SET sDigest = 'x' WHERE lId = 3");
    matched = std::async(std::launch::async, [&] { return match(session); });
    while (ledger_.rows("SELECT count(*) FROM pg_locks WHERE NOT granted") == "0\n") {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ledger_.keeper().execute("UPDATE RegSub SET sDigest = 'x' WHERE lTieId = 1");
    holding.commit();
  }
  const auto outcome = matched.get();
  EXPECT_FALSE(outcome.failure) << outcome.failure->what();
  EXPECT_EQ(outcome.all().pairwise, 6);
  EXPECT_EQ(marks(), "222222");
}

// The server ends the connection while it completes the transaction: the answer does not come.
TEST_P(MarksOnAServer, ThatMayBeWrittenAreNotToldAsDoneNorAsNotDone) {
  ledger_.keeper().execute(
      "CREATE FUNCTION ending() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$ BEGIN IF "
      "NEW.lLineId = 5 THEN PERFORM pg_terminate_backend(pg_backend_pid()); END IF; RETURN NULL; "
      "END $$");
  ledger_.keeper().execute(
      "CREATE CONSTRAINT TRIGGER ending AFTER INSERT ON MarkLog DEFERRABLE INITIALLY DEFERRED FOR "
      "EACH ROW EXECUTE FUNCTION ending()");
  const auto outcome = match(session_);
  ASSERT_TRUE(outcome.failure);
  EXPECT_EQ(outcome.failure->kind(), DbError::Kind::undecided) << outcome.failure->what();
  EXPECT_EQ(brokenOffText(outcome),
            "在此之前已勾对 4 条分录，最后一家的不能确定，其余的没有勾对；可以再勾对一次，或者撤销");
  EXPECT_EQ(marks(), "222200");
  try {
    (void)match(session_);
    ADD_FAILURE() << "on a broken connection";
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::lost);
  }
}

INSTANTIATE_TEST_SUITE_P(On, MarksOnAServer, ::testing::Values(Engine::postgres), engineName);

}  // namespace
}  // namespace tz::test
