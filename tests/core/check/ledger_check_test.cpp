// Every rule of the check: a small sound ledger, broken in one way at a time, and the whole report that comes of it.
#include "core/check/ledger_check.h"

#include <fmt/format.h>

#include "support/test_ledger.h"

namespace tz::test {
namespace {

using Lines = std::vector<std::string>;

// Account 3 lends to a person since last year, account 5 collects the cost of a project, account 4 owes to a unit.
void fillSoundLedger(TestLedger& ledger) {
  ledger.fill("zAccountM", "lId|sName|sCodeScheme|nYear\n 1|测试公司|422|2025");
  ledger.fill("Cyrency", "lId|byExchId|sName|bConvert\n 1|1|美元|1");
  ledger.fill("ExchgFix", "lId|byExchId|dFrat\n 1|1|7");
  ledger.fill("ExchgFlt", "lId|byExchId|dtDate|dFrat\n 1|1|2025-01-01|7.1");
  ledger.fill("Dept", "lId|lDeptId|sDeptId|sDeptName\n 1|11|01|销售部");
  ledger.fill("Person", "lId|sPersonId|sName|lDeptId\n 21|P1|张三|11");
  ledger.fill("EnterClass", "lId|sName\n 1|客户");
  ledger.fill("Enter", "lId|sEnterId|sEnterName|lClassId|mCredit\n 31|K1|甲公司|1|1000");
  ledger.fill("Code", R"(
    lId | sCode  | sName      | byGrade | bEnd | bDirect | sAssBook | byExchId | byKind
    1   | 1001   | 库存现金   | 1       | 1    | 1       |          | 0        | 1
    2   | 1221   | 其他应收款 | 1       | 0    | 1       | A        | 0        | 1
    3   | 122101 | 职工借款   | 2       | 1    | 1       | A        | 0        | 1
    4   | 2203   | 预收账款   | 1       | 1    | 0       | B        | 0        | 2
    5   | 5001   | 生产成本   | 1       | 1    | 1       | DC       | 0        | 4
    6   | 1002   | 银行美元户 | 1       | 1    | 1       |          | 1        | 1)");
  ledger.fill("ProjClass", "lId|sItemId|sName\n 1|01|订单");
  ledger.fill("ProjItems", R"(
    lId | sItemId | nField | sTitle | sType
    1   | 01      | 0      | 编号   | 3
    2   | 01      | 1      | 名称   | 3
    3   | 01      | 2      | 结算   | 5)");
  ledger.makeItemTable("01");
  ledger.fill("ProjItems01", "lId|FIELD0|FIELD1|FIELD2\n 1|D1|订单一|0");
  ledger.fill("ProjCodes", "lId|lCodeId|sItemId\n 1|5|01");
  ledger.fill("RegMain", R"(
    lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
    1      | 0        | 2024-12-01 | 2025-01-01 | 记    | 1
    2      | 2        | 2025-02-10 | 2025-02-11 | 付    | 1
    3      | 3        | 2025-03-05 | 2025-03-05 | 转    | 1)");
  ledger.fill("RegSub", R"(
    lId | lTieId | lCodeId | lDeptId | lPersonId | lEnterId | lItemId | sItemId | mMoney | bDirect | dtDate
    1   | 1      | 3       | 11      | 21        | 0        | 0       |         | 100    | 1       | 2025-01-01
    2   | 1      | 1       | 0       | 0         | 0        | 0       |         | 100    | 0       | 2025-01-01
    3   | 2      | 3       | 11      | 21        | 0        | 0       |         | 0.1    | 1       | 2025-02-11
    4   | 2      | 3       | 11      | 21        | 0        | 0       |         | 0.2    | 1       | 2025-02-11
    5   | 2      | 1       | 0       | 0         | 0        | 0       |         | 0.3    | 0       | 2025-02-11
    6   | 3      | 5       | 11      | 0         | 0        | 1       | 01      | 30     | 1       | 2025-03-05
    7   | 3      | 4       | 0       | 0         | 31       | 0       |         | 30     | 0       | 2025-03-05)");
  ledger.fill("UnregMain", "lTieId|byPeroid|dtBill|dtDate|sWord|nNumber\n 9|12|2025-12-01|2025-12-01|付|1");
  ledger.fill("UnregSub", R"(
    lId | lTieId | lCodeId | mMoney | bDirect | mForeign | dFrat | byExchId | dtDate
    8   | 9      | 6       | 70     | 1       | 10       | 7     | 1        | 2025-12-01
    9   | 9      | 1       | 70     | 0       | 0        | 0     | 0        | 2025-12-01)");
  ledger.fill("Plan", "lId|lCodeId|lDeptId|byPeroid|mPPlan\n 1|3|11|1|10.1234");
  ledger.fill("Ages", "lId|byType|nNumber|lLength\n 1|0|1|30\n 2|0|2|60\n 3|1|1|30");
  ledger.fill("zOperator", "lId|sName\n 1|李会计");
  ledger.fill("zRight", "lOperatorId|nRight\n 1|7");
}

// The ids of the balances: the period for the person, 100 + period for the project, 200 + period for the unit.
void fillSoundBalances(TestLedger& ledger) {
  std::string rows =
      "lId|lCodeId|lDeptId|lPersonId|lEnterId|lItemId|sItemId|byPeroid|mBegin|bBegin|mDebit|mCredit\n"
      "50|3|11|21|0|0||0|100|1|0|0\n1|3|11|21|0|0||1|100|0|0|0\n2|3|11|21|0|0||2|100|0|0.30000000000000004|0\n"
      "103|5|11|0|0|1|01|3|0|0|30|0\n203|4|0|0|31|0||3|0|0|0|30\n";
  for (int period = 3; period <= 12; ++period) {
    rows += fmt::format("{0}|3|11|21|0|0||{0}|100.3|0|0|0\n", period);
    if (period == 3) continue;
    rows += fmt::format("{}|5|11|0|0|1|01|{}|30|0|0|0\n", 100 + period, period);
    rows += fmt::format("{}|4|0|0|31|0||{}|30|0|0|0\n", 200 + period, period);
  }
  ledger.fill("AssAcc", rows);
}

// The same rows in a table without rules, as a ledger made elsewhere may have them.
Lines loosened(const std::string& table, Lines statements) {
  Lines all = {"CREATE TABLE Loose AS SELECT * FROM " + table, "DROP TABLE " + table,
               "ALTER TABLE Loose RENAME TO " + table};
  all.insert(all.end(), statements.begin(), statements.end());
  return all;
}

enum class On { both, file, server };

struct Case {
  Lines statements;
  Lines found;
  On on =
      On::both;  // a server refuses cells of another kind even where there are no rules; a file has no types of dates
};

Lines check(Connection& connection) {
  Lines lines;
  checkLedger(connection, [&](const Violation& violation) { lines.push_back(violation.text()); });
  return lines;
}

class LedgerCheckTest : public DatabaseTest {
 protected:
  LedgerCheckTest() : ledger_(GetParam()) {
    fillSoundLedger(ledger_);
    fillSoundBalances(ledger_);
  }
  void run(const std::vector<Case>& cases) {
    auto& connection = ledger_.keeper();
    ASSERT_EQ(check(connection), Lines{});
    for (const auto& [statements, found, on] : cases) {
      if (on == (onServer() ? On::file : On::server)) continue;
      SCOPED_TRACE(statements.back());
      const Transaction undone(connection, Transaction::Purpose::writing);
      for (const auto& statement : statements) connection.execute(Sql(statement));
      EXPECT_EQ(check(connection), found);
    }
  }

