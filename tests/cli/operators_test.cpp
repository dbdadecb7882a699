// Who may ask: a ledger with operators asks for a name, a password and the report's right.
#include <gtest/gtest.h>

#include "cli/small_company.h"

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
  EXPECT_EQ(statusOf("主管", "会计"), 4);
  EXPECT_EQ(statusOf("没有", "会计2006"), 4);
  EXPECT_EQ(statusOf("空白", "任何口令"), 4) << "an operator without a password cannot log on";
  EXPECT_EQ(statusOf("' OR 1=1 --", "会计2006"), 4);
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

TEST(LedgerWithoutOperators, AsksNobody) {
  TestLedger ledger(Engine::sqlite);
  fillSmallCompany(ledger.keeper());
  EXPECT_EQ(smallReport(ledger.address()).status, 0);
  EXPECT_EQ(smallReport(ledger.address(), {"--operator", "谁都行"}).status, 0);
}

}  // namespace
}  // namespace tz::test
