// Marks of many lines at once, alike on both databases: all or none, whoever else is at work and whatever breaks.
#include "core/data/marks.h"

#include <csignal>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "core/data/new_ids.h"
#include "core/data/qncw_db.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Changes = std::vector<MarkChange>;
using Purpose = Transaction::Purpose;

const MarkOrigin someone{"王会计", "2025-01-31T08:05:09Z"};

// Lines 1 to `count`, three to a voucher, none marked.
void addLines(Connection& keeper, Id count) {
  Transaction transaction(keeper, Purpose::writing);
  std::vector<RegSubInfo> lines;
  for (Id id = 1; id <= count; ++id) lines.push_back({.lId = id, .lTieId = id / 3, .dtDate = {2025, 1, 5}});
  insertRecords(keeper, lines);
  transaction.commit();
}

Changes allLines(Id count, int read, int wanted) {
  Changes changes;
  for (Id id = count; id >= 1; --id) changes.push_back({id, id / 3, read, wanted});
  return changes;
}

int readMark(Connection& connection, Id line) {
  const auto row = connection.query(Sql("SELECT byFlag FROM RegSub WHERE lId = ?", line));
  return row->next() ? static_cast<int>(row->integer(0)) : -1;
}

// Every mark is what the log says was written, no id occurs twice and no batch is torn.
void expectLogAndMarksAgree(Connection& connection) {
  EXPECT_EQ(rowsOf(connection,
                   "SELECT lId FROM (SELECT lId, lTieId, byFlag AS mark FROM RegSub UNION ALL SELECT lLineId, lTieId, "
                   "byOld - byNew FROM MarkLog) AS all_of_it GROUP BY lId, lTieId HAVING sum(mark) <> 0"),
            "");
  EXPECT_EQ(rowsOf(connection, "SELECT lId FROM MarkLog GROUP BY lId HAVING count(*) > 1"), "");
}

class Marks : public DatabaseTest {
 protected:
  TestLedger ledger{GetParam()};
};

TEST_P(Marks, OfThousandsOfLinesChangeTogetherEachWithItsRowInTheLog) {
  constexpr Id count = 2500;
  addLines(ledger.keeper(), count);
  ledger.keeper().execute("UPDATE RegSub SET byFlag = 1 WHERE lId <= 10");
  auto changes = allLines(count, 0, 2);
  for (auto& one : changes) one.read = one.lId <= 10 ? 1 : 0;
  const auto report = ledger.open(Access::report);
  const auto written = std::get<MarksWritten>(writeMarks(*report, changes, someone));
  EXPECT_EQ(ledger.rows("SELECT byFlag, count(*) FROM RegSub GROUP BY byFlag"), "2|2500\n");
  EXPECT_EQ(ledger.rows("SELECT byOld, byNew, sOperator, sWhen, sBatch, count(*), count(DISTINCT lLineId) FROM MarkLog "
                        "GROUP BY byOld, byNew, sOperator, sWhen, sBatch ORDER BY byOld"),
            "0|2|王会计|2025-01-31T08:05:09Z|" + written.batch + "|2490|2490\n1|2|王会计|2025-01-31T08:05:09Z|" +
                written.batch + "|10|10\n");
  EXPECT_NE(std::get<MarksWritten>(writeMarks(*report, allLines(3, 2, 0), someone)).batch, written.batch);
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM MarkLog WHERE lId > 9007199254740991"), "0\n");
}

TEST_P(Marks, OvertakenByAnotherOperatorStayAndTheCallerLearnsWhatIsThere) {
  constexpr Id count = 1500;
  addLines(ledger.keeper(), count);
  const auto report = ledger.open(Access::report);
  const auto other = ledger.open(Access::report);
  ASSERT_TRUE(std::holds_alternative<MarksWritten>(
      writeMarks(*other, Changes{{count, count / 3, 0, 1}}, {"李会计", "2025-01-31T08:00:00Z"})));
  auto overtaken = std::get<MarksOvertaken>(writeMarks(*report, allLines(count, 0, 2), someone));
  EXPECT_EQ(overtaken.now.size(), static_cast<std::size_t>(count));
  ledger.keeper().execute("DELETE FROM RegSub WHERE lId = 7");
  overtaken = std::get<MarksOvertaken>(writeMarks(*report, allLines(count, 0, 2), someone));
  ASSERT_EQ(overtaken.now.size(), count - 1U);
  EXPECT_EQ(overtaken.now.front(), (LineMark{1, 0, 0}));
  EXPECT_EQ(overtaken.now.back(), (LineMark{count, count / 3, 1}));
  EXPECT_EQ(ledger.rows("SELECT lId, byFlag FROM RegSub WHERE byFlag <> 0"), "1500|1\n");
  EXPECT_EQ(ledger.rows("SELECT lLineId, sOperator FROM MarkLog"), "1500|李会计\n");
}

