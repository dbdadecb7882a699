// The conditions of the person three-column detail ledger on the command line: every refusal in its order with its
// exact text, every wrong use, and texts that would break a careless statement.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

ProgramRun report(const std::string& address, const Arguments& arguments, const std::string& id = "10190") {
  Arguments all = {"report", id, "--ledger", address};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return runProgram(all);
}

class ConditionsTest : public DatabaseTest {
 protected:
  ConditionsTest() {
    ledger_.fill("Code", R"(
        lId | sCode  | sName    | byGrade | bEnd | bDirect | sAssBook
        1   | 1133   | 应收     | 1       | 0    | 1       | A
        2   | 113301 | 备用金   | 2       | 1    | 1       | AC
        3   | 1131   | 应收帐款 | 1       | 1    | 1       | B )");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 1       | D1      | 销售部
        2   | 2       | D2      | 只有未记帐部
        3   | 3       | D3      | 无往来部
        4   | 4       | D4      | 采购部 )");
    ledger_.fill("Person", R"(
        lId | sPersonId | sName | lDeptId
        1   | P1        | 张三  | 1
        2   | P2        | 李四  | 2
        3   | P3        | 王五  | 1
        4   | P4        | 赵六  | 4
        5   | P5        | 孙七  | 3 )");
    // 孙七's balance lies in a department that is not his.
    ledger_.fill("AssAcc", R"(
        lId | lCodeId | lDeptId | lPersonId | byPeroid | mBegin
        1   | 2       | 1       | 1         | 1        | 100
        2   | 2       | 4       | 5         | 1        | 9 )");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 1        | 2006-01-31 | 2006-01-31 | 记    | 1 )");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        2      | 1        | 2006-01-05 | 2006-01-05 | 记    | 2 )");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | sDigest | dtDate
        1   | 2      | 2       | 2       | 2         | 5      | 1       | 借款    | 2006-01-05
        2   | 2      | 2       | 1       | 3         | 6      | 1       | 借款    | 2006-01-05 )");
  }

  [[nodiscard]] ProgramRun ask(const Arguments& arguments) const { return report(ledger_.address(), arguments); }

  void expectRefusal(const Arguments& arguments, const std::string& text) const {
    const auto run = ask(arguments);
    EXPECT_EQ(run.status, 1) << text;
    EXPECT_EQ(run.err, text + "\n");
    EXPECT_EQ(run.out, "");
  }
  void expectWrongUse(const Arguments& arguments, const std::string& named) const {
    const auto run = ask(arguments);
    EXPECT_EQ(run.status, 2) << named;
    EXPECT_NE(run.err.find(named), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(ConditionsTest, AreRefusedInTheirOrder) {
  const std::string noAccount = "没有个人核算科目,不能查询个人三栏明细帐。";
  expectRefusal({"--account", "9999"}, noAccount);
  expectRefusal({"--account", "1131", "--dept", "销售部", "--person", "张三"}, noAccount);
  expectRefusal({"--account", "113301", "--person", "张三"}, "部门不能为空，请重新输入！");
  expectRefusal({"--account", "113301", "--dept", "销售"}, "非法的部门");
  expectRefusal({"--account", "113301", "--dept", "无往来部", "--unposted"}, "没有查到该部门的个人往来记录");
  expectRefusal({"--account", "113301", "--dept", "只有未记帐部"}, "没有查到该部门的个人往来记录");
  expectRefusal({"--account", "113301", "--dept", "只有未记帐部", "--unposted"}, "姓名不能为空，请重新输入！");
  expectRefusal({"--account", "113301", "--dept", "采购部", "--person", "孙七"},
                "该用户不属于该部门，请重新输入其他名字。");
  expectRefusal({"--account", "113301", "--dept", "采购部", "--person", "赵六", "--unposted"},
                "没有查到该部门此人的发生额");
  expectRefusal({"--account", "113301", "--dept", "销售部", "--person", "王五"}, "没有查到该部门此人的发生额");
}

TEST_P(ConditionsTest, AreTakenWhenTheyHold) {
  EXPECT_EQ(ask({"--account", "113301", "--dept", "销售部", "--person", "张三"}).status, 0);
  EXPECT_EQ(ask({"--account", "1133", "--dept", "销售部", "--person", "王五", "--unposted"}).status, 0);
  EXPECT_EQ(ask({"--account", "113301 备用金", "--dept", "只有未记帐部", "--person", "李四", "--unposted"}).status, 0);
}

TEST_P(ConditionsTest, OfWrongUseAreNamed) {
  const Arguments good = {"--account", "113301", "--dept", "销售部", "--person", "张三"};
  const auto with = [&](const Arguments& more) {
    auto all = good;
    all.insert(all.end(), more.begin(), more.end());
    return all;
  };
  expectWrongUse(with({"--colour", "red"}), "--colour");
  expectWrongUse(with({"--unit", "某公司"}), "--unit");
  expectWrongUse(with({"--credit-limit"}), "--credit-limit");
  expectWrongUse(with({"stray"}), "stray");
  expectWrongUse(with({"--to"}), "--to");
  for (const char* month : {"0", "13", "-1", "1.5", "一月", "3x", "99999999999"}) {
    expectWrongUse(with({std::string("--from=") + month}), "--from");
    expectWrongUse(with({std::string("--to=") + month}), "--to");
  }
  for (const char* date : {"2006-02-30", "2006/01/01", "20060101", "昨天"})
    expectWrongUse(with({"--date", date}), date);
  for (const char* format : {"外币金额式", "数量金额式", "外币式", "没有的式"}) {
    expectWrongUse(with({"--format", format}), format);
  }
  expectWrongUse(with({"--as", "parchment"}), "--as");
  EXPECT_EQ(report(ledger_.address(), good, "10182").status, 2);
  EXPECT_EQ(report(ledger_.address(), good, "1").status, 2);
  EXPECT_EQ(report(ledger_.address(), good, "报表").status, 2);
  EXPECT_EQ(runProgram({"report"}).status, 2);
  EXPECT_EQ(runProgram({"report", "10190"}).status, 2);
  EXPECT_EQ(runProgram({"nonsense"}).status, 2);
}

// Options may stand in front of the report's number, whatever figures they hold.
TEST_P(ConditionsTest, MayStandBeforeTheReport) {
  const auto run = runProgram({"report", "--date", "2006-01-31", "--ledger", ledger_.address(), "10190", "--account",
                               "113301", "--dept", "销售部", "--person", "张三"});
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST_P(ConditionsTest, MonthsDefaultToTheLogonDate) {
  const auto run = ask({"--account", "113301", "--dept", "销售部", "--person", "张三", "--date", "2007-03-09", "--to",
                        "4", "--as", "json"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(nlohmann::json::parse(run.out).at("period"), "月份: 2007.03 - 2007.04");
}

// Names that are in the ledger are asked for in the naive comparison.
TEST_P(ConditionsTest, AreNeverStatements) {
  expectRefusal({"--account", "113301", "--dept", "' OR '1'='1", "--person", "张三"}, "非法的部门");
  expectRefusal({"--account", "113301", "--dept", "销售%", "--person", "张三"}, "非法的部门");
  expectRefusal({"--account", "1133' OR 1=1 --", "--dept", "销售部", "--person", "张三"},
                "没有个人核算科目,不能查询个人三栏明细帐。");
  expectRefusal({"--account", "113301", "--dept", "销售部", "--person", "张三'; DROP TABLE Plan --"}, "非法的姓名");
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM Plan"), "0\n");
  EXPECT_EQ(ledger_.rows("SELECT count(*) FROM Dept"), "4\n");
}

TZ_ON_BOTH_DATABASES(ConditionsTest);

TEST(MissingLedger, IsAFailureOfTheDatabase) {
  const TempFolder folder;
  const Arguments conditions = {"--account", "113301", "--dept", "销售部", "--person", "张三"};
  for (const auto& address : {folder.file("没有.tz"), serverAddress("tz_no_such_ledger"), folder.path().string()}) {
    const auto run = report(address, conditions);
    EXPECT_EQ(run.status, 3) << address;
    EXPECT_NE(run.err, "");
    EXPECT_EQ(run.out, "");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.file("没有.tz"))) << "asking for a ledger must not make one";
}

}  // namespace
}  // namespace tz::test
