// Reports whose levels stand in another order than any report of the catalogue has them: keys, statements, headings and
// totals follow the order in which the levels are named. Each row is printed with its level and subject: a account,
// d department, u unit, i class/item, k unit class, c clerk; P or U voucher.line for a line.
#include <fmt/format.h>

#include "core/ledger/detail_engine.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

std::string subjectText(const Subject& subject) {
  std::string text;
  if (subject.account != 0) text += fmt::format(" a{}", subject.account);
  if (subject.dept != 0) text += fmt::format(" d{}", subject.dept);
  if (subject.unit != 0) text += fmt::format(" u{}", subject.unit);
  if (subject.item != 0) text += fmt::format(" i{}/{}", subject.itemClass, subject.item);
  if (subject.unitClass) text += fmt::format(" k{}", *subject.unitClass);
  if (subject.clerk) text += fmt::format(" c{}", *subject.clerk);
  return text;
}

// "\n0 u5 | 江源 | …": cells without a value are left out.
std::string rowsText(const ComputedReport& computed) {
  std::string text = "\n";
  for (std::int64_t row = 0; row < computed.grid.GetRows(); ++row) {
    const int level = computed.subjects.level(row);
    text += level == RowSubjects::wholeReport ? "*" : std::to_string(level);
    text += subjectText(computed.subjects.of(row));
    if (const auto line = computed.subjects.line(row)) {
      text += fmt::format(" {}{}.{}", line->book == Book::posted ? 'P' : 'U', line->voucher, line->line);
    }
    for (int column = 2; column < computed.grid.GetCols(); ++column) {
      const auto shown = computed.grid.ShownAt(row, column);
      if (!shown.empty()) text += " | " + shown;
    }
    text += '\n';
  }
  return text;
}

class UnusualLevels : public DatabaseTest {
 protected:
  UnusualLevels() : ledger_(GetParam()) {
    ledger_.fill("Code", R"(
        lId | sCode | sName    | byGrade | bEnd | bDirect | sAssBook | sUnit
        1   | 1122  | 应收账款 | 1       | 1    | 1       | BCD      |
        2   | 2203  | 预收账款 | 1       | 1    | 0       | BCD      | 吨 )");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 10      | D1      | 销售部
        2   | 20      | D2      | 采购部 )");
    ledger_.fill("EnterClass", "lId | sName\n 1 | 国内");
    ledger_.fill("Enter", R"(
        lId | sEnterId | sEnterName | lClassId
        5   | E1       | 江源       | 0
        6   | E2       | 宏达       | 1 )");
    ledger_.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程\n 2 | 02 | 合同");
    ledger_.makeItemTable("01");
    ledger_.makeItemTable("02");
    ledger_.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 3 | X3 | 东桥\n 8 | X8 | 西桥");
    ledger_.fill("ProjItems02", "lId | FIELD0 | FIELD1\n 1 | Y1 | 甲合同");
    ledger_.fill("AssAcc", R"(
        lId | lCodeId | lDeptId | lEnterId | lItemId | sItemId | byPeroid | mBegin | dBegin
        1   | 1       | 10      | 6        | 3       | 01      | 1        | 100    | 0
        2   | 2       | 20      | 5        | 1       | 02      | 1        | 30     | 3 )");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 1        | 2006-01-05 | 2006-01-05 | 记    | 1
        2      | 2        | 2006-02-05 | 2006-02-05 | 记    | 1 )");
    ledger_.fill("RegSub", R"(
        lId|lTieId|lCodeId|lDeptId|lEnterId|lItemId|sItemId|mMoney|bDirect|dAmount|sName|sDigest|dtDate
        1  | 1    | 1     | 20    | 5      | 8     | 01    | 40   | 1     | 0     | 王明 | 发货 | 2006-01-05
        2  | 1    | 1     | 10    | 6      | 1     | 02    | 20   | 1     | 0     | 李华 | 代垫 | 2006-01-05
        3  | 2    | 2     | 20    | 5      | 1     | 02    | 12   | 1     | 2     |      | 退款 | 2006-02-05
        4  | 2    | 1     | 10    | 5      | 3     | 01    | 7    | 0     | 0     | 王明 | 收款 | 2006-02-05 )");
    ledger_.fill("UnregMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        9      | 1        | 2006-01-20 | 2006-01-20 | 转    | 4 )");
    ledger_.fill("UnregSub", R"(
        lId | lTieId | lCodeId | lDeptId | lEnterId | lItemId | sItemId | mMoney | bDirect | sDigest | dtDate
        1   | 9      | 1       | 10      | 6        | 1       | 02      | 5      | 1       | 补记    | 2006-01-20 )");
  }

  [[nodiscard]] std::string rows(const GroupLevels& levels, AmountFormat format = AmountFormat::amount) const {
    CQnCwDB db(Access::read);
    db.Open(ledger_.address());
    Session session{.db = db, .ledger = ledger_.address(), .logon = {2006, 2, 28}};
    Conditions conditions;
    conditions.data = std::make_shared<CGetData>(db);
    conditions.from = 1;
    conditions.to = 2;
    conditions.unposted = true;
    conditions.format = format;
    const DetailMember member{
        .selects = {.dimension = [](const Conditions&) { return Sql("lEnterId <> 0 AND lItemId <> 0"); },
                    .groups = levels,
                    .order = "s.dtDate"},
        .openingCaption = "期初"};
    ComputedReport computed;
    runDetailLedger(member, session, conditions, {}, computed);
    return rowsText(computed);
  }

 private:
  TestLedger ledger_;
};

