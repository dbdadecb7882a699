// A ledger on a server whose databases keep texts in another encoding: it holds what that encoding can hold, shows it
// unchanged, and refuses the rest with a reason instead of keeping something else.
#include "core/data/backends.h"
#include "core/data/create_ledger.h"
#include "core/reports/explain_error.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

std::unique_ptr<Connection> maintenance() { return openPostgres(serverAddress("postgres"), Access::keeper); }

class EncodedPlace {
 public:
  explicit EncodedPlace(const std::string& encoding) {
    maintenance()->execute(Sql("CREATE DATABASE " + name_ + " TEMPLATE template0 ENCODING '" + encoding +
                               "' LC_COLLATE 'C' LC_CTYPE 'C' STRATEGY file_copy"));
  }
  EncodedPlace(const EncodedPlace&) = delete;
  EncodedPlace& operator=(const EncodedPlace&) = delete;
  ~EncodedPlace() { maintenance()->execute(Sql("DROP DATABASE " + name_ + " WITH (FORCE)")); }
  [[nodiscard]] std::string address() const { return serverAddress(name_); }

 private:
  std::string name_ = "tz_test_encoded";
};

void makeSample(const std::string& address) {
  createLedger(address, [](Connection& connection) { fillSample(connection, {}); });
}

// A server that knows no encoding keeps the bytes as they are.
TEST(Encoding, OfAServerThatKnowsNoneChangesNothingOfAnyReport) {
  const TestPlace file(Engine::sqlite);
  makeSample(file.address());
  const EncodedPlace server("SQL_ASCII");
  makeSample(server.address());
  Reader ours(file.address());
  Reader theirs(server.address());
  for (const auto& question : everyReport(ours)) {
    EXPECT_TRUE(answerText(ours.ask(question)) == answerText(theirs.ask(question))) << question.report->command;
  }
}

TEST(Encoding, WithChineseSignsGivesBackWhatItCanHold) {
  const EncodedPlace server("EUC_CN");
  createLedger(server.address(), [](Connection& connection) {
    connection.execute(Sql("INSERT INTO Person (lId, sName) VALUES (1, ?), (2, ?)", "张三", "O'Brien"));
  });
  const auto reading = openLedger(server.address(), Access::read);
  EXPECT_EQ(rowsOf(*reading, "SELECT sName FROM Person ORDER BY lId"), "张三\nO'Brien\n");
  EXPECT_EQ(rowsOf(*reading, Sql("SELECT lId FROM Person WHERE sName = ?", "张三")), "1\n");
}

// The sample company has names with signs that neither of them holds.
TEST(Encoding, ThatCannotHoldATextRefusesItAndKeepsNothing) {
  for (const std::string encoding : {"EUC_CN", "LATIN1"}) {
    const EncodedPlace server(encoding);
    try {
      makeSample(server.address());
      ADD_FAILURE() << "kept in an encoding that has not all of its signs";
    } catch (const DbError& error) {
      EXPECT_NE(explain(error).find(encoding), std::string::npos) << "names the reason: " << explain(error);
    }
    const auto connection = openPostgres(server.address(), Access::keeper);
    EXPECT_EQ(rowsOf(*connection, "SELECT count(*) FROM pg_tables WHERE schemaname = 'public'"), "0\n");
  }
}

}  // namespace
}  // namespace tz::test
