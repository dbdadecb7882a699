#include "core/output/report_pages.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "core/output/grid_reports.h"
#include "core/output/line_breaking.h"

namespace tz::test {
namespace {

// A ledger of blocks: for each member heading, opening, lines with a month's totals every few of them, subtotal.
ComputedReport longLedger(int members, int lines, int linesAMonth) {
  ComputedReport report = ledgerReport();
  CTzGrid& grid = report.grid;
  const auto columns = grid.Columns();
  grid.Clear();
  for (const auto& column : columns) grid.AddColumn(column);
  report.carried = CarriedColumns{.caption = 2, .firstBalance = 5, .lastBalance = 6};
  for (int member = 0; member < members; ++member) {
    addRow(grid, {none, none, "张三"}, RowKind::heading);
    addRow(grid, {none, none, "个人期初", none, none, "借", 5.0}, RowKind::opening);
    for (int line = 1; line <= lines; ++line) {
      addRow(grid, {Date{2006, 1, 5}, "记-0001", "借款", 1.0, none, "借", 5.0 + line});
      if (line % linesAMonth != 0) continue;
      addRow(grid, {none, none, "本月合计", 1.0 * linesAMonth, none, "借", 5.0 + line}, RowKind::monthTotal);
      addRow(grid, {none, none, "本年累计", 1.0 * line, none, "借", 5.0 + line}, RowKind::yearTotal);
    }
    addRow(grid, {none, none, "个人小计", 1.0 * lines, none, "借", 5.0 + lines}, RowKind::subtotal);
  }
  return report;
}

std::string textOf(const ReportPages& pages, const Page& page, const PageLine& line, int column) {
  std::string text;
  for (const auto& piece :
       pages.TextOf(page, line, pages.Columns().strips.front().at(static_cast<std::size_t>(column))))
    text += piece;
  return text;
}

TEST(ReportPages, EveryRowStandsOnOnePageAboveItsFoot) {
  const auto report = longLedger(40, 23, 6);
  const ReportPages pages(report, {});
  ASSERT_GT(pages.Pages().size(), 20U);
  std::int64_t next = 0;
  for (const auto& page : pages.Pages()) {
    EXPECT_EQ(page.first, next);
    EXPECT_GT(page.end, page.first);
    next = page.end;
    const auto lines = pages.LinesOf(page);
    EXPECT_LE(lines.back().top + lines.back().height, pages.Columns().paper.innerHeight() + 1e-6);
  }
  EXPECT_EQ(next, report.grid.GetRows());
}

TEST(ReportPages, HeadingsKeepTheirBlockAndYearTotalsTheirMonth) {
  // Blocks of many lengths, so that the foot of a page meets every place of them.
  for (int lines = 1; lines < 40; ++lines) {
    const auto report = longLedger(30, lines, 3);
    const ReportPages pages(report, {});
    for (const auto& page : pages.Pages()) {
      if (page.end == report.grid.GetRows()) continue;
      const auto last = report.grid.RowKindAt(page.end - 1);
      EXPECT_NE(last, RowKind::heading) << lines;
      EXPECT_NE(last, RowKind::opening) << lines;
      EXPECT_FALSE(last == RowKind::monthTotal && report.grid.RowKindAt(page.end) == RowKind::yearTotal) << lines;
    }
  }
}

TEST(ReportPages, CarriesTheMonthSoFarAndTheBalance) {
  const auto report = longLedger(1, 100, 1000);
  const ReportPages pages(report, {});
  ASSERT_GE(pages.Pages().size(), 2U);
  const auto& first = pages.Pages()[0];
  const auto& second = pages.Pages()[1];
  const auto foot = pages.LinesOf(first).back();
  const auto head = pages.LinesOf(second).front();
  ASSERT_EQ(foot.kind, PageLine::Kind::carriedForward);
  ASSERT_EQ(head.kind, PageLine::Kind::broughtForward);
  const auto lines = static_cast<double>(first.end - 2);  // without heading and opening
  EXPECT_EQ(textOf(pages, first, foot, 2), "过次页");
  EXPECT_EQ(textOf(pages, second, head, 2), "承前页");
  EXPECT_EQ(textOf(pages, first, foot, 3), fmt::format("{:.2f}", lines));
  EXPECT_EQ(textOf(pages, second, head, 3), fmt::format("{:.2f}", lines));
  EXPECT_EQ(textOf(pages, first, foot, 4), "");
  EXPECT_EQ(textOf(pages, first, foot, 5), "借");
  EXPECT_EQ(textOf(pages, second, head, 6), fmt::format("{:.2f}", 5 + lines));

  const ReportPages without(report, {.carriedLines = false});
  EXPECT_EQ(without.LinesOf(without.Pages()[1]).front().kind, PageLine::Kind::row);
}

TEST(ReportPages, NothingIsCarriedOutOfAFinishedBlockOrIntoANewMonth) {
  const auto report = longLedger(60, 5, 5);
  const ReportPages pages(report, {});
  for (const auto& page : pages.Pages()) {
    if (!page.carried) continue;
    EXPECT_NE(report.grid.RowKindAt(page.end - 1), RowKind::subtotal);
    EXPECT_NE(report.grid.RowKindAt(page.end), RowKind::heading);
    const bool monthOver = report.grid.RowKindAt(page.end - 1) == RowKind::yearTotal;
    EXPECT_EQ(textOf(pages, page, pages.LinesOf(page).back(), 3).empty(), monthOver);
  }
}

// So many columns of figures as an account has sub-accounts.
ComputedReport broadReport(int figures) {
  ComputedReport report;
  report.title = "多栏式明细帐";
  CTzGridControl::AddCol(report.grid, "日期", 80, ColumnKind::date);
  CTzGridControl::AddCol(report.grid, "摘  要", 120, ColumnKind::text);
  for (int i = 0; i < figures; ++i)
    CTzGridControl::AddCol(report.grid, fmt::format("栏目{}", i), 100, ColumnKind::amount);
  const auto row = addRow(report.grid, {Date{2006, 1, 5}, "购买办公用品"});
  for (int i = 0; i < figures; ++i) report.grid.SetNumber(row, 2 + i, 1234567.89);
  return report;
}

TEST(ReportPages, NoColumnIsLostHoweverManyThereAre) {
  const ReportPages narrow(broadReport(3), {});
  EXPECT_LT(narrow.Columns().paper.width, narrow.Columns().paper.height);
  const ReportPages broad(broadReport(9), {});
  EXPECT_GT(broad.Columns().paper.width, broad.Columns().paper.height);
  EXPECT_EQ(broad.Columns().strips.size(), 1U);

  const ReportPages vast(broadReport(40), {});
  const auto& strips = vast.Columns().strips;
  ASSERT_GT(strips.size(), 1U);
  std::vector<int> shown;
  for (const auto& strip : strips) {
    EXPECT_EQ(strip[0].column, 0) << "each sheet repeats the key columns";
    EXPECT_EQ(strip[1].column, 1);
    for (auto column = strip.begin() + 2; column != strip.end(); ++column) shown.push_back(column->column);
    EXPECT_NEAR(strip.back().left + strip.back().width, vast.Columns().paper.innerWidth(), 0.01);
  }
  ASSERT_EQ(shown.size(), 40U);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(shown[static_cast<std::size_t>(i)], 2 + i);
  EXPECT_EQ(vast.Sheets(), strips.size());
}

TEST(ReportPages, HeadSaysWhatTheReportSays) {
  auto report = ledgerReport();
  report.subtitle = "\n科目：1133 其他应收款";
  report.unit = "台\n美元";
  report.printedPeriod = "月份: 2006.1--2006.2";
  report.printedConditions = {"项目大类: 产品", "包含未记帐凭证"};
  report.grid.notices = {Notice{"起始月份在终止月份之后。", Notice::Weight::warning}, Notice{"本单只列已两清分录"}};
  report.company = "华源机械制造有限公司";
  const auto said = [&] {
    const ReportPages pages(report, {});
    std::string text;
    for (const auto& piece : pages.Head().pieces) text += piece.text + "|";
    return text;
  };
  const std::string below =
      "月份: 2006.1--2006.2|科目：1133 其他应收款|台|美元|项目大类: 产品　　包含未记帐凭证|※ 起始月份在终止月份之后。|";
  EXPECT_EQ(said(), "三栏式明细帐|核算单位：华源机械制造有限公司|" + below);
  EXPECT_EQ(ReportPages(report, {}).Remarks(), std::vector<std::string>{"本单只列已两清分录"});
  // A name that does not fit beside the period stands above it, all of it.
  for (int i = 0; i < 20; ++i) report.company += "机械制造";
  EXPECT_NE(said().find("机械制造|" + below), std::string::npos) << said();
}

TEST(ReportPages, AnEmptyReportSaysSoOnAPageOfItsOwn) {
  const auto report = longLedger(0, 0, 1);
  const ReportPages pages(report, {});
  EXPECT_EQ(pages.Sheets(), 1U);
  EXPECT_EQ(pages.Remarks().front(), "没有记录");
}

TEST(ReportPages, FootSaysWhoWhenAndWhatColoursMean) {
  const auto report = ledgerReport();
  const auto foot = ReportPages(report, {}, {"王会计", "2006-03-01 09:30"}).FootOf(1);
  EXPECT_EQ(foot.left, "制表人：王会计");
  EXPECT_EQ(foot.centre, "第 1 页　共 1 页");
  EXPECT_EQ(foot.right, "打印日期：2006-03-01 09:30");
  EXPECT_EQ(foot.colour, "未记帐凭证");
  auto plain = longLedger(1, 3, 3);
  plain.highlightMeaning = report.highlightMeaning;
  const auto bare = ReportPages(plain, {}).FootOf(1);
  EXPECT_EQ(bare.left + bare.right + bare.colour, "") << "no operator, and no such row on this page";
}

TEST(LineBreaking, KeepsWordsAndClosingMarks) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(brokenLines("预借差旅费", 10), Lines{"预借差旅费"});
  EXPECT_EQ(brokenLines("预借差旅费，三月", 10), (Lines{"预借差旅", "费，三月"}));
  EXPECT_EQ(brokenLines("合同ABC-123付款", 8), (Lines{"合同", "ABC-123", "付款"}));
  EXPECT_EQ(brokenLines("ABCDEFGHIJ", 4), (Lines{"ABCD", "EFGH", "IJ"}));
  EXPECT_EQ(brokenLines("甲\n乙\t丙\x1b[31m", 40), Lines{"甲 乙 丙\xEF\xBF\xBD[31m"});
  const auto endless = brokenLines(std::string(100'000, 'x'), 20);
  EXPECT_EQ(endless.size(), mostLines);
  EXPECT_TRUE(endless.back().ends_with("…"));
}

}  // namespace
}  // namespace tz::test
