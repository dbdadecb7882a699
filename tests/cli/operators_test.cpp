// Who may ask: a ledger with operators asks for a name, a password and the report's right.
#include <gtest/gtest.h>
#include <set>

#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"
#include "core/reports/logon_delays.h"
#include "core/reports/operator.h"
#include "core/reports/password_hash.h"

namespace tz::test {
namespace {

class OperatorsTest : public DatabaseTest {
 protected:
  // Everybody's password is 会计2006.
  OperatorsTest() {
    fillSmallCompany(ledger_.keeper());
    ledger_.fill("zOperator", R"(
        lId | sName | bAll | sPassHash
        1   | 主管  | 1    | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q
        2   | 会计  | 0    | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q
        3   | 出纳  | 0    | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q
        4   | 空白  | 1    | )");
    ledger_.fill("zRight", R"(
        lOperatorId | nRight
        2           | 4
        3           | 3
        3           | 44
        4           | 4 )");
  }
  [[nodiscard]] int statusOf(const std::string& name, const std::string& password) const {
    const auto run = smallReport(ledger_.address(), {"--operator", name}, {"TZ_PASSWORD=" + password});
    EXPECT_EQ(run.out.empty(), run.status != 0) << "figures shown without a right";
    EXPECT_EQ(run.err.empty(), run.status == 0);
    EXPECT_EQ(run.err.find(password + "\n"), std::string::npos);
    return run.status;
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(OperatorsTest, NeedTheirPasswordAndTheRight) {
  EXPECT_EQ(statusOf("主管", "会计2006"), 0);
  EXPECT_EQ(statusOf("会计", "会计2006"), 0);
  EXPECT_EQ(statusOf("出纳", "会计2006"), 4) << "rights 3 and 44 are not right 4";
  EXPECT_EQ(statusOf("主管", "会计2007"), 4);
  CQnCwDB db(Access::read);
  db.Open(ledger_.address());
  EXPECT_TRUE(logOn(logonQuestion(db, "主管"), "会计2006"));
  EXPECT_FALSE(logOn(logonQuestion(db, "主管"), "会计"));
  EXPECT_FALSE(logOn(logonQuestion(db, "没有"), "会计2006")) << "somebody else's password";
  EXPECT_FALSE(logOn(logonQuestion(db, "空白"), "任何口令")) << "an operator without a password cannot log on";
  EXPECT_FALSE(logOn(logonQuestion(db, "' OR 1=1 --"), "会计2006"));
}

// The search shows lines of every kind: whoever may open any report searches, whoever may open none sees nothing.
TEST_P(OperatorsTest, SearchWithAnyRightButNotWithNone) {
  const auto search = [&](const std::string& name) {
    return runProgram({"find", "差旅费", "--ledger", ledger_.address(), "--operator", name}, {"TZ_PASSWORD=会计2006"});
  };
  EXPECT_EQ(search("主管").status, 0);
  EXPECT_EQ(search("会计").status, 0);
  ledger_.keeper().execute("DELETE FROM zRight WHERE lOperatorId = 2");
  const auto refused = search("会计");
  EXPECT_EQ(refused.status, 4);
  EXPECT_EQ(refused.out, "");
  EXPECT_NE(refused.err.find("不能查找分录"), std::string::npos) << refused.err;
  EXPECT_EQ(runProgram({"find", "差旅费", "--ledger", ledger_.address()}).status, 4);
}

// Each report asks for its own right and for no other: who has all the others sees nothing of it.
TEST_P(OperatorsTest, EveryReportAsksForItsOwnRight) {
  std::set<int> rights;
  for (const auto* report : catalogue()) rights.insert(report->right);
  EXPECT_GT(rights.size(), 1U);
  const auto statusWith = [&](const ReportDefinition& report, const std::set<int>& granted) {
    ledger_.keeper().execute("DELETE FROM zRight WHERE lOperatorId = 2");
    for (const int right : granted) {
      ledger_.keeper().execute(Sql("INSERT INTO zRight (lOperatorId, nRight) VALUES (2, ?)", right));
    }
    const auto run =
        runProgram({"report", std::to_string(report.command), "--ledger", ledger_.address(), "--operator", "会计"},
                   {"TZ_PASSWORD=会计2006"});
    EXPECT_EQ(run.err.find("权限") != std::string::npos, run.status == 4) << run.err;
    return run.status;
  };
  for (const auto* report : catalogue()) {
    SCOPED_TRACE(report->command);
    std::set<int> others = rights;
    for (int beside = -1; beside <= 1; ++beside) others.insert(report->right + beside);
    others.erase(report->right);
    EXPECT_EQ(statusWith(*report, others), 4);
    EXPECT_NE(statusWith(*report, {report->right}), 4) << "answered or refused for its conditions, not for a right";
  }
}

// Nobody learns by the answer, or by its time, who is an operator.
TEST_P(OperatorsTest, AnUnknownNameIsCheckedAsDearlyAsAKnownOne) {
  CQnCwDB db(Access::read);
  db.Open(ledger_.address());
  const auto known = logonQuestion(db, "主管");
  for (const char* name : {"没有", "空白", ""}) {
    const auto question = logonQuestion(db, name);
    EXPECT_FALSE(question.mayLogOn);
    EXPECT_EQ(question.hash.substr(0, question.hash.rfind('$')), known.hash.substr(0, known.hash.rfind('$')));
  }
  const auto wrong = smallReport(ledger_.address(), {"--operator", "主管"}, {"TZ_PASSWORD=错"});
  const auto unknown = smallReport(ledger_.address(), {"--operator", "没有"}, {"TZ_PASSWORD=错"});
  EXPECT_EQ(wrong.err, unknown.err);
}

TEST_P(OperatorsTest, AHashThatWouldTakeAllMemoryIsRefused) {
  for (const char* hash : {"$argon2id$v=19$m=4294967295,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIk",
                           "$argon2id$v=19$m=65536,t=4294967295,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM",
                           "$argon2id$v=19$m=99999999999,t=1,p=1$x$y", "5f4dcc3b5aa765d61d8327deb882cf99"}) {
    ledger_.keeper().execute(Sql("UPDATE zOperator SET sPassHash = ? WHERE lId = 2", hash));
    const auto run = smallReport(ledger_.address(), {"--operator", "会计"}, {"TZ_PASSWORD=会计2006"});
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("口令散列不可接受"), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(statusOf("主管", "会计2006"), 0) << "the others still log on";
}

TEST_P(OperatorsTest, MustSayWhoTheyAre) {
  EXPECT_EQ(smallReport(ledger_.address(), {}, {"TZ_PASSWORD=会计2006"}).status, 4);
  EXPECT_EQ(smallReport(ledger_.address(), {"--operator", "空白"}, {"TZ_PASSWORD="}).status, 4);
}

TEST_P(OperatorsTest, WithoutTerminalNeedThePasswordInTheEnvironment) {
  const auto run = smallReport(ledger_.address(), {"--operator", "主管"});
  EXPECT_EQ(run.status, 4);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("TZ_PASSWORD"), std::string::npos) << run.err;
}

TZ_ON_BOTH_DATABASES(OperatorsTest);

TEST(LogonDelays, GrowWithTheFailures) {
  using namespace std::chrono_literals;
  LogonDelays delays(1s);
  EXPECT_EQ(delays.Failed("甲"), 1s);
  EXPECT_EQ(delays.Failed("甲"), 2s);
  EXPECT_EQ(delays.Failed("甲"), 4s);
  EXPECT_EQ(delays.Failed("乙"), 2s) << "who tries many names is slowed down as well";
  delays.Succeeded("甲");
  EXPECT_EQ(delays.Failed("甲"), 1s);
  EXPECT_EQ(delays.Failed("乙"), 2s);
  for (int i = 0; i < 40; ++i) EXPECT_LE(delays.Failed("丙"), 32s);
}

TEST(LogonDelays, AreLeftToWhoeverTriesNext) {
  using namespace std::chrono_literals;
  auto now = LogonDelays::Clock::time_point{} + 1h;
  LogonDelays delays(1s, [&] { return now; });
  EXPECT_EQ(delays.Left(), 0s);
  (void)delays.Failed("甲");
  (void)delays.Failed("甲");
  now += 500ms;
  EXPECT_EQ(delays.Left(), 1500ms);
  now += 2s;
  EXPECT_EQ(delays.Left(), 0s);
}

TEST(PasswordHash, TheOneOfNobodyIsWellFormed) {
  EXPECT_TRUE(acceptableHash(nobodysHash()));
  EXPECT_FALSE(passwordFits(nobodysHash(), ""));
}

TEST(LedgerWithoutOperators, AsksNobody) {
  TestLedger ledger(Engine::sqlite);
  fillSmallCompany(ledger.keeper());
  EXPECT_EQ(smallReport(ledger.address()).status, 0);
  EXPECT_EQ(smallReport(ledger.address(), {"--operator", "谁都行"}).status, 0);
}

}  // namespace
}  // namespace tz::test
