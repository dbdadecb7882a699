// Small reports for the tests of the outputs.
#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <variant>

#include "core/grid/column_adder.h"
#include "core/output/report_output.h"

namespace tz::test {

// Nothing, a text, a figure or a date.
using TestCell = std::variant<std::monostate, const char*, double, Date>;
inline constexpr std::monostate none;

inline std::int64_t addRow(CTzGrid& grid, std::initializer_list<TestCell> cells, RowKind kind = RowKind::line) {
  const std::int64_t row = grid.GetRows();
  grid.SetRows(row + 1);
  grid.SetRowKind(row, kind);
  int column = 0;
  for (const TestCell& cell : cells) {
    if (const auto* text = std::get_if<const char*>(&cell)) grid.SetText(row, column, *text);
    if (const auto* figure = std::get_if<double>(&cell)) grid.SetNumber(row, column, *figure);
    if (const auto* date = std::get_if<Date>(&cell)) grid.SetDate(row, column, *date);
    ++column;
  }
  return row;
}

// A three-column detail ledger of two months: opening, lines, month totals, an unposted line.
inline ComputedReport ledgerReport() {
  ComputedReport report;
  report.report = 10190;
  report.window = 518;
  report.title = "三栏式明细帐";
  report.subtitle = "科目：1133 其他应收款\n部门：销售部     个人：张三";
  report.period = "月份: 2006.01 - 2006.02";
  report.format = AmountFormat::amount;
  report.highlightMeaning = "未记帐凭证";
  CTzGrid& grid = report.grid;
  CTzGridControl::AddCol(grid, "日期", 70, ColumnKind::date);
  CTzGridControl::AddCol(grid, "凭证号", 60, ColumnKind::text);
  CTzGridControl::AddCol(grid, "摘要", 120, ColumnKind::text);
  CTzGridControl::AddCol(grid, "借方", 100, ColumnKind::debitAmount);
  CTzGridControl::AddCol(grid, "贷方", 100, ColumnKind::creditAmount);
  CTzGridControl::AddCol(grid, "方向", 40, ColumnKind::text);
  CTzGridControl::AddCol(grid, "余额", 100, ColumnKind::amount);
  addRow(grid, {none, none, "个人期初", none, none, "借", 250.0}, RowKind::opening);
  addRow(grid, {Date{2006, 1, 5}, "记-0001", "预借差旅费", 1000.0, none, "借", 1250.0});
  addRow(grid, {none, none, "本月合计", 1000.0, none, "借", 1250.0}, RowKind::monthTotal);
  addRow(grid, {none, none, "本年累计", 1000.0, none, "借", 1250.0}, RowKind::yearTotal);
  addRow(grid, {Date{2006, 2, 3}, "记-0012", "冲销多借", -30.5, none, "借", 1219.5});
  const std::int64_t unposted = addRow(grid, {Date{2006, 2, 10}, "记-0020", "还款", none, 1219.5, "平", none});
  grid.SetBackground(unposted, lightGreen);
  grid.SetRowData(unposted, 1);
  addRow(grid, {none, none, "本月合计", -30.5, 1219.5, "平", none}, RowKind::monthTotal);
  addRow(grid, {none, none, "本年累计", 969.5, 1219.5, "平", none}, RowKind::yearTotal);
  return report;
}

inline Sink into(std::string& text) {
  return [&text](std::string_view piece) {
    text += piece;
    return true;
  };
}

inline std::string asText(const ComputedReport& report, const TextOptions& options = {}) {
  std::string text;
  EXPECT_TRUE(writeText(report, options, into(text)));
  return text;
}

}  // namespace tz::test
