// Transactions, cursors and long statements, alike on both databases.
#include <optional>

#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Purpose = Transaction::Purpose;

class Statements : public DatabaseTest {
 protected:
  void insertPersons(std::int64_t first, std::int64_t last) {
    const std::vector<std::string> columns = {"lId", "sPersonId", "sName"};
    Transaction transaction(ledger.keeper(), Purpose::writing);
    const auto writer = ledger.keeper().insertInto("Person", columns);
    for (auto id = first; id <= last; ++id) {
      writer->put(id);
      writer->put(std::string_view("P" + std::to_string(id)));
      writer->put(std::string_view("职员"));
      writer->endRow();
    }
    writer->finish();
    transaction.commit();
  }
  std::string count() { return ledger.rows("SELECT count(*) FROM Person"); }

  TestLedger ledger{GetParam()};
};

TEST_P(Statements, AReadingTransactionKeepsItsViewWhileAnotherWrites) {
  insertPersons(1, 3);
  const auto reader = ledger.open(Access::read);
  {
    Transaction reading(*reader, Purpose::reading);
    EXPECT_EQ(rowsOf(*reader, "SELECT count(*) FROM Person"), "3\n");
    insertPersons(4, 5);
    ledger.keeper().execute("UPDATE Person SET sName = 'x' WHERE lId = 1");
    EXPECT_EQ(rowsOf(*reader, "SELECT count(*), min(sName) FROM Person"), "3|职员\n");
  }
  EXPECT_EQ(rowsOf(*reader, "SELECT count(*), min(sName) FROM Person"), "5|x\n");
}

TEST_P(Statements, OnlyACommittedTransactionStays) {
  {
    Transaction abandoned(ledger.keeper(), Purpose::writing);
    ledger.keeper().execute("INSERT INTO Person (lId) VALUES (1)");
    EXPECT_EQ(count(), "1\n");
  }
  EXPECT_EQ(count(), "0\n");
  try {
    Transaction failing(ledger.keeper(), Purpose::writing);
    ledger.keeper().execute("INSERT INTO Person (lId) VALUES (2)");
    ledger.keeper().execute("INSERT INTO Person (lId) VALUES (2)");
    ADD_FAILURE() << "a duplicate id went in";
  } catch (const DbError& error) {
    EXPECT_EQ(error.kind(), DbError::Kind::duplicate) << error.what();
  }
  EXPECT_EQ(count(), "0\n");
  insertPersons(3, 3);
  EXPECT_EQ(count(), "1\n");
}

TEST_P(Statements, RowsInALateBlockThatFailUndoTheEarlierOnes) {
  const std::vector<std::string> columns = {"lId", "sName"};
  const std::string longName(2000, 'x');
  EXPECT_THROW(
      {
        Transaction transaction(ledger.keeper(), Purpose::writing);
        const auto writer = ledger.keeper().insertInto("Person", columns);
        for (std::int64_t id = 1; id <= 1500; ++id) {
          writer->put(id == 1500 ? std::int64_t{1} : id);
          writer->put(std::string_view(longName));
          writer->endRow();
        }
        writer->finish();
        transaction.commit();
      },
      DbError);
  EXPECT_EQ(count(), "0\n");
}

TEST_P(Statements, WritersOfSeveralTablesTakeTurns) {
  const std::vector<std::string> columns = {"lId", "sName"};
  Transaction transaction(ledger.keeper(), Purpose::writing);
  {
    const auto persons = ledger.keeper().insertInto("Person", columns);
    const auto classes = ledger.keeper().insertInto("EnterClass", columns);
    for (std::int64_t id = 1; id <= 3; ++id) {
      for (const auto& writer : {persons.get(), classes.get()}) {
        writer->put(id);
        writer->put(std::string_view("n"));
        writer->endRow();
      }
      EXPECT_EQ(ledger.rows("SELECT count(*) FROM Dept"), "0\n");
    }
    persons->finish();
    classes->finish();
  }
  transaction.commit();
  EXPECT_EQ(ledger.rows("SELECT sum(lId) FROM Person UNION ALL SELECT sum(lId) FROM EnterClass"), "6\n6\n");
}

