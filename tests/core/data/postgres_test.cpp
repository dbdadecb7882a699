// What only a server does: connections that break, failed transactions, roles.
#include "core/data/backends.h"
#include "core/data/create_ledger.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

std::unique_ptr<Connection> superuser() { return openPostgres(serverAddress("postgres"), Access::keeper); }

DbError::Kind kindOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const DbError& error) {
    EXPECT_STRNE(error.what(), "");
    return error.kind();
  }
  ADD_FAILURE() << "nothing failed";
  return DbError::Kind::other;
}

void terminate(Connection& victim) {
  const auto process = rowsOf(victim, "SELECT pg_backend_pid()");
  EXPECT_EQ(rowsOf(*superuser(), Sql("SELECT pg_terminate_backend(CAST(? AS integer), 5000)", std::stoi(process))),
            "1\n");
}

TEST(Postgres, ALostConnectionIsToldAsLost) {
  TestLedger ledger(Engine::postgres);
  const auto idle = ledger.open(Access::keeper);
  EXPECT_TRUE(idle->alive());
  terminate(*idle);
  EXPECT_EQ(kindOf([&] { (void)idle->query("SELECT 1 FROM Person"); }), DbError::Kind::lost);
  EXPECT_FALSE(idle->alive());
  EXPECT_EQ(kindOf([&] { idle->execute("DELETE FROM Person"); }), DbError::Kind::lost);

  const auto busy = ledger.open(Access::keeper);
  {
    Transaction transaction(*busy, Transaction::Purpose::writing);
    busy->execute("INSERT INTO Person (lId) SELECT i FROM generate_series(1, 10000) AS i");
    const auto cursor = busy->query("SELECT lId FROM Person");
    ASSERT_TRUE(cursor->next());
    terminate(*busy);
    EXPECT_EQ(kindOf([&] {
                while (cursor->next()) {
                }
              }),
              DbError::Kind::lost);
    EXPECT_EQ(kindOf([&] { transaction.commit(); }), DbError::Kind::lost);
  }
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM Person"), "0\n");
}

TEST(Postgres, ACommitAfterAFailedStatementDoesNotPassForDone) {
  TestLedger ledger(Engine::postgres);
  Transaction transaction(ledger.keeper(), Transaction::Purpose::writing);
  ledger.keeper().execute("INSERT INTO Person (lId) VALUES (1)");
  EXPECT_THROW(ledger.keeper().execute("INSERT INTO Person (lId) VALUES (1)"), DbError);
  EXPECT_TRUE(ledger.keeper().alive());
  EXPECT_EQ(kindOf([&] { transaction.commit(); }), DbError::Kind::other);
}

TEST(Postgres, RefusesTextsThatNoDatabaseTextCanHold) {
  TestLedger ledger(Engine::postgres);
  for (const auto& text : {std::string("a\0b", 3), std::string("\xff\xfe"), std::string("\xe5\xbc")}) {
    EXPECT_EQ(kindOf([&] { ledger.keeper().execute(Sql("INSERT INTO Person (lId, sName) VALUES (1, ?)", text)); }),
              DbError::Kind::other);
    const std::vector<std::string> columns = {"sName"};
    EXPECT_EQ(kindOf([&] {
                const auto writer = ledger.keeper().insertInto("Person", columns);
                writer->put(std::string_view(text));
                writer->endRow();
                writer->finish();
              }),
              DbError::Kind::other);
  }
  EXPECT_EQ(ledger.rows("SELECT count(*) FROM Person"), "0\n");
}

TEST(Postgres, ReadsExactDecimals) {
  TestLedger ledger(Engine::postgres);
  const auto cursor = ledger.keeper().query(
      "SELECT i FROM (VALUES (0), (1.50), (-12345678.0012), (10000), (0.00009), (9007199254740993)) AS n (i)");
  const std::vector<std::pair<std::string, double>> wanted = {
      {"0", 0},         {"1.50", 1.5},        {"-12345678.0012", -12345678.0012},
      {"10000", 10000}, {"0.00009", 0.00009}, {"9007199254740993", 9007199254740993.0}};
  for (const auto& [text, figure] : wanted) {
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->text(0), text);
    EXPECT_EQ(cursor->real(0), figure);
    EXPECT_EQ(cursor->integer(0), text == "9007199254740993" ? 9007199254740993 : static_cast<std::int64_t>(figure));
  }
}

