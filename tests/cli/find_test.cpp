// The search across the ledger, asked of the program on both databases: what a text means, in which order lines come,
// how many of them, and what is no search at all.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/small_company.h"

namespace tz::test {
namespace {

using Words = std::vector<std::string>;

// "7 summary+business" for each line found, in their order.
Words foundBy(const std::string& json) {
  Words lines;
  const auto answer = nlohmann::json::parse(json);
  for (const auto& line : answer.at("lines")) {
    auto text = std::to_string(line.at("line").get<int>());
    for (const char* between = " "; const auto& by : line.at("found_by")) {
      text += between + by.get<std::string>();
      between = "+";
    }
    lines.push_back(text);
  }
  return lines;
}

class Find : public DatabaseTest {
 protected:
  Find() {
    ledger_.fill("zAccountM", R"(
        lId | sName | sCodeScheme | nYear
        1   | 公司  | 4222        | 2006 )");
    ledger_.fill("Code", R"(
        lId | sCode | sName | bEnd | bDirect | sAssBook
        1   | 1221  | 备用金 | 1   | 1       | AD
        2   | 1001  | 现金   | 1   | 1       | )");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 7       | D1      | 销售部 )");
    ledger_.fill("Person", R"(
        lId | sPersonId | sName | lDeptId
        3   | P1        | 张三  | 7 )");
    // Two classes without items, and one that is none.
    ledger_.fill("ProjClass", R"(
        lId | sItemId | sName
        1   | 01      | 产品 )");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 0        | 2004-12-30 | 2006-01-01 | 记    | 1
        2      | 2        | 2006-02-05 | 2006-02-05 | 记    | 12
        3      | 1        | 2006-01-05 | 2006-01-05 | 转    | 12
        4      | 1        | 2006-01-04 | 2006-01-04 | 记    | 300 )");
    ledger_.fill("RegSub", R"(
        lId|lTieId|lCodeId|lDeptId|lPersonId|lItemId|sItemId|mMoney  | bDirect | sDigest     | sBusiness | dtDate
        1  | 1    | 1     | 7     | 3       | 0     |       | 1234.5 | 1       | 上年借款    | JK-05     | 2006-01-01
        2  | 2    | 1     | 7     | 99      | 5     | 01    | 300    | 1       | 100%_折让   | jk-06     | 2006-02-05
        3  | 2    | 2     | 0     | 0       | 4     | 0'    | 300.004| 0       | 预借 12 元  |           | 2006-02-05
        4  | 3    | 1     | 7     | 3       | 0     |       | -300   | 1       | 1000 x 折让 | O'Brien   | 2006-01-05
        5  | 4    | 2     | 0     | 0       | 0     |       | 300.006| 0       | 票据[3]*    |           | 2006-01-04 )");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        9      | 2        | 2006-02-06 | 2006-02-06 | 记    | 12 )");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | mMoney | bDirect | sDigest    | dtDate
        1   | 9      | 2       | 88.88  | 1       | 未记帐折让 | 2006-02-06 )");
  }

  [[nodiscard]] ProgramRun find(const Words& words) const {
    Words all = {"find", "--ledger", ledger_.address()};
    all.insert(all.end(), words.begin(), words.end());
    return runProgram(all);
  }
  [[nodiscard]] Words found(const std::string& text) const {
    const auto run = find({"--as", "json", "--", text});
    EXPECT_EQ(run.status, 0) << run.err;
    return foundBy(run.out);
  }

  TestLedger ledger_{GetParam()};
};

