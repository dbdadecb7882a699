// What reports and readers may do to a ledger, enforced by the database itself.
#include <filesystem>

#include "support/test_ledger.h"

namespace tz::test {
namespace {

const std::vector<const char*> reportWritings = {
    "UPDATE RegSub SET byFlag = 1 WHERE lId = 1 AND lTieId = 1 AND byFlag = 0",
    "UPDATE RegSub SET byFlag = 1 FROM (VALUES (1)) AS v WHERE lId = v.column1",
    "INSERT INTO Plan (lId, lCodeId, mPPlan) VALUES (2, 7, 10.5)",
    "UPDATE Plan SET mPPlan = 11, mPLast = 3 WHERE lId = 2",
    "DELETE FROM Plan WHERE lId = 2",
    "INSERT INTO Ages (lId, byType, nNumber, lLength) VALUES (2, 0, 1, 30)",
    "UPDATE Ages SET lLength = 45 WHERE lId = 2",
    "DELETE FROM Ages WHERE lId = 2",
    "INSERT INTO MarkLog (lId, lTieId, lLineId, byOld, byNew) VALUES (2, 1, 1, 0, 1)",
};

const std::vector<const char*> otherWritings = {
    "INSERT INTO RegSub (lId, lTieId, dtDate) VALUES (2, 1, '2006-01-05')",
    "UPDATE RegSub SET mMoney = 0",
    "UPDATE RegSub SET byFlag = 2, mMoney = 0",
    "UPDATE RegSub SET byFlag = 2, mMoney = v.column2 FROM (VALUES (1, 0)) AS v WHERE lId = v.column1",
    "DELETE FROM RegSub",
    "UPDATE UnregSub SET byFlag = 1",
    "UPDATE RegMain SET byPeroid = 2",
    "UPDATE Code SET sName = 'x'",
    "INSERT INTO Person (lId) VALUES (9)",
    "DELETE FROM zOperator",
    "UPDATE MarkLog SET byNew = 0",
    "DELETE FROM MarkLog",
    "DROP TABLE Plan",
    "ALTER TABLE Plan ADD COLUMN x integer",
    "CREATE TABLE Mine (lId integer)",
    "CREATE INDEX Mine ON Plan (mPPlan)",
    "DROP VIEW systable",
};

class AccessTest : public DatabaseTest {
 protected:
  void SetUp() override {
    ledger.fill("Code", R"(
        lId | sCode | sName
        7   | 1131  | 应收账款 )");
    ledger.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate
        1      | 1        | 2006-01-05 | 2006-01-05 )");
    ledger.fill("RegSub", R"(
        lId | lTieId | lCodeId | mMoney | dtDate
        1   | 1      | 7       | 100.25 | 2006-01-05 )");
    ledger.fill("Plan", "lId | lCodeId\n 1 | 1");
    ledger.fill("Ages", "lId | nNumber\n 1 | 1");
    ledger.fill("MarkLog", "lId | byNew\n 1 | 1");
    ledger.fill("zOperator", "lId | sName\n 1 | 会计");
  }

  // Everything that a refused statement could have changed.
  std::string contents() {
    return ledger.rows("SELECT lId, sName FROM Code") + ledger.rows("SELECT lTieId, byPeroid FROM RegMain") +
           ledger.rows("SELECT lId, mMoney, byFlag FROM RegSub") + ledger.rows("SELECT lId, lCodeId FROM Plan") +
           ledger.rows("SELECT lId, byNew FROM MarkLog") + ledger.rows("SELECT count(*) FROM zOperator") +
           ledger.rows("SELECT count(*) FROM Person") + ledger.rows("SELECT count(*) FROM systable");
  }

  static void expectDenied(Connection& connection, const char* statement) {
    try {
      connection.execute(statement);
      ADD_FAILURE() << "went through: " << statement;
    } catch (const DbError& error) {
      EXPECT_EQ(error.kind(), DbError::Kind::denied) << statement << ": " << error.what();
    }
  }

