// A server that takes connections and stops answering, from the start or in the middle of a result: every wait ends
// with a message, by itself or when the person stops it.
#include <chrono>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

#include "cli/small_company.h"
#include "support/stalling_proxy.h"

namespace tz::test {
namespace {

using namespace std::chrono_literals;

class AnswerTime {
 public:
  explicit AnswerTime(const char* seconds) { ::setenv("TZ_SERVER_TIMEOUT", seconds, 1); }
  AnswerTime(const AnswerTime&) = delete;
  AnswerTime& operator=(const AnswerTime&) = delete;
  ~AnswerTime() { ::unsetenv("TZ_SERVER_TIMEOUT"); }
};

class SilentServer : public ::testing::Test {
 protected:
  SilentServer() { fillSmallCompany(ledger_.keeper(), 2000); }
  [[nodiscard]] std::string address() const { return proxy_.addressOf(ledger_.address()); }
  [[nodiscard]] static DbError::Kind kindOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const DbError& error) {
      return error.kind();
    }
    ADD_FAILURE() << "nothing failed";
    return DbError::Kind::other;
  }
  static void readAll(Connection& connection) {
    const Transaction reading(connection, Transaction::Purpose::reading);
    const auto cursor = connection.query("SELECT repeat('x', 1000) FROM generate_series(1, 10000)");
    while (cursor->next()) {
    }
  }

  TestLedger ledger_{Engine::postgres};
  StallingProxy proxy_;
};

TEST_F(SilentServer, IsLeftWhenItDoesNotTakeTheConnection) {
  proxy_.stallAfter(0);
  for (const auto& run :
       {smallReport(address(), {}, {"PGCONNECT_TIMEOUT=1"}), smallReport(address() + "&connect_timeout=1", {})}) {
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("连不上数据库服务器"), std::string::npos) << run.err;
  }
}

TEST_F(SilentServer, IsLeftInTheMiddleOfAReport) {
  EXPECT_EQ(smallReport(address()).status, 0) << "the proxy itself harms nothing";
  proxy_.stallAfter(60'000);
  const auto run = smallReport(address(), {}, {"TZ_SERVER_TIMEOUT=1"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("数据库服务器没有回答"), std::string::npos) << run.err;
}

TEST_F(SilentServer, LeavesAConnectionThatSaysItIsLost) {
  const AnswerTime second("1");
  const auto connection = openLedger(address(), Access::read);
  readAll(*connection);
  proxy_.stallAfter(1'000'000);
  EXPECT_EQ(kindOf([&] { readAll(*connection); }), DbError::Kind::silent);
  EXPECT_FALSE(connection->alive());
  EXPECT_EQ(kindOf([&] { readAll(*connection); }), DbError::Kind::lost);
}

TEST_F(SilentServer, IsLeftWhenItTakesNoMoreRows) {
  const AnswerTime second("1");
  const auto connection = openLedger(address(), Access::keeper);
  proxy_.stallAfter(0);
  const std::vector<std::string> columns = {"lId", "sName"};
  EXPECT_EQ(kindOf([&] {
              const auto writer = connection->insertInto("Person", columns);
              const std::string name(1000, 'x');
              for (std::int64_t id = 100; id < 10'000; ++id) {
                writer->put(id);
                writer->put(std::string_view(name));
                writer->endRow();
              }
              writer->finish();
            }),
            DbError::Kind::silent);
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM Person"), "1\n");
}

// Without any limit: who waits at a window presses Esc.
TEST_F(SilentServer, IsLeftWhenThePersonStops) {
  const AnswerTime forever("0");
  const auto connection = openLedger(address(), Access::read);
  proxy_.stallAfter(1'000'000);
  int asked = 0;
  connection->setCancelCheck([](void* count) { return ++*static_cast<int*>(count) > 3; }, &asked);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(kindOf([&] { readAll(*connection); }), DbError::Kind::lost);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
  EXPECT_GT(asked, 10) << "asked all the while, so that a window stays alive";
}

TEST_F(SilentServer, StopsAStatementAtTheServerThatStillAnswers) {
  const auto connection = openLedger(address(), Access::read);
  int asked = 0;
  connection->setCancelCheck([](void* count) { return ++*static_cast<int*>(count) > 3; }, &asked);
  EXPECT_THROW((void)connection->query("SELECT pg_sleep(60)"), DbError);
  connection->setCancelCheck(nullptr, nullptr);
  EXPECT_TRUE(connection->alive());
  EXPECT_EQ(rowsOf(*connection, "SELECT sName FROM Person"), "张三\n");
}

}  // namespace
}  // namespace tz::test