TEST_P(Find, TakesATextForAllThatItCanMean) {
  // Posted and unposted lines and those of period 0, by period, word, number and line.
  EXPECT_EQ(found("折让"), (Words{"4 summary", "1 summary", "2 summary"}));
  EXPECT_EQ(found("jK-0"), (Words{"1 business", "2 business"}));
  EXPECT_EQ(found("1,234.50"), Words{"1 amount"});
  EXPECT_EQ(found(" １２３４．５ "), Words{"1 amount"});
  // To the cent, on the side that it is signed for; a whole number is a voucher too.
  EXPECT_EQ(found("300"), (Words{"5 voucher", "2 amount", "3 amount"}));
  EXPECT_EQ(found("300.01"), Words{"5 amount"});
  EXPECT_EQ(found("-300"), Words{"4 amount"});
  EXPECT_EQ(found("－300.00"), Words{"4 amount"});
  EXPECT_EQ(found("12"), (Words{"4 voucher", "1 voucher", "2 voucher", "3 voucher+summary"}));
  for (const char* voucher : {"记-12", "记-0012", "记12", "记－１２", "记字第12号", " 记 12 "}) {
    EXPECT_EQ(found(voucher), (Words{"1 voucher", "2 voucher", "3 voucher"})) << voucher;
  }
  // What patterns and statements know is a text like any other.
  EXPECT_EQ(found("0%_折"), Words{"2 summary"});
  EXPECT_EQ(found("[3]*"), Words{"5 summary"});
  EXPECT_EQ(found("o'b"), Words{"4 business"});
  for (const char* nothing : {"1,23", "1.2345", "记-13", "借-12", "00%折", "?", "'; DROP TABLE RegSub --"}) {
    EXPECT_EQ(found(nothing), Words{}) << nothing;
  }
}

TEST_P(Find, SaysWhatALineIsAndCountsThoseThatItLeavesOut) {
  const auto run = find({"折让", "--as", "json", "--limit", "2"});
  EXPECT_EQ(run.out, R"({
 "find": "折让",
 "found": 3,
 "shown": 2,
 "lines": [
  {
   "line": 4,
   "voucher": 3,
   "posted": true,
   "period": 1,
   "date": "2006.01.05",
   "word": "转",
   "number": 12,
   "summary": "1000 x 折让",
   "account": "1221",
   "account_name": "备用金",
   "dept": "销售部",
   "person": "张三",
   "unit": null,
   "project": null,
   "debit": -300.0,
   "credit": null,
   "business_number": "O'Brien",
   "found_by": [
    "summary"
   ]
  },
  {
   "line": 1,
   "voucher": 9,
   "posted": false,
   "period": 2,
   "date": "2006.02.06",
   "word": "记",
   "number": 12,
   "summary": "未记帐折让",
   "account": "1001",
   "account_name": "现金",
   "dept": null,
   "person": null,
   "unit": null,
   "project": null,
   "debit": 88.88,
   "credit": null,
   "business_number": null,
   "found_by": [
    "summary"
   ]
  }
 ]
}
)");
  const auto text = find({"折让", "--limit", "2"}).out;
  EXPECT_NE(text.find("找到 3 条分录，只列出前 2 条"), std::string::npos) << text;
  EXPECT_NE(text.find("* 未记帐凭证"), std::string::npos) << text;
  // Who is not in the archives is told by his id; a class without items has no names to tell.
  const auto strangers = nlohmann::json::parse(find({"300", "--as", "json"}).out).at("lines");
  EXPECT_EQ(strangers.at(1).at("person"), "（编号 99）");
  EXPECT_EQ(strangers.at(1).at("project"), "（编号 5）");
  EXPECT_EQ(strangers.at(2).at("project"), "（编号 4）");
}

TEST_P(Find, TellsNothingFoundFromWhatIsNoSearch) {
  const auto nothing = find({"没有的", "--as", "json"});
  EXPECT_EQ(nothing.status, 0);
  EXPECT_EQ(nlohmann::json::parse(nothing.out).at("found"), 0);
  EXPECT_NE(find({"没有的"}).out.find("（无记录）"), std::string::npos);
  for (const Words& wrong : {Words{}, Words{""}, Words{"　 "}, Words{std::string(1001, 'x')},
                             Words{"借", "--limit", "0"}, Words{"借", "--as", "csv"}}) {
    EXPECT_EQ(find(wrong).status, 2);
  }
  ledger_.keeper().execute("DROP TABLE UnregSub");
  const auto broken = find({"折让"});
  EXPECT_EQ(broken.status, 3);
  EXPECT_EQ(broken.out, "");
  EXPECT_NE(broken.err, "");
}

TZ_ON_BOTH_DATABASES(Find);

}  // namespace
}  // namespace tz::test
