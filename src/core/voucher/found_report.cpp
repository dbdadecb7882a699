// The found lines as a table, for the terminal and for the window.
#include <fmt/format.h>

#include "core/grid/column_adder.h"
#include "core/grid/figures.h"
#include "core/reports/report_definition.h"
#include "core/voucher/line_search.h"

namespace tz {
namespace {

enum FoundColumn {
  dateColumn,
  voucherColumn,
  digestColumn,
  accountColumn,
  memberColumn,
  debitColumn,
  creditColumn,
  businessColumn,
  stateColumn,
  byColumn
};

void addFoundColumns(CTzGrid& grid) {
  CTzGridControl::AddCol(grid, "日期", 70, ColumnKind::date);
  CTzGridControl::AddCol(grid, "凭证号", 60, ColumnKind::text);
  CTzGridControl::AddCol(grid, "摘要", 160, ColumnKind::text);
  CTzGridControl::AddCol(grid, "科目", 140, ColumnKind::text);
  CTzGridControl::AddCol(grid, "辅助核算", 120, ColumnKind::text);
  CTzGridControl::AddCol(grid, "借方", 100, ColumnKind::debitAmount);
  CTzGridControl::AddCol(grid, "贷方", 100, ColumnKind::creditAmount);
  CTzGridControl::AddCol(grid, "业务号", 80, ColumnKind::text);
  CTzGridControl::AddCol(grid, "状态", 60, ColumnKind::text);
  CTzGridControl::AddCol(grid, "找到于", 80, ColumnKind::text);
}

void addPart(std::string& text, std::string_view between, std::string_view part) {
  if (part.empty()) return;
  if (!text.empty()) text += between;
  text += part;
}

std::string membersOf(const FoundLine::Names& names) {
  std::string text;
  for (const auto& name : {names.dept, names.person, names.unit, names.project}) addPart(text, " ", name);
  return text;
}

// The entered opening items stand in period 0.
std::string_view stateOf(const FoundLine& line) {
  if (line.period == 0) return "期初";
  return line.id.book == Book::posted ? "已记帐" : "未记帐";
}

void addFoundRow(ComputedReport& report, const FoundLine& line) {
  auto& grid = report.grid;
  const auto row = grid.GetRows();
  grid.SetRows(row + 1);
  grid.SetDate(row, dateColumn, line.date);
  std::string voucher;
  appendVoucher(voucher, line.word, line.number);
  grid.SetText(row, voucherColumn, voucher);
  grid.SetText(row, digestColumn, line.summary);
  std::string account = line.names.account;
  addPart(account, " ", line.names.accountName);
  grid.SetText(row, accountColumn, account);
  grid.SetText(row, memberColumn, membersOf(line.names));
  if (line.isDebit) {
    grid.SetNumber(row, debitColumn, line.debit);
  } else {
    grid.SetNumber(row, creditColumn, line.credit);
  }
  grid.SetText(row, businessColumn, line.business);
  grid.SetText(row, stateColumn, stateOf(line));
  grid.SetText(row, byColumn, foundByText(line.by));
  report.subjects.set(row, report.subjects.keep(line.about), RowSubjects::wholeReport, line.id);
  if (line.id.book == Book::posted) return;
  grid.SetBackground(row, lightGreen);
  grid.SetRowData(row, 1);
  report.highlightMeaning = unpostedColours.meaning;
}

}  // namespace

std::string foundByText(const FoundBy& by) {
  std::string text;
  if (by.amount) addPart(text, "、", "金额");
  if (by.voucher) addPart(text, "、", "凭证号");
  if (by.summary) addPart(text, "、", "摘要");
  if (by.business) addPart(text, "、", "业务号");
  return text;
}

ComputedReport foundReport(const SearchText& text, const FoundLines& found) {
  ComputedReport report;
  report.title = "查找分录";
  report.subtitle = fmt::format("查找：{}", text.text);
  report.subject = text.text;
  report.fileName = "查找分录";
  addFoundColumns(report.grid);
  for (const auto& line : found.lines) addFoundRow(report, line);
  const auto shown = static_cast<std::int64_t>(found.lines.size());
  if (found.stopped) {
    report.grid.notices.push_back({"查找已停止，只列出停止以前找到的分录", Notice::Weight::incomplete});
  }
  if (found.found > shown) {
    const auto count = [](std::int64_t number) { return figureText(static_cast<double>(number), ColumnKind::count); };
    report.grid.notices.push_back(
        {fmt::format("找到 {} 条分录，只列出前 {} 条", count(found.found), count(shown)), Notice::Weight::incomplete});
  }
  return report;
}

}  // namespace tz