// A ledger whose owner is a plain role of the server.
class PostgresRoles : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto server = superuser();
    server->execute("DROP ROLE IF EXISTS tzassistant_report");
    server->execute("CREATE ROLE tz_owner LOGIN");
    server->execute(Sql("ALTER DATABASE " +
                        rowsOf(*openPostgres(place->address(), Access::read), "SELECT current_database()") +
                        " OWNER TO tz_owner"));
  }
  void TearDown() override {
    place.reset();
    const auto server = superuser();
    server->execute("DROP ROLE IF EXISTS tzassistant_report");
    server->execute("DROP ROLE tz_owner");
  }
  void makeLedger() const {
    createLedger(place->addressAs("tz_owner"), [](Connection& connection) {
      connection.execute("INSERT INTO RegSub (lId, lTieId, dtDate) VALUES (1, 1, '2006-01-05')");
    });
  }

  std::unique_ptr<TestPlace> place = std::make_unique<TestPlace>(Engine::postgres);
};

constexpr const char* mark = "UPDATE RegSub SET byFlag = 1 WHERE lId = 1";

TEST_F(PostgresRoles, AnOwnerWhoMayMakeRolesReportsUnderOne) {
  superuser()->execute("ALTER ROLE tz_owner CREATEROLE");
  makeLedger();
  const auto report = openLedger(place->addressAs("tz_owner"), Access::report);
  EXPECT_EQ(report->execute(mark), 1);
  EXPECT_EQ(kindOf([&] { report->execute("UPDATE RegSub SET mMoney = 1"); }), DbError::Kind::denied);
  EXPECT_EQ(kindOf([&] { report->execute("DROP TABLE Plan"); }), DbError::Kind::denied);
}

// A login that owns nothing and has the role: whatever it does with its session, it can do no more than a report.
TEST_F(PostgresRoles, AMemberOfTheRoleIsHeldByTheServerItself) {
  superuser()->execute("ALTER ROLE tz_owner CREATEROLE");
  makeLedger();
  superuser()->execute("CREATE ROLE tz_clerk LOGIN");
  superuser()->execute("GRANT tzassistant_report TO tz_clerk");
  {
    const auto report = openLedger(place->addressAs("tz_clerk"), Access::report);
    EXPECT_EQ(report->execute(mark), 1);
    EXPECT_EQ(kindOf([&] { report->execute("RESET ROLE"); }), DbError::Kind::denied);
    const auto own = openPostgres(place->addressAs("tz_clerk"), Access::keeper);
    own->execute("RESET ROLE");
    for (const char* statement : {"UPDATE RegSub SET mMoney = 1", "UPDATE RegSub SET byFlag = 3", "DROP TABLE Plan",
                                  "DELETE FROM MarkLog", "SET ROLE tz_owner", "DELETE FROM RegSub"}) {
      EXPECT_THROW(own->execute(statement), DbError) << statement;
    }
    EXPECT_EQ(rowsOf(*own, "SELECT mMoney, byFlag FROM RegSub"), "0|1\n");
  }
  superuser()->execute("DROP ROLE tz_clerk");
}

// A ledger that an older version made gets the rule of marks when its owner opens it for work.
TEST_F(PostgresRoles, AnOlderLedgersMarksAreGuardedFromItsNextOpening) {
  superuser()->execute("ALTER ROLE tz_owner CREATEROLE");
  makeLedger();
  const auto keeper = openLedger(place->addressAs("tz_owner"), Access::keeper);
  keeper->execute("ALTER TABLE RegSub DROP CONSTRAINT regsub_marks");
  keeper->execute("UPDATE RegSub SET byFlag = 7");
  const auto report = openLedger(place->addressAs("tz_owner"), Access::report);
  EXPECT_THROW(report->execute("UPDATE RegSub SET byFlag = 3 WHERE lId = 1"), DbError);
  EXPECT_EQ(report->execute(mark), 1);
}

TEST_F(PostgresRoles, WithoutTheRoleAReportOnlyReads) {
  makeLedger();
  const auto report = openLedger(place->addressAs("tz_owner"), Access::report);
  EXPECT_EQ(rowsOf(*report, "SELECT byFlag FROM RegSub"), "0\n");
  EXPECT_EQ(kindOf([&] { report->execute(mark); }), DbError::Kind::denied);
  EXPECT_EQ(kindOf([&] { report->execute("DROP TABLE Plan"); }), DbError::Kind::denied);
}

TEST_F(PostgresRoles, ATableThatTheRoleCannotReadMakesReportsReadOnly) {
  superuser()->execute("ALTER ROLE tz_owner CREATEROLE");
  makeLedger();
  openLedger(place->address(), Access::keeper)->execute("REVOKE SELECT ON Code FROM tzassistant_report");
  const auto report = openLedger(place->addressAs("tz_owner"), Access::report);
  EXPECT_EQ(rowsOf(*report, "SELECT count(*) FROM Code"), "0\n");
  EXPECT_EQ(kindOf([&] { report->execute(mark); }), DbError::Kind::denied);
}

}  // namespace
}  // namespace tz::test
