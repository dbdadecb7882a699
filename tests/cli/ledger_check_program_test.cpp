// `ledger check` as an operator meets it: output, exit status, logon, and which of several schemas it speaks of.
#include <gtest/gtest.h>

#include "cli/small_company.h"
#include "core/data/schema.h"

namespace tz::test {
namespace {

bool says(const std::string& text, std::string_view words) { return text.find(words) != std::string::npos; }

class CheckCommand : public DatabaseTest {
 protected:
  CheckCommand() { fillSmallCompany(ledger_.keeper()); }
  // The company's balances do not follow its lines; without them it is sound but for that.
  void makeSound() {
    for (const char* statement :
         {"DELETE FROM AssAcc", "DELETE FROM RegSub", "DELETE FROM RegMain", "DELETE FROM UnregSub",
          "DELETE FROM UnregMain", "UPDATE Code SET sCode = '1133', byGrade = 1, byKind = 1"}) {
      ledger_.keeper().execute(Sql(statement));
    }
  }
  [[nodiscard]] ProgramRun check(const std::vector<std::string>& more = {},
                                 const std::vector<std::string>& settings = {}) const {
    std::vector<std::string> arguments = {"ledger", "check", ledger_.address()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runProgram(arguments, settings);
  }
  TestLedger ledger_{GetParam()};
};

TEST_P(CheckCommand, TellsHintsFromViolations) {
  const auto broken = check();
  EXPECT_EQ(broken.status, 1);
  EXPECT_TRUE(says(broken.out, "AssAcc lId=1：")) << broken.out;
  makeSound();
  EXPECT_EQ(check().out, "帐套符合全部规则\n");
  ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 2 | P2 | 张三 | 1");
  const auto hinted = check();
  EXPECT_EQ(hinted.status, 0) << hinted.err;
  EXPECT_EQ(hinted.out, "提示：Person lId=1、2：名称都是 “张三”\n帐套符合全部规则\n");
}

TEST_P(CheckCommand, AsksForALogonWhereTheLedgerHasOperators) {
  makeSound();
  ledger_.fill("zOperator", R"(
    lId | sName | bAll | sPassHash
    3   | 出纳  | 0    | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q)");
  ledger_.keeper().execute("UPDATE Person SET sName = ''");
  for (const auto& refused :
       {check(), check({"--operator", "出纳"}), check({"--operator", "出纳"}, {"TZ_PASSWORD=会计2007"}),
        check({"--operator", "没有"}, {"TZ_PASSWORD=会计2006"})}) {
    EXPECT_EQ(refused.status, 4);
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(refused.err, "");
  }
  const auto run = check({"--operator", "出纳"}, {"TZ_PASSWORD=会计2006"});
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_EQ(run.out, "Person lId=1：个人没有姓名\n");
}

TZ_ON_BOTH_DATABASES(CheckCommand);

// The user's own schema comes before the ledger's on the search path.
class EarlierSchema : public ::testing::Test {
 protected:
  EarlierSchema() {
    fillSmallCompany(ledger_.keeper());
    ledger_.keeper().execute("CREATE SCHEMA postgres");
    own_ = smallReport(ledger_.address()).out;
  }
  [[nodiscard]] ProgramRun check(const std::string& address) const { return runProgram({"ledger", "check", address}); }
  void copy(const std::string& table) {
    ledger_.keeper().execute(Sql("CREATE TABLE postgres." + table + " AS SELECT * FROM public." + table));
  }

  void expectAsked(std::string_view about) const {
    for (const auto& run : {smallReport(ledger_.address()), check(ledger_.address())}) {
      EXPECT_EQ(run.status, 3);
      EXPECT_EQ(run.out, "");
      EXPECT_TRUE(says(run.err, "几个模式中有同名的表")) << run.err;
      EXPECT_TRUE(says(run.err, "public") && says(run.err, about)) << run.err;
    }
    const auto named = smallReport(ledger_.address() + "&options=-csearch_path%3Dpublic");
    EXPECT_EQ(named.out, own_) << named.err;
  }

  TestLedger ledger_{Engine::postgres};
  std::string own_;
};

TEST_F(EarlierSchema, OfAnotherProgramChangesNothing) {
  ledger_.keeper().execute("CREATE TABLE postgres.bills (id integer)");
  const auto run = smallReport(ledger_.address());
  EXPECT_EQ(run.out, own_) << run.err;
  EXPECT_FALSE(says(check(ledger_.address()).out, "模式"));
}

TEST_F(EarlierSchema, WithATableOfOneNameIsRefusedUntilOneIsNamed) {
  copy("RegSub");
  ledger_.keeper().execute("UPDATE postgres.RegSub SET mMoney = 7");
  expectAsked("regsub");
}

TEST_F(EarlierSchema, WithAWholeLedgerIsRefusedUntilOneIsNamed) {
  for (const auto& table : ledgerTables()) copy(table.name);
  ledger_.keeper().execute("UPDATE postgres.RegSub SET mMoney = 7");
  expectAsked("postgres");
}

}  // namespace
}  // namespace tz::test