TEST_P(Marks, NameTheVoucherOfTheirLineAndEachLineOnce) {
  addLines(ledger.keeper(), 3);
  const auto report = ledger.open(Access::report);
  const auto outcome = writeMarks(*report, Changes{{1, 99, 0, 1}}, someone);
  EXPECT_TRUE(std::get<MarksOvertaken>(outcome).now.empty());
  EXPECT_THROW((void)writeMarks(*report, Changes{{1, 0, 0, 1}, {1, 0, 0, 2}}, someone), std::invalid_argument);
  EXPECT_THROW((void)writeMarks(*report, Changes{{1, 0, 0, 1}, {2, 0, 0, 3}}, someone), DbError);
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM RegSub WHERE byFlag <> 0"), "0\n");
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM MarkLog"), "0\n");
  const auto reader = ledger.open(Access::read);
  EXPECT_THROW((void)writeMarks(*reader, Changes{{1, 0, 0, 1}}, someone), DbError);
}

// One operator: raises every line's mark by one (2 becomes 0) that often, beginning anew when he is overtaken, and adds
// an interval each time.
void markInTurns(const std::string& address, int turns, Id lines) {
  CQnCwDB db(Access::report);
  db.Open(address);
  for (int done = 0; done < turns;) {
    Changes changes;
    for (Id id = 1; id <= lines; ++id) {
      const int mark = readMark(db.Current(), id);
      changes.push_back({id, id / 3, mark, (mark + 1) % 3});
    }
    if (std::holds_alternative<MarksOvertaken>(writeMarks(db.Current(), changes, someone))) continue;
    ++done;
    (void)db.Ages_AddNew({.byType = 1, .lLength = 30});
  }
}

TEST_P(Marks, OfTwoOperatorsAtOnceLoseNothingAndMakeNoIdTwice) {
  constexpr int turns = 25;
  constexpr Id lines = 4;
  addLines(ledger.keeper(), lines);
  {
    const std::jthread other(markInTurns, ledger.address(), turns, lines);
    markInTurns(ledger.address(), turns, lines);
  }
  EXPECT_EQ(ledger.rows("SELECT count(*), count(DISTINCT lId), count(DISTINCT sBatch) FROM MarkLog"), "200|200|50\n");
  EXPECT_EQ(ledger.rows("SELECT count(*), count(DISTINCT lId) FROM Ages"), "50|50\n");
  EXPECT_EQ(ledger.rows("SELECT DISTINCT byFlag FROM RegSub"), std::to_string(2 * turns % 3) + "\n");
  expectLogAndMarksAgree(ledger.keeper());
}

// For the tests that run as a program of their own.
std::string markedLedger() {
  const char* address = std::getenv("TZ_MARKED_LEDGER");
  return address == nullptr ? "" : address;
}

// This program once more, to run one of the tests that are for other tests alone.
std::vector<std::string> selfRunning(const std::string& test) {
  return {std::filesystem::read_symlink("/proc/self/exe").string(), "--gtest_also_run_disabled_tests",
          "--gtest_filter=" + test};
}

// Marks all lines and takes the marks back, again and again, until it is killed.
TEST(MarksForOthers, DISABLED_ChangeForEver) {
  const auto report = openLedger(markedLedger(), Access::report);
  for (int mark = 0;; mark = 2 - mark) (void)writeMarks(*report, allLines(3000, mark, 2 - mark), someone);
}

