#include <gtest/gtest.h>

#include "core/output/grid_reports.h"

namespace tz::test {
namespace {

TEST(TextOutput, DetailLedger) {
  EXPECT_EQ(asText(ledgerReport()), R"(
                            三栏式明细帐
科目：1133 其他应收款
部门：销售部     个人：张三
月份: 2006.01 - 2006.02

  日期        凭证号   摘要            借方      贷方  方向      余额
  ──────────  ───────  ──────────  ────────  ────────  ────  ────────
                       个人期初                        借      250.00
  2006.01.05  记-0001  预借差旅费  1,000.00            借    1,250.00
                                   ────────  ────────        ────────
                       本月合计    1,000.00            借    1,250.00
                       本年累计    1,000.00            借    1,250.00

  2006.02.03  记-0012  冲销多借      -30.50            借    1,219.50
* 2006.02.10  记-0020  还款                  1,219.50  平
                                   ────────  ────────        ────────
                       本月合计      -30.50  1,219.50  平
                       本年累计      969.50  1,219.50  平

* 未记帐凭证
)" + 1);
}

TEST(TextOutput, GroupsBlocksAndTotals) {
  ComputedReport report;
  report.title = "明细帐";
  report.unit = "数量单位: 吨";
  CTzGridControl::AddCol(report.grid, "摘要", 120, ColumnKind::text);
  CTzGridControl::AddGroup(report.grid, "借方", 100, {ColumnKind::debitQuantity, ColumnKind::debitAmount});
  CTzGridControl::AddCol(report.grid, "方向", 40, ColumnKind::text);
  CTzGridControl::AddGroup(report.grid, "余额的数量单价和金额等栏目", 100,
                           {ColumnKind::quantity, ColumnKind::price, ColumnKind::amount});
  addRow(report.grid, {"钢厂"}, RowKind::heading);
  addRow(report.grid, {"购钢", 12.5, 43750.0, "借", 1.0, 3.5, 4.0});
  addRow(report.grid, {"小计", 12.5, 43750.0, "借", 1.0, 3.5, 4.0}, RowKind::subtotal);
  addRow(report.grid, {"煤矿"}, RowKind::heading);
  addRow(report.grid, {"购煤", 1200.0, -1.0, "贷", 2.0, 0.3333, 5.0});
  addRow(report.grid, {"小计", 1200.0, -1.0, "贷", 2.0, 0.3333, 5.0}, RowKind::subtotal);
  addRow(report.grid, {"合计", none, 43749.0}, RowKind::total);
  report.conditions = {"项目范围: X1 至 X9"};
  report.grid.notices = {Notice{"有1条分录的凭证日期不在查询月份内，未列示", Notice::Weight::incomplete},
                         Notice{"本单只列已两清分录"}};
  EXPECT_EQ(asText(report), R"(
                 明细帐（有分录未列示）
※ 有1条分录的凭证日期不在查询月份内，未列示
数量单位: 吨
项目范围: X1 至 X9

      ───── 借方 ─────        余额的数量单价和金额等栏目
摘要   数量       金额  方向  数量    单价          金额
────  ─────  ─────────  ────  ────  ──────  ────────────
钢厂
购钢   12.5  43,750.00  借       1    3.50          4.00
      ─────  ─────────        ────  ──────  ────────────
小计   12.5  43,750.00  借       1    3.50          4.00

煤矿
购煤  1,200      -1.00  贷       2  0.3333          5.00
      ─────  ─────────        ────  ──────  ────────────
小计  1,200      -1.00  贷       2  0.3333          5.00
合计         43,749.00

本单只列已两清分录
)" + 1);
}

TEST(TextOutput, DoubleWidthAlignment) {
  ComputedReport report;
  report.title = "表";
  CTzGridControl::AddCol(report.grid, "名称", 100, ColumnKind::text);
  CTzGridControl::AddCol(report.grid, "额", 100, ColumnKind::amount);
  for (const char* name : {"abc", "张三", "（有限）", "e\u0301te", "Ａ１", "한글", "𠮷野", "“引”", ""}) {
    addRow(report.grid, {name, 1.0});
  }
  EXPECT_EQ(asText(report), R"(
      表

名称        额
────────  ────
abc       1.00
张三      1.00
（有限）  1.00
éte       1.00
Ａ１      1.00
한글      1.00
𠮷野      1.00
“引”      1.00
          1.00
)" + 1);
}

TEST(TextOutput, HostileTextsCannotBreakTheTable) {
  ComputedReport report;
  report.title = "\x1b]0;owned\a";
  report.subtitle = "科目：\x1b[2J\n部门：a\tb";
  CTzGridControl::AddCol(report.grid, "摘要", 100, ColumnKind::text);
  CTzGridControl::AddCol(report.grid, "额", 100, ColumnKind::amount);
  addRow(report.grid, {"第一行\n第二行\r\x1b[31m", 1.0});
  addRow(report.grid, {"\u202E倒\u009B\xff\xe4\xb8", 2.0});
  addRow(report.grid, {"O'Brien'; DROP TABLE Plan --", 3.0});
  const std::string text = asText(report);
  EXPECT_EQ(text, R"(
            �]0;owned�
科目：�[2J
部门：a b

摘要                            额
────────────────────────────  ────
第一行 第二行 �[31m           1.00
�倒����                       2.00
O'Brien'; DROP TABLE Plan --  3.00
)" + 1);
}

TEST(TextOutput, AnEndlessSummaryWidensItsOwnRowOnly) {
  ComputedReport report;
  CTzGridControl::AddCol(report.grid, "摘要", 100, ColumnKind::text);
  CTzGridControl::AddCol(report.grid, "额", 100, ColumnKind::amount);
  addRow(report.grid, {"短", 1.0});
  const std::string endless(200, 'x');
  addRow(report.grid, {endless.c_str(), 2.0});
  const std::string text = asText(report);
  EXPECT_NE(text.find("\n短" + std::string(48, ' ') + "1.00\n"), std::string::npos) << text;
  EXPECT_NE(text.find(endless + " 2.00\n"), std::string::npos) << text;
}

TEST(TextOutput, EmptyReport) {
  ComputedReport report = ledgerReport();
  report.grid.SetRows(0);
  report.grid.notices = {Notice{"按筛选条件没有分录"}};
  EXPECT_EQ(asText(report), R"(
               三栏式明细帐
科目：1133 其他应收款
部门：销售部     个人：张三
月份: 2006.01 - 2006.02

日期  凭证号  摘要  借方  贷方  方向  余额
────  ──────  ────  ────  ────  ────  ────
（无记录）

按筛选条件没有分录
)" + 1);
}

TEST(TextOutput, Colours) {
  ComputedReport report;
  report.title = "表";
  CTzGridControl::AddCol(report.grid, "摘要", 100, ColumnKind::text);
  CTzGridControl::AddCol(report.grid, "额", 100, ColumnKind::amount);
  addRow(report.grid, {"红", -1.0});
  const auto green = addRow(report.grid, {"绿", -2.0});
  report.grid.SetBackground(green, lightGreen);
  addRow(report.grid, {"无"});
  report.grid.notices = {Notice{"起始月份在终止月份之后。", Notice::Weight::warning}};
  EXPECT_EQ(asText(report, {.colour = true}),
            "     表\n\x1b[1;7m※ 起始月份在终止月份之后。\x1b[0m\n\n  摘要     额\n"
            "\x1b[2m  ────  ─────\x1b[0m\n"
            "  红    \x1b[31m-1.00\x1b[39m\n"
            "\x1b[30;48;5;194m  绿    \x1b[31m-2.00\x1b[30m\x1b[0m\n"
            "  无\n");
}

TEST(TextOutput, StopsWhenTheSinkTakesNoMore) {
  ComputedReport report = ledgerReport();
  report.grid.SetRows(300'000);
  int pieces = 0;
  EXPECT_FALSE(writeText(report, {}, [&pieces](std::string_view) { return ++pieces < 3; }));
  EXPECT_EQ(pieces, 3);
}

TEST(TextOutput, DisplayWidth) {
  EXPECT_EQ(displayWidth("abc"), 3);
  EXPECT_EQ(displayWidth("辅助核算"), 8);
  EXPECT_EQ(displayWidth("全角：（）"), 10);
  EXPECT_EQ(displayWidth("e\u0301"), 1);
  EXPECT_EQ(displayWidth("\n\x1b"), 2);
  EXPECT_EQ(displayWidth("\xe4\xb8"), 2);  // cut in the middle: two broken bytes
}

}  // namespace
}  // namespace tz::test