TEST_P(UnusualLevels, UnitsStandBeforeTheirProjects) {
  EXPECT_EQ(rows({{Entity::unit, "单位小计"}, {Entity::project, "项目小计"}}), R"(
1 u5 i01/3 | 江源 东桥
1 a1 u5 i01/3 P2.4 | 收款 | 7.00 | 贷 | 7.00
1 u5 i01/3 | 本月合计 | 7.00 | 贷 | 7.00
1 u5 i01/3 | 本年累计 | 7.00 | 贷 | 7.00
1 u5 i01/3 | 项目小计 | 7.00 | 贷 | 7.00
1 u5 i01/8 | 江源 西桥
1 a1 u5 i01/8 P1.1 | 发货 | 40.00 | 借 | 40.00
1 u5 i01/8 | 本月合计 | 40.00 | 借 | 40.00
1 u5 i01/8 | 本年累计 | 40.00 | 借 | 40.00
1 u5 i01/8 | 项目小计 | 40.00 | 借 | 40.00
1 u5 i02/1 | 江源 甲合同
1 u5 i02/1 | 期初 | 贷 | 30.00
1 a2 u5 i02/1 P2.3 | 退款 | 12.00 | 贷 | 18.00
1 u5 i02/1 | 本月合计 | 12.00 | 贷 | 18.00
1 u5 i02/1 | 本年累计 | 12.00 | 贷 | 18.00
1 u5 i02/1 | 项目小计 | 12.00 | 贷 | 18.00
0 u5 | 单位小计 | 52.00 | 7.00 | 借 | 15.00
1 u6 i01/3 | 宏达 东桥
1 u6 i01/3 | 期初 | 借 | 100.00
1 u6 i01/3 | 项目小计 | 借 | 100.00
1 u6 i02/1 | 宏达 甲合同
1 a1 u6 i02/1 P1.2 | 代垫 | 20.00 | 借 | 20.00
1 a1 u6 i02/1 U9.1 | 补记 | 5.00 | 借 | 25.00
1 u6 i02/1 | 本月合计 | 25.00 | 借 | 25.00
1 u6 i02/1 | 本年累计 | 25.00 | 借 | 25.00
1 u6 i02/1 | 项目小计 | 25.00 | 借 | 25.00
0 u6 | 单位小计 | 25.00 | 借 | 125.00
* | 合计 | 77.00 | 7.00 | 借 | 140.00
)");
}