 private:
  TestLedger ledger_;
};
TZ_ON_BOTH_DATABASES(LedgerCheckTest);

TEST_P(LedgerCheckTest, AccountSetAndCurrencies) {
  run({
      {{"DELETE FROM zAccountM"}, {"zAccountM：须有一个帐套，现有 0 个"}},
      {{"UPDATE zAccountM SET sCodeScheme = '4x2'"},
       {"zAccountM lId=1：科目编码方案 “4x2” 须为每级一位 1 至 9 的数字"}},
      {{"UPDATE zAccountM SET nYear = 25"}, {"zAccountM lId=1：会计年度 25 不合理"}},
      {{"UPDATE Cyrency SET sName = ''"}, {"Cyrency lId=1：币种没有名称"}},
      {{"UPDATE ExchgFix SET dFrat = 0"}, {"ExchgFix lId=1：汇率 0 须大于 0"}},
      {{"UPDATE ExchgFlt SET byExchId = 4"}, {"ExchgFlt lId=1：币种 byExchId = 4 不存在"}},
      {{"UPDATE Code SET byExchId = 3 WHERE lId = 4"}, {"Code lId=4：科目 2203 的币种 byExchId = 3 不存在"}},
      {{"UPDATE UnregSub SET byExchId = 0 WHERE lId = 8"}, {"UnregSub lId=8：有外币金额而没有币种"}},
      {{"UPDATE UnregSub SET byExchId = 1 WHERE lId = 9"}, {"UnregSub lId=9：币种 1 与科目 1001 的币种 0 不同"}},
  });
}

TEST_P(LedgerCheckTest, Archives) {
  run({
      {{"UPDATE Dept SET sDeptName = ''"}, {"Dept lId=1：部门没有名称"}},
      {{"UPDATE Person SET lDeptId = 12"}, {"Person lId=21：部门 lDeptId = 12 不存在"}},
      {loosened("Person", {"INSERT INTO Person SELECT * FROM Person"}), {"Person lId=21：lId 重复"}},
      {{"UPDATE Enter SET lClassId = 5"}, {"Enter lId=31：单位分类 lClassId = 5 不存在"}},
      {{"UPDATE Enter SET mCredit = -1"}, {"Enter lId=31：信用额度不能为负数"}},
      {{"UPDATE ProjClass SET sItemId = 'a b'"},
       {"ProjClass lId=1：项目大类编号 “a b” 只能由字母和数字组成", "ProjItems lId=1：项目大类 01 不存在",
        "ProjItems lId=2：项目大类 01 不存在", "ProjItems lId=3：项目大类 01 不存在", "ProjItems01：没有项目大类 01",
        "ProjCodes lId=1：项目大类 01 不存在", "RegSub lId=6：项目大类 01 不存在", "AssAcc lId=103：项目大类 01 不存在",
        "AssAcc lId=104：项目大类 01 不存在", "AssAcc lId=105：项目大类 01 不存在",
        "AssAcc lId=106：项目大类 01 不存在", "AssAcc lId=107：项目大类 01 不存在",
        "AssAcc lId=108：项目大类 01 不存在", "AssAcc lId=109：项目大类 01 不存在",
        "AssAcc lId=110：项目大类 01 不存在", "AssAcc lId=111：项目大类 01 不存在",
        "AssAcc lId=112：项目大类 01 不存在"}},
      {{"INSERT INTO ProjClass (lId, sItemId) VALUES (2, 'RD')"}, {"ProjClass：项目大类 RD 没有项目表 ProjItemsRD"}},
      {{"ALTER TABLE ProjItems01 DROP COLUMN FIELD2"}, {"ProjItems01：缺少列 FIELD2"}},
      {{"UPDATE ProjCodes SET lCodeId = 99"}, {"ProjCodes lId=1：科目 lCodeId = 99 不存在"}},
      {{"UPDATE zRight SET lOperatorId = 2"}, {"zRight lOperatorId=2：操作员不存在"}},
  });
}

TEST_P(LedgerCheckTest, Chart) {
  run({
      {{"UPDATE Code SET sCode = '12211' WHERE lId = 3"},
       {"Code lId=3：科目编码 12211 的长度不符合编码方案 422", "Code lId=2：科目 1221 没有下级，应为末级"}},
      {{"UPDATE Code SET sCode = '122301' WHERE lId = 3"},
       {"Code lId=3：科目 122301 没有上级科目 1223", "Code lId=2：科目 1221 没有下级，应为末级"}},
      {{"UPDATE Code SET byGrade = 1 WHERE lId = 3"}, {"Code lId=3：科目 122101 的级次是 1，应为 2"}},
      {{"UPDATE Code SET bEnd = 1 WHERE lId = 2"}, {"Code lId=2：科目 1221 有下级，不应为末级"}},
      {{"UPDATE Code SET sAssBook = 'CDC' WHERE lId = 5"}, {"Code lId=5：科目 5001 的辅助核算 “CDC” 字母重复"}},
      {{"UPDATE Code SET sAssBook = 'a' WHERE lId = 4"},
       {"Code lId=4：科目 2203 的辅助核算 “a” 只能含 A、B、C、D", "RegSub lId=7：科目 2203 的辅助核算是 “a”，而有单位",
        "AssAcc lId=203：科目 2203 单位 31 期间 3：科目 2203 的辅助核算是 “a”，而有单位"}},
      {{"UPDATE Code SET byKind = 6 WHERE lId = 4"}, {"Code lId=4：科目 2203 的类别 6 不在 1 至 5 之间"}},
      {{"UPDATE Code SET lDeptId = 99 WHERE lId = 4"}, {"Code lId=4：科目 2203 的部门 lDeptId = 99 不存在"}},
      {loosened("Code", {"UPDATE Code SET sCode = '1001' WHERE lId = 6"}), {"Code lId=6：科目编码 1001 重复"}},
  });
}

TEST_P(LedgerCheckTest, Vouchers) {
  run({
      {{"UPDATE RegMain SET byPeroid = 13, dtBill = '2024-12-31' WHERE lTieId = 2",
        "DELETE FROM AssAcc WHERE lCodeId = 3"},
       {"RegMain lTieId=2：期间 13 不在 0 至 12 之间", "RegMain lTieId=2：凭证日期 2024-12-31 不在会计年度 2025 内"}},
      {{"UPDATE RegMain SET dtBill = '2026-01-01' WHERE lTieId = 1"},
       {"RegMain lTieId=1：期初凭证日期 2026-01-01 晚于会计年度 2025"}},
      {{"UPDATE UnregMain SET sWord = '', nNumber = 0"}, {"UnregMain lTieId=9：没有凭证字"}},
      {{"UPDATE UnregMain SET nNumber = -1"}, {"UnregMain lTieId=9：凭证号 -1 不能为负数"}},
      {{"UPDATE UnregMain SET byPeroid = 0"}, {"UnregMain lTieId=9：期间 0 只能有已记帐凭证"}},
      // Left behind when it was posted; entered twice.
      {{"INSERT INTO UnregMain SELECT * FROM RegMain WHERE lTieId = 3",
        "INSERT INTO UnregSub SELECT * FROM RegSub WHERE lTieId = 3"},
       {"RegMain lTieId=3：凭证既已记帐，又在未记帐凭证中（UnregMain lTieId=3）"}},
      {{"UPDATE UnregMain SET byPeroid = 3, sWord = '转'"},
       {"RegMain lTieId=3：凭证既已记帐，又在未记帐凭证中（UnregMain lTieId=9）"}},
      {{"UPDATE UnregMain SET byPeroid = 3, sWord = '转', nNumber = 0", "UPDATE RegMain SET nNumber = 0"}, {}},
      {{"UPDATE UnregSub SET lTieId = 8 WHERE lId = 9"},
       {"UnregSub lId=9：凭证 lTieId = 8 不存在", "UnregMain lTieId=9：借贷不平，相差 70"}},
      {{"UPDATE UnregSub SET mMoney = 69.99 WHERE lId = 9"}, {"UnregMain lTieId=9：借贷不平，相差 0.01"}},
      {{"UPDATE UnregSub SET mMoney = 70.01 WHERE lId = 9"}, {"UnregMain lTieId=9：借贷不平，相差 -0.01"}},
      {{"UPDATE UnregSub SET dtDate = '2025-12-02' WHERE lId = 9"},
       {"UnregSub lId=9：录入日期 2025-12-02 与凭证 lTieId = 9 的 2025-12-01 不同"}},
      {{"UPDATE UnregSub SET lCodeId = 99 WHERE lId = 9"}, {"UnregSub lId=9：科目 lCodeId = 99 不存在"}},
      {{"UPDATE UnregSub SET lCodeId = 2 WHERE lId = 9"},
       {"UnregSub lId=9：科目 1221 不是末级科目", "UnregSub lId=9：科目 1221 的辅助核算是 “A”，而没有个人、部门"}},
      {{"UPDATE UnregSub SET lDeptId = 1, lPersonId = 1, lEnterId = 1 WHERE lId = 9"},
       {"UnregSub lId=9：科目 1001 的辅助核算是 “”，而有个人、单位、部门", "UnregSub lId=9：部门 lDeptId = 1 不存在",
        "UnregSub lId=9：个人 lPersonId = 1 不存在", "UnregSub lId=9：单位 lEnterId = 1 不存在"}},
      {{"UPDATE UnregSub SET lItemId = 1 WHERE lId = 9"},
       {"UnregSub lId=9：科目 1001 的辅助核算是 “”，而有项目", "UnregSub lId=9：项目须同时有 sItemId 和 lItemId"}},
      {{"UPDATE UnregSub SET lItemId = 7, sItemId = '01' WHERE lId = 9"},
       {"UnregSub lId=9：科目 1001 的辅助核算是 “”，而有项目", "UnregSub lId=9：项目大类 01 中没有项目 lItemId = 7"}},
      {loosened("UnregSub", {"UPDATE UnregSub SET lId = 8"}), {"UnregSub lId=8：lId 重复"}},
  });
}

TEST_P(LedgerCheckTest, Balances) {
  run({
      {{"DELETE FROM AssAcc WHERE lId = 7"}, {"AssAcc lId=8：科目 122101 部门 11 个人 21 期间 8：缺少期间 7 的记录"}},
      {{"DELETE FROM AssAcc WHERE lId = 212"}, {"AssAcc lId=211：科目 2203 单位 31 期间 11：缺少期间 12 至 12 的记录"}},
      {{"DELETE FROM AssAcc WHERE lId = 103"},
       {"AssAcc lId=104：科目 5001 部门 11 项目 01/1 期间 4：期间 3 已有记帐分录，而没有记录"}},
      {{"DELETE FROM AssAcc WHERE lCodeId = 4"}, {"AssAcc：科目 2203 单位 31：有记帐分录，而没有辅助余额"}},
      {{"UPDATE AssAcc SET mBegin = -30 WHERE lId = 204"},
       {"AssAcc lId=204：科目 2203 单位 31 期间 4：期初金额 -30，应为 30",
        "AssAcc lId=205：科目 2203 单位 31 期间 5：期初金额 30，应为 -30"}},
      {{"UPDATE AssAcc SET mDebit = 0.31, mBegin = 99.99 WHERE lId = 2"},
       {"AssAcc lId=2：科目 122101 部门 11 个人 21 期间 2：期初金额 99.99，应为 100",
        "AssAcc lId=2：科目 122101 部门 11 个人 21 期间 2：借方金额 0.31，应为 0.3"}},
      {{"UPDATE AssAcc SET dCredit = 1, dDebit = 1, mDebitFor = 2, mCreditFor = 2 WHERE lId = 5"},
       {"AssAcc lId=5：科目 122101 部门 11 个人 21 期间 5：借方数量 1，应为 0",
        "AssAcc lId=5：科目 122101 部门 11 个人 21 期间 5：借方外币 2，应为 0",
        "AssAcc lId=5：科目 122101 部门 11 个人 21 期间 5：贷方数量 1，应为 0",
        "AssAcc lId=5：科目 122101 部门 11 个人 21 期间 5：贷方外币 2，应为 0"}},
      {{"UPDATE AssAcc SET bBegin = 1 WHERE lId = 12"}, {"AssAcc lId=12：期间 12 的 bBegin 应为 0"}},
      {{"UPDATE AssAcc SET lCodeId = 2 WHERE lCodeId = 4"},
       {"AssAcc lId=203：科目 1221 不是末级科目", "AssAcc lId=204：科目 1221 不是末级科目",
        "AssAcc lId=205：科目 1221 不是末级科目", "AssAcc lId=206：科目 1221 不是末级科目",
        "AssAcc lId=207：科目 1221 不是末级科目", "AssAcc lId=208：科目 1221 不是末级科目",
        "AssAcc lId=209：科目 1221 不是末级科目", "AssAcc lId=210：科目 1221 不是末级科目",
        "AssAcc lId=211：科目 1221 不是末级科目", "AssAcc lId=212：科目 1221 不是末级科目",
        "AssAcc lId=203：科目 1221 单位 31 期间 3：科目 1221 的辅助核算是 “A”，而没有个人、部门，而有单位",
        "AssAcc lId=203：科目 1221 单位 31 期间 3：贷方金额 30，应为 0",
        "AssAcc lId=204：科目 1221 单位 31 期间 4：期初金额 30，应为 -30",
        "AssAcc：科目 2203 单位 31：有记帐分录，而没有辅助余额"}},
      {loosened("AssAcc", {"UPDATE AssAcc SET byPeroid = 11 WHERE lId = 212"}),
       {"AssAcc lId=212：科目 2203 单位 31 期间 11：同一期间有两条记录",
        "AssAcc lId=212：科目 2203 单位 31 期间 11：缺少期间 12 至 12 的记录"}},
      // An unposted voucher that has found its way into the balances.
      {{"INSERT INTO AssAcc (lId, lCodeId, byPeroid, mDebit) VALUES (900, 6, 12, 70)"},
       {"AssAcc lId=900：科目 1002 期间 12：借方金额 70，应为 0"}},
  });
}

TEST_P(LedgerCheckTest, PlansAndIntervals) {
  run({
      {{"UPDATE Plan SET mPPlan = 0.12345"}, {"Plan lId=1：金额 0.12345 超过四位小数"}},
      {{"UPDATE Plan SET byPeroid = 0"}, {"Plan lId=1：期间 0 不在 1 至 12 之间"}},
      {{"UPDATE Plan SET lCodeId = 2, lDeptId = 12"},
       {"Plan lId=1：科目 1221 不是末级科目", "Plan lId=1：部门 lDeptId = 12 不存在"}},
      {{"UPDATE Ages SET lLength = 20 WHERE lId = 2"}, {"Ages：byType = 0 的第 2 区间天数小于前一区间"}},
      {{"UPDATE Ages SET nNumber = 1 WHERE lId = 2"}, {"Ages lId=2：同类区间序号重复"}},
      {{"UPDATE Ages SET byType = 2, nNumber = 6, lLength = 0 WHERE lId = 3"},
       {"Ages lId=3：byType = 2 须为 0 或 1", "Ages lId=3：区间序号 6 不在 1 至 5 之间",
        "Ages lId=3：区间天数须大于 0"}},
  });
}

TEST_P(LedgerCheckTest, CellsThatTheirColumnsCannotHold) {
  run({
      {{"ALTER TABLE Plan DROP COLUMN mPLast"}, {"Plan：缺少列 mPLast"}},
      {loosened("Enter", {"UPDATE Enter SET sPhone = NULL"}), {"Enter lId=31：sPhone 为空"}},
      {{"UPDATE UnregSub SET byFlag = -1 WHERE lId = 8"}, {"UnregSub lId=8：byFlag = -1 超出范围"}},
      {{"UPDATE UnregSub SET mMoney = 1e300"},
       {"UnregSub lId=8：mMoney = 1e+300 不是可用的数", "UnregSub lId=9：mMoney = 1e+300 不是可用的数"}},
      {{"UPDATE UnregMain SET dtBill = '2025-02-30'"}, {"UnregMain lTieId=9：dtBill 不是日期：2025-02-30"}, On::file},
      {loosened("Enter", {"UPDATE Enter SET mCredit = 'O''Brien''; DROP TABLE Plan --'"}),
       {"Enter lId=31：mCredit 的类型不符"},
       On::file},
      {{"UPDATE UnregMain SET nNumber = 99999999999"},
       {"UnregMain lTieId=9：nNumber = 99999999999 超出范围"},
       On::file},
  });
}

TEST_P(LedgerCheckTest, DatesThatNoCalendarHas) {
  const auto dated = [](const std::string& date) { return "UPDATE UnregMain SET dtBill = '" + date + "'"; };
  run({
      {{dated("9999999-01-01")}, {"UnregMain lTieId=9：dtBill 不是日期：9999999-01-01"}, On::file},
      {{dated("-4712-01-01")}, {"UnregMain lTieId=9：dtBill 不是日期：-4712-01-01"}, On::file},
      {{dated("")}, {"UnregMain lTieId=9：dtBill 为空"}, On::file},
      {{dated("infinity")}, {"UnregMain lTieId=9：dtBill 不是日期：infinity"}, On::server},
      {{dated("-infinity")}, {"UnregMain lTieId=9：dtBill 不是日期：-infinity"}, On::server},
      {{dated("5874897-12-31")}, {"UnregMain lTieId=9：dtBill 不是日期：5874897-12-31"}, On::server},
      {{dated("4713-01-01 BC")}, {"UnregMain lTieId=9：dtBill 不是日期：-4712-01-01"}, On::server},
      {{dated("0006-01-05")},
       {"UnregMain lTieId=9：dtBill 不合理：0006-01-05",
        "UnregMain lTieId=9：凭证日期 0006-01-05 不在会计年度 2025 内"}},
  });
}

TEST_P(LedgerCheckTest, ItemTables) {
  run({
      {{"ALTER TABLE ProjItems01 ADD COLUMN FIELD01 integer", "ALTER TABLE ProjItems01 ADD COLUMN FIELDNOTE integer",
        "ALTER TABLE ProjItems01 ADD COLUMN FIELD4294967295 integer"},
       {"ProjItems01：列 field01 不是字段：FIELD 之后须为 0 至 99 的数",
        "ProjItems01：列 fieldnote 不是字段：FIELD 之后须为 0 至 99 的数",
        "ProjItems01：列 field4294967295 不是字段：FIELD 之后须为 0 至 99 的数"}},
      {{"UPDATE ProjItems SET nField = 100 WHERE lId = 3"}, {"ProjItems lId=3：nField = 100 不在 0 至 99 之间"}},
      {{"CREATE TABLE ProjItemsX9 (lId integer, FIELD0 integer)"}, {"ProjItemsx9：没有项目大类 x9"}},
      {{"UPDATE ProjItems01 SET FIELD0 = '', FIELD1 = ''"},
       {"ProjItems01 lId=1：FIELD0 为空，项目没有编号", "ProjItems01 lId=1：FIELD1 为空，项目没有名称"}},
      {loosened("ProjItems01", {"UPDATE ProjItems01 SET FIELD1 = NULL"}), {"ProjItems01 lId=1：FIELD1 为空"}},
      {loosened("ProjItems01", {"UPDATE ProjItems01 SET FIELD0 = X'4431', FIELD2 = X'00'"}),
       {"ProjItems01 lId=1：FIELD0 是二进制数据", "ProjItems01 lId=1：FIELD2 是二进制数据"},
       On::file},
  });
}

TEST_P(LedgerCheckTest, ColumnsAndCellsOfAnotherType) {
  run({
      {{"CREATE TABLE Loose AS SELECT * FROM Code", "DROP TABLE Code",
        "CREATE TABLE Code (lId INTEGER, sCode INTEGER, sName TEXT, byGrade INTEGER, bEnd INTEGER, bDirect INTEGER, "
        "sAssBook TEXT, lDeptId INTEGER, sUnit TEXT, byExchId INTEGER, bLock INTEGER, byKind INTEGER)",
        "INSERT INTO Code SELECT * FROM Loose"},
       {"Code：列 sCode 的类型是 integer"},
       On::file},
      {{"ALTER TABLE Code ALTER sCode DROP DEFAULT, ALTER sCode TYPE integer USING CAST(sCode AS integer)"},
       {"Code：列 sCode 的类型是 int4"},
       On::server},
      {{"ALTER TABLE Enter ALTER mCredit DROP DEFAULT, ALTER mCredit TYPE text"},
       {"Enter：列 mCredit 的类型是 text"},
       On::server},
      {{"ALTER TABLE Enter ALTER sPhone DROP DEFAULT, ALTER sPhone TYPE bytea USING CAST(sPhone AS bytea)"},
       {"Enter：列 sPhone 的类型是 bytea"},
       On::server},
      {{"ALTER TABLE Person ALTER sName TYPE varchar(9) COLLATE \"und-x-icu\""}, {}, On::server},
      {loosened("Plan", {"UPDATE Plan SET lId = 'x', lCodeId = 3.5"}),
       {"Plan lId=x：lId 的类型不符", "Plan lId=x：lCodeId 的类型不符", "Plan lId=0：科目 lCodeId = 0 不存在"},
       On::file},
      {loosened("Dept", {"UPDATE Dept SET sDeptName = X'E99480'"}),
       {"Dept lId=1：sDeptName 是二进制数据", "Dept lId=1：部门没有名称"},
       On::file},
      {{"UPDATE UnregSub SET mMoney = 'NaN'"},
       {"UnregSub lId=8：mMoney 不是数：nan", "UnregSub lId=9：mMoney 不是数：nan"},
       On::server},
  });
}

TEST_P(LedgerCheckTest, HintsAtWhatAReaderShouldKnow) {
  run({
      {{"INSERT INTO Person (lId, sName, lDeptId) VALUES (22, '张三', 11)"},
       {"提示：Person lId=21、22：名称都是 “张三”"}},
      {{"INSERT INTO Dept (lId, lDeptId, sDeptName) VALUES (2, 12, '销售部')"},
       {"提示：Dept lId=1、2：名称都是 “销售部”"}},
      {{"INSERT INTO Enter (lId, sEnterName) VALUES (32, '甲公司')"}, {"提示：Enter lId=31、32：名称都是 “甲公司”"}},
      {{"INSERT INTO ProjItems01 (lId, FIELD0, FIELD1) VALUES (2, 'D2', '订单一')"},
       {"提示：ProjItems01 lId=1、2：名称都是 “订单一”"}},
      {{"UPDATE Code SET bDirect = 0 WHERE lId = 2"}, {"提示：Code lId=3：科目 122101 的余额方向与上级科目 1221 不同"}},
      {{"UPDATE Code SET sAssBook = 'BA' WHERE lId = 2"},
       {"提示：Code lId=3：科目 122101 没有上级科目 1221 的辅助核算 “B”，上级科目的该项报表不含它"}},
      {{"UPDATE Code SET sAssBook = '' WHERE lId = 2"}, {}},
  });
}

// A double of this size cannot tell millionths: what differs by less than it can hold is no violation, a cent is.
TEST_P(LedgerCheckTest, FiguresAtTheLimitOfADouble) {
  const auto line = [](int id, const char* money, int direction, int account, int person) {
    return fmt::format(
        "INSERT INTO RegSub (lId, lTieId, lCodeId, lDeptId, lPersonId, mMoney, bDirect, dtDate) VALUES "
        "({}, 2, {}, {}, {}, {}, {}, '2025-02-11')",
        id, account, person == 0 ? 0 : 11, person, money, direction);
  };
  const Lines large = {line(900, "8746203500.94", 1, 3, 21),
                       line(901, "8746203500.91", 1, 3, 21),
                       line(902, "0.03", 1, 3, 21),
                       line(903, "17492407001.88", 0, 1, 0),
                       "UPDATE AssAcc SET mDebit = 17492407002.18 WHERE lId = 2",
                       "UPDATE AssAcc SET mBegin = 17492407102.180004 WHERE lCodeId = 3 AND byPeroid > 2"};
  auto off = large;
  off.emplace_back("UPDATE AssAcc SET mDebit = 17492407002.19 WHERE lId = 2");
  run({{large, {}},
       {off,
        {"AssAcc lId=2：科目 122101 部门 11 个人 21 期间 2：借方金额 17492407002.19，应为 17492407002.18",
         "AssAcc lId=3：科目 122101 部门 11 个人 21 期间 3：期初金额 17492407102.18，应为 17492407102.19"}}});
}

}  // namespace
}  // namespace tz::test
