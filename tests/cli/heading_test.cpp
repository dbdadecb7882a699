// What a report says above its table, in every form that the command line writes.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/small_company.h"

namespace tz::test {
namespace {

class ReportHeadTest : public ::testing::Test {
 protected:
  ReportHeadTest() { fillSmallCompany(ledger_.keeper()); }
  ProgramRun ask(const std::vector<std::string>& more) {
    auto run = smallReport(ledger_.address(), more);
    EXPECT_EQ(run.status, 0) << run.err;
    return run;
  }

  TestLedger ledger_{Engine::sqlite};
};

TEST_F(ReportHeadTest, CsvTellsConditionsAndMarksUnpostedLines) {
  EXPECT_EQ(ask({"--as", "csv"}).out,
            "\xEF\xBB\xBF"
            "三栏式明细帐\r\n"
            "科目：113301 备用金\r\n"
            "部门：销售部     个人：张三\r\n"
            "月份: 2006.01 - 2006.01\r\n"
            "包含未记帐凭证\r\n"
            "日期,凭证号,摘要,借方,贷方,方向,余额,标记\r\n"
            ",,个人期初,,,借,500,\r\n"
            "2006.01.05,记-0001,预借差旅费,1000,,借,1500,\r\n"
            "2006.01.05,记-0001,报销差旅费,,600,借,900,\r\n"
            "2006.01.05,记-0002,尚未记帐,50,,借,950,未记帐凭证\r\n"
            ",,本月合计,1050,600,借,950,\r\n"
            ",,本年累计,1050,600,借,950,\r\n");
}

TEST_F(ReportHeadTest, WhatIsLeftOutIsSaidAboveTheTable) {
  ledger_.keeper().execute("UPDATE RegMain SET dtBill = '2006-02-05'");
  const std::string left = "有2条分录的凭证日期不在查询月份内，未列示";
  const auto inJanuary = [&](std::vector<std::string> more) {
    more.insert(more.end(), {"--from", "1", "--to", "1"});
    return ask(more).out;
  };
  const auto json = nlohmann::json::parse(inJanuary({"--as", "json"}));
  EXPECT_EQ(json["notices"], nlohmann::json::array({left}));
  EXPECT_EQ(json["conditions"], nlohmann::json::array({"包含未记帐凭证"}));
  EXPECT_EQ(json["title"], "三栏式明细帐");
  const auto csv = inJanuary({"--as", "csv"});
  EXPECT_TRUE(csv.starts_with("\xEF\xBB\xBF三栏式明细帐（有分录未列示）\r\n※ " + left + "\r\n")) << csv;
  const auto text = inJanuary({});
  EXPECT_NE(text.find("三栏式明细帐（有分录未列示）\n※ " + left + "\n"), std::string::npos) << text;
  EXPECT_EQ(text.find(left), text.rfind(left)) << "once is enough";
}

TEST_F(ReportHeadTest, ReversedMonthsAreSaid) {
  const auto text = ask({"--from", "3", "--to", "2"}).out;
  EXPECT_NE(text.find("\n※ 起始月份在终止月份之后。\n"), std::string::npos) << text;
}

// Two-clearing of a ledger that has just begun: openings of earlier years alone, red entries among them.
using Words = std::vector<std::string>;

class ClearingReportCommand : public DatabaseTest {
 protected:
  ClearingReportCommand() {
    ledger_.fill("zAccountM", "lId | sName | sCodeScheme | nYear\n 1 | 公司 | 4222 | 2006");
    ledger_.fill("Code", "lId | sCode | sName | bEnd | bDirect | sAssBook\n 2 | 1133 | 借款 | 1 | 1 | A");
    ledger_.fill("Dept", "lId | lDeptId | sDeptId | sDeptName\n 1 | 10 | D1 | 销售部");
    ledger_.fill("Person", "lId | sPersonId | sName | lDeptId\n 7 | P1 | 张三 | 10");
    ledger_.fill("RegMain",
                 "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n"
                 "1 | 0 | 2005-10-15 | 2006-01-01 | 记 | 1");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | byFlag | dtDate
        1   | 1      | 2       | 10      | 7         | 3.3    | 1       | 1      | 2006-01-01
        2   | 1      | 2       | 10      | 7         | 3.3    | 1       | 1      | 2006-01-01
        3   | 1      | 2       | 10      | 7         | 3.3    | 1       | 0      | 2006-01-01
        4   | 1      | 2       | 10      | 7         | -10    | 1       | 2      | 2006-01-01 )");
  }

  [[nodiscard]] ProgramRun run(Words words, const std::string& account) const {
    words.insert(words.end(), {"--ledger", ledger_.address(), "--account", account, "--dept", "销售部", "--person",
                               "张三", "--as", "json"});
    return runProgram(words);
  }
  [[nodiscard]] nlohmann::json answer(const Words& words) const {
    const auto done = run(words, "1133");
    EXPECT_EQ(done.status, 0) << done.err;
    return done.status == 0 ? nlohmann::json::parse(done.out) : nlohmann::json();
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(ClearingReportCommand, ListsOpeningsOfEarlierYearsInTheAccountYear) {
  const auto report = answer({"report", "10192"});
  EXPECT_EQ(report["period"], "截止月份: 2006.01");
  EXPECT_EQ(report["notices"], nlohmann::json::array());
  ASSERT_EQ(report["rows"].size(), 5U);
  EXPECT_EQ(report["rows"][4]["cells"][4], -0.1) << "the double that is nearest to the sum";
  EXPECT_EQ(answer({"clear", "check"}), (nlohmann::json{{"level", false}, {"debit", -3.4}, {"credit", 0.0}}));
  for (const char* blank : {" ", "\t"}) {
    const auto refused = run({"report", "10192"}, blank);
    EXPECT_EQ(refused.status, 1) << refused.out;
    EXPECT_EQ(refused.err, "没有查到符合要求的科目。\n");
  }
  ledger_.fill("RegMain",
               "lTieId | byPeroid | dtBill | dtDate | sWord | nNumber\n 2 | 3 | 2006-03-05 | 2006-03-05 | 记 | 2");
  EXPECT_EQ(answer({"report", "10192"})["period"], "截止月份: 2006.03");
  for (const int year : {2007, 0}) {
    ledger_.keeper().execute(Sql("UPDATE zAccountM SET nYear = ?", year));
    const auto other = answer({"report", "10192"});
    EXPECT_EQ(other["period"], "截止月份: 2006.03") << "vouchers of another year than the ledger names";
    EXPECT_EQ(other["notices"].size(), 1U);
  }
}

TZ_ON_BOTH_DATABASES(ClearingReportCommand);

}  // namespace
}  // namespace tz::test