TEST_P(UnusualLevels, AccountsStandBeforeDepartmentsAndHaveAPriceOfTheirOwn) {
  EXPECT_EQ(rows({{Entity::account, "科目小计"}, {Entity::dept, "部门小计"}}, AmountFormat::quantityAmount), R"(
1 a1 d10 | 应收账款 销售部
1 a1 d10 | 期初 | 借 | 100.00
1 a1 d10 P1.2 | 代垫 | 20.00 | 借 | 120.00
1 a1 d10 U9.1 | 补记 | 5.00 | 借 | 125.00
1 a1 d10 | 本月合计 | 25.00 | 借 | 125.00
1 a1 d10 | 本年累计 | 25.00 | 借 | 125.00
1 a1 d10 P2.4 | 收款 | 7.00 | 借 | 118.00
1 a1 d10 | 本月合计 | 7.00 | 借 | 118.00
1 a1 d10 | 本年累计 | 25.00 | 7.00 | 借 | 118.00
1 a1 d10 | 部门小计 | 25.00 | 7.00 | 借 | 118.00
1 a1 d20 | 应收账款 采购部
1 a1 d20 P1.1 | 发货 | 40.00 | 借 | 40.00
1 a1 d20 | 本月合计 | 40.00 | 借 | 40.00
1 a1 d20 | 本年累计 | 40.00 | 借 | 40.00
1 a1 d20 | 部门小计 | 40.00 | 借 | 40.00
0 a1 | 科目小计 | 65.00 | 7.00 | 借 | 158.00
1 a2 d20 | 预收账款 采购部
1 a2 d20 | 期初 | 贷 | 3 | 10.00 | 30.00
1 a2 d20 P2.3 | 退款 | 6.00 | 2 | 12.00 | 贷 | 1 | 18.00 | 18.00
1 a2 d20 | 本月合计 | 2 | 12.00 | 贷 | 1 | 18.00 | 18.00
1 a2 d20 | 本年累计 | 2 | 12.00 | 贷 | 1 | 18.00 | 18.00
1 a2 d20 | 部门小计 | 2 | 12.00 | 贷 | 1 | 18.00 | 18.00
0 a2 | 科目小计 | 2 | 12.00 | 贷 | 1 | 18.00 | 18.00
* | 合计 | 2 | 77.00 | 7.00 | 借 | 1 | 140.00
)");
}

TEST_P(UnusualLevels, ClassesOfUnitsAndClerksAreLevels) {
  EXPECT_EQ(rows({{Entity::unitClass, "分类小计"}, {Entity::clerk, "业务员小计"}, {Entity::unit, "单位小计"}}), R"(
2 u5 k0 c | 其它 其它 江源
2 u5 k0 c | 期初 | 贷 | 30.00
2 a2 u5 k0 c P2.3 | 退款 | 12.00 | 贷 | 18.00
2 u5 k0 c | 本月合计 | 12.00 | 贷 | 18.00
2 u5 k0 c | 本年累计 | 12.00 | 贷 | 18.00
2 u5 k0 c | 单位小计 | 12.00 | 贷 | 18.00
1 k0 c | 业务员小计 | 12.00 | 贷 | 18.00
2 u5 k0 c王明 | 其它 王明 江源
2 a1 u5 k0 c王明 P1.1 | 发货 | 40.00 | 借 | 40.00
2 u5 k0 c王明 | 本月合计 | 40.00 | 借 | 40.00
2 u5 k0 c王明 | 本年累计 | 40.00 | 借 | 40.00
2 a1 u5 k0 c王明 P2.4 | 收款 | 7.00 | 借 | 33.00
2 u5 k0 c王明 | 本月合计 | 7.00 | 借 | 33.00
2 u5 k0 c王明 | 本年累计 | 40.00 | 7.00 | 借 | 33.00
2 u5 k0 c王明 | 单位小计 | 40.00 | 7.00 | 借 | 33.00
1 k0 c王明 | 业务员小计 | 40.00 | 7.00 | 借 | 33.00
0 k0 | 分类小计 | 52.00 | 7.00 | 借 | 15.00
2 u6 k1 c | 国内 其它 宏达
2 u6 k1 c | 期初 | 借 | 100.00
2 a1 u6 k1 c U9.1 | 补记 | 5.00 | 借 | 105.00
2 u6 k1 c | 本月合计 | 5.00 | 借 | 105.00
2 u6 k1 c | 本年累计 | 5.00 | 借 | 105.00
2 u6 k1 c | 单位小计 | 5.00 | 借 | 105.00
1 k1 c | 业务员小计 | 5.00 | 借 | 105.00
2 u6 k1 c李华 | 国内 李华 宏达
2 a1 u6 k1 c李华 P1.2 | 代垫 | 20.00 | 借 | 20.00
2 u6 k1 c李华 | 本月合计 | 20.00 | 借 | 20.00
2 u6 k1 c李华 | 本年累计 | 20.00 | 借 | 20.00
2 u6 k1 c李华 | 单位小计 | 20.00 | 借 | 20.00
1 k1 c李华 | 业务员小计 | 20.00 | 借 | 20.00
0 k1 | 分类小计 | 25.00 | 借 | 125.00
* | 合计 | 77.00 | 7.00 | 借 | 140.00
)");
}

TZ_ON_BOTH_DATABASES(UnusualLevels);

}  // namespace
}  // namespace tz::test