TEST_P(Marks, OfAKilledWriterAreThereWhollyOrNotAtAll) {
  addLines(ledger.keeper(), 3000);
  setenv("TZ_MARKED_LEDGER", ledger.address().c_str(), 1);
  for (const int milliseconds : {0, 3, 7, 12, 20, 35}) {
    auto words = selfRunning("MarksForOthers.DISABLED_ChangeForEver");
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t writer = -1;
    ASSERT_EQ(posix_spawn(&writer, words.front().c_str(), nullptr, nullptr, arguments.data(), environ), 0);
    while (ledger.rows("SELECT count(*) FROM MarkLog") == "0\n" && waitpid(writer, nullptr, WNOHANG) == 0) {
      std::this_thread::yield();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));  // it is somewhere in one of the next
    kill(writer, SIGKILL);
    int status = 0;
    EXPECT_EQ(waitpid(writer, &status, 0), writer);
    EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
    EXPECT_EQ(ledger.rows("SELECT count(DISTINCT byFlag) FROM RegSub"), "1\n");
    expectLogAndMarksAgree(ledger.keeper());
    ledger.keeper().execute("UPDATE RegSub SET byFlag = 0");
    ledger.keeper().execute("DELETE FROM MarkLog");
  }
}

TEST_P(Marks, TakeAnyNameOfAnOperator) {
  addLines(ledger.keeper(), 1);
  const auto report = ledger.open(Access::report);
  int mark = 0;
  for (const std::string name : {"O'Brien'); DROP TABLE Plan --", "a\tb\nc\\N\\.", "\\.", "", "𠮷田 ?$1"}) {
    const int next = mark == 0 ? 1 : 0;
    const MarkOrigin origin{name, someone.when};
    ASSERT_TRUE(std::holds_alternative<MarksWritten>(writeMarks(*report, Changes{{1, 0, mark, next}}, origin))) << name;
    const auto kept = report->query(Sql("SELECT count(*) FROM MarkLog WHERE sOperator = ?", name));
    EXPECT_TRUE(kept->next() && kept->integer(0) == 1) << name;
    mark = next;
  }
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM Plan"), "0\n");
}

TZ_ON_BOTH_DATABASES(Marks);

TEST(MarksForOthers, DISABLED_ChangeOnce) {
  const auto report = openLedger(markedLedger(), Access::report);
  try {
    EXPECT_TRUE(std::holds_alternative<MarksWritten>(writeMarks(*report, allLines(20'000, 0, 2), someone)));
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::full) << error.what();
    throw;
  }
}

TEST(MarksOnASmallDisk, AreWrittenWhollyOrNotAtAll) {
  TestLedger ledger(Engine::sqlite);
  addLines(ledger.keeper(), 20'000);
  const std::filesystem::path place(ledger.address());
  int written = 0;
  for (const int kibibytes : {0, 100, 1000, 100'000}) {
    ledger.keeper().query("PRAGMA wal_checkpoint(TRUNCATE)")->next();
    const auto bytes = file_size(place) + static_cast<std::uintmax_t>(kibibytes) * 1024 + 65'536;
    const auto run = runCommand(
        selfRunning("MarksForOthers.DISABLED_ChangeOnce"),
        {"TZ_MARKED_LEDGER=" + ledger.address(), "LD_PRELOAD=" TZ_SMALL_DISK, "ASAN_OPTIONS=verify_asan_link_order=0",
         "TZ_DISK_FOLDER=" + place.parent_path().string(), "TZ_DISK_BYTES=" + std::to_string(bytes)});
    EXPECT_EQ(run.out.find("error.kind()"), std::string::npos) << run.out;
    EXPECT_EQ(ledger.rows("SELECT count(*) FROM MarkLog"), run.status == 0 ? "20000\n" : "0\n") << run.out;
    expectLogAndMarksAgree(ledger.keeper());
    written += run.status == 0 ? 1 : 0;
  }
  EXPECT_EQ(written, 1);
}

TEST(NewIds, ThatSomebodyElseMadeAreMadeAnew) {
  int attempts = 0;
  const auto failing = [&](int times) {
    return [&attempts, times] {
      if (++attempts <= times) throw DbError(DbError::Kind::duplicate, "there already");
      return attempts;
    };
  };
  EXPECT_EQ(withNewIds(failing(2)), 3);
  attempts = 0;
  EXPECT_THROW(withNewIds(failing(99)), DbError);
  EXPECT_LT(attempts, 10);
}

}  // namespace
}  // namespace tz::test