TEST_P(Statements, CountsTheRowsThatChanged) {
  insertPersons(1, 5);
  EXPECT_EQ(ledger.keeper().execute(Sql("UPDATE Person SET lDeptId = ? WHERE lId > ?", 3, 2)), 3);
  EXPECT_EQ(ledger.keeper().execute("DELETE FROM Person WHERE lId > 99"), 0);
  EXPECT_EQ(ledger.keeper().execute("DELETE FROM Person"), 5);
}

TEST_P(Statements, FiftyThousandRowsComeInOrderWhileASecondCursorIsRead) {
  constexpr std::int64_t last = 50'000;
  insertPersons(1, last);
  for (const bool inside : {true, false}) {
    std::optional<Transaction> reading;
    if (inside) reading.emplace(ledger.keeper(), Purpose::reading);
    const auto up = ledger.keeper().query("SELECT lId, sPersonId FROM Person ORDER BY lId");
    const auto down = ledger.keeper().query("SELECT lId FROM Person ORDER BY lId DESC");
    std::int64_t id = 0;
    while (up->next()) {
      ASSERT_EQ(up->integer(0), ++id);
      ASSERT_TRUE(down->next());
      ASSERT_EQ(down->integer(0), last + 1 - id);
    }
    EXPECT_EQ(id, last);
    EXPECT_FALSE(down->next());
  }
}

TEST_P(Statements, ReadsExactlyTheRowsThereAreAtTheEdgesOfABlock) {
  insertPersons(1, 8200);
  Transaction reading(ledger.keeper(), Purpose::reading);
  for (const int wanted : {0, 1, 4095, 4096, 4097, 8191, 8192, 8193}) {
    const auto cursor = ledger.keeper().query(Sql("SELECT lId FROM Person ORDER BY lId LIMIT ?", wanted));
    EXPECT_EQ(cursor->columnName(0), onServer() ? "lid" : "lId");
    int found = 0;
    while (cursor->next()) ++found;
    EXPECT_EQ(found, wanted);
  }
}

TEST_P(Statements, ATableCanBeDroppedOnceItsCursorIsGone) {
  insertPersons(1, 5000);
  Transaction transaction(ledger.keeper(), Purpose::writing);
  {
    const auto cursor = ledger.keeper().query("SELECT lId FROM Person");
    ASSERT_TRUE(cursor->next());
  }
  ledger.keeper().execute("DROP TABLE Person");
  transaction.commit();
  EXPECT_THROW((void)count(), DbError);
}

TEST_P(Statements, ACancelCheckStopsALongStatement) {
  int calls = 0;
  const auto afterTwo = [](void* context) { return ++*static_cast<int*>(context) > 2; };
  ledger.keeper().setCancelCheck(afterTwo, &calls);
  EXPECT_THROW(
      {
        Transaction reading(ledger.keeper(), Purpose::reading);
        const auto endless = ledger.keeper().query(
            "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000000000) "
            "SELECT count(*) FROM n");
        (void)endless->next();
      },
      DbError);
  EXPECT_GT(calls, 2);
  ledger.keeper().setCancelCheck(nullptr, nullptr);
  EXPECT_TRUE(ledger.keeper().alive());
  EXPECT_EQ(count(), "0\n");
}

TEST_P(Statements, AFaultyStatementSaysWhatIsWrong) {
  using Kind = DbError::Kind;
  for (const auto& [statement, kind] : {std::pair{"SELECT nowhere FROM Person", Kind::incomplete},
                                        {"SELEC 1", Kind::other},
                                        {"SELECT * FROM NoSuchTable", Kind::incomplete}}) {
    try {
      (void)ledger.keeper().query(statement)->next();
      ADD_FAILURE() << "went through: " << statement;
    } catch (const DbError& error) {
      EXPECT_EQ(error.kind(), kind) << statement;
      EXPECT_STRNE(error.what(), "") << statement;
    }
  }
  EXPECT_TRUE(ledger.keeper().alive());
}

TZ_ON_BOTH_DATABASES(Statements);

}  // namespace
}  // namespace tz::test