  TestLedger ledger{GetParam()};
};

TEST_P(AccessTest, AReportWritesMarksPlansIntervalsAndTheMarkLog) {
  const auto report = ledger.open(Access::report);
  for (const auto* statement : reportWritings) {
    EXPECT_EQ(report->execute(statement), 1) << statement;
  }
  EXPECT_EQ(report->execute(reportWritings.front()), 0) << "the mark had changed before";
  const std::vector<std::string> columns = {"lId", "byType", "lLength"};
  const auto writer = report->insertInto("Ages", columns);
  for (const std::int64_t id : {11, 12}) {
    writer->put(id);
    writer->put(std::int64_t{1});
    writer->put(id * 30);
    writer->endRow();
  }
  writer->finish();
  EXPECT_EQ(ledger.rows("SELECT lId, byFlag, mMoney FROM RegSub"), "1|1|100.25\n");
  EXPECT_EQ(ledger.rows("SELECT lId, lLength FROM Ages ORDER BY lId"), "1|0\n11|330\n12|360\n");
}

TEST_P(AccessTest, AReportIsRefusedEverythingElse) {
  const auto before = contents();
  const auto report = ledger.open(Access::report);
  for (const auto* statement : otherWritings) expectDenied(*report, statement);
  EXPECT_EQ(contents(), before);
}

// What would undo the restriction itself, or get the contents out by another way.
TEST_P(AccessTest, NobodyChangesWhatAConnectionMayDo) {
  const TempFolder folder;
  const std::vector<std::string> statements =
      onServer() ? std::vector<std::string>{"RESET ROLE",
                                            "SET ROLE NONE",
                                            "SET SESSION AUTHORIZATION DEFAULT",
                                            "RESET default_transaction_read_only",
                                            "RESET ALL",
                                            "SET default_transaction_read_only = off",
                                            "DISCARD ALL",
                                            "DO $$ BEGIN EXECUTE 'RESET ROLE'; END $$",
                                            "  reset role",
                                            "COPY Code TO '" + folder.file("out") + "'",
                                            "CREATE TEMP TABLE t (i integer)"}
                 : std::vector<std::string>{"PRAGMA query_only = OFF",
                                            "PRAGMA writable_schema = ON",
                                            "PRAGMA recursive_triggers = OFF",
                                            "PRAGMA user_version = 9",
                                            "PRAGMA journal_mode = DELETE",
                                            "PRAGMA trusted_schema = ON",
                                            "ATTACH '" + folder.file("out") + "' AS other",
                                            "ATTACH ':memory:' AS other",
                                            "VACUUM INTO '" + folder.file("out") + "'",
                                            "VACUUM",
                                            "REINDEX",
                                            "ANALYZE",
                                            "CREATE TEMP TABLE t (i integer)",
                                            "DETACH main",
                                            "INSERT INTO temp.sqlite_master (type) VALUES ('table')"};
  const auto before = contents();
  std::vector<std::unique_ptr<Connection>> connections;
  connections.push_back(ledger.open(Access::read));
  connections.push_back(ledger.open(Access::report));
  connections.push_back(openAsStored(ledger.address()));
  for (const auto& connection : connections) {
    for (const auto& statement : statements) expectDenied(*connection, statement.c_str());
    expectDenied(*connection, "UPDATE RegSub SET mMoney = 0");
    EXPECT_EQ(rowsOf(*connection, "SELECT sName FROM Code"), "应收账款\n");
  }
  EXPECT_EQ(contents(), before);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_P(AccessTest, TheMarkLogNeverLosesARow) {
  const auto report = ledger.open(Access::report);
  if (!onServer()) expectDenied(*report, "DROP TRIGGER temp.tz_log_stays");
  constexpr const char* replacing[] = {
      "INSERT OR REPLACE INTO MarkLog (lId, lTieId, lLineId, byOld, byNew) VALUES (1, 9, 9, 9, 9)",
      "REPLACE INTO MarkLog (lId, lTieId, lLineId, byOld, byNew) VALUES (1, 9, 9, 9, 9)",
  };
  if (!onServer()) {
    for (const char* statement : replacing) expectDenied(*report, statement);
  }
  expectDenied(*report, "INSERT INTO MarkLog (lId, byNew) VALUES (1, 9) ON CONFLICT (lId) DO UPDATE SET byNew = 9");
  EXPECT_THROW(report->execute("INSERT INTO MarkLog (lId, lTieId) VALUES (1, 9)"), DbError);
  EXPECT_EQ(ledger.rows("SELECT lId, lTieId, byNew FROM MarkLog"), "1|0|1\n");
}

TEST_P(AccessTest, AMarkTakesItsThreeValuesOnly) {
  const auto report = ledger.open(Access::report);
  for (const int mark : {1, 2, 0}) {
    EXPECT_EQ(report->execute(Sql("UPDATE RegSub SET byFlag = ? WHERE lId = 1 AND lTieId = 1", mark)), 1);
  }
  for (const int mark : {3, -1, 100}) {
    EXPECT_THROW(report->execute(Sql("UPDATE RegSub SET byFlag = ? WHERE lId = 1 AND lTieId = 1", mark)), DbError);
  }
  EXPECT_EQ(ledger.rows("SELECT byFlag FROM RegSub"), "0\n");
}

TEST_P(AccessTest, AReportReadsEveryTable) {
  ledger.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程");
  ledger.makeItemTable("01");
  const auto report = ledger.open(Access::report);
  const auto tables = ledger.keeper().query("SELECT table_name FROM systable");
  int count = 0;
  while (tables->next()) {
    EXPECT_NE(rowsOf(*report, Sql("SELECT count(*) FROM " + std::string(tables->text(0)))), "");
    ++count;
  }
  EXPECT_EQ(count, 23);
}

TEST_P(AccessTest, AReaderWritesNothing) {
  const auto before = contents();
  const auto reader = ledger.open(Access::read);
  for (const auto* statement : reportWritings) expectDenied(*reader, statement);
  for (const auto* statement : otherWritings) expectDenied(*reader, statement);
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(rowsOf(*reader, "SELECT sName FROM Code"), "应收账款\n");
}

TZ_ON_BOTH_DATABASES(AccessTest);

}  // namespace
}  // namespace tz::test
