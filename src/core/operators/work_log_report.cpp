// The log as a table, for the terminal, for files and for the window.
#include <fmt/format.h>

#include "core/grid/column_adder.h"
#include "core/grid/figures.h"
#include "core/operators/work_log.h"

namespace tz {
namespace {

enum LogColumn {
  logWhenColumn,
  logByColumn,
  logWorkColumn,
  logVoucherColumn,
  logDateColumn,
  logDigestColumn,
  logAccountColumn,
  logDebitColumn,
  logCreditColumn,
  logMarkColumn,
  logBatchColumn
};

void addLogColumns(CTzGrid& grid) {
  CTzGridControl::AddCol(grid, "时间", 165, ColumnKind::text);
  CTzGridControl::AddCol(grid, "操作员", 80, ColumnKind::text);
  CTzGridControl::AddCol(grid, "操作", 130, ColumnKind::text);
  CTzGridControl::AddCol(grid, "凭证号", 60, ColumnKind::text);
  CTzGridControl::AddCol(grid, "日期", 70, ColumnKind::date);
  CTzGridControl::AddCol(grid, "摘要", 150, ColumnKind::text);
  CTzGridControl::AddCol(grid, "科目", 140, ColumnKind::text);
  CTzGridControl::AddCol(grid, "借方", 100, ColumnKind::debitAmount);
  CTzGridControl::AddCol(grid, "贷方", 100, ColumnKind::creditAmount);
  CTzGridControl::AddCol(grid, "标记", 70, ColumnKind::text);
  CTzGridControl::AddCol(grid, "批次", 70, ColumnKind::text);
}

std::string_view markSign(int mark) { return mark == 1 ? "√" : mark == 2 ? "○" : "未清"; }

std::string marksOf(const LogEntry& entry) {
  return entry.isPlan() ? std::string() : fmt::format("{}→{}", markSign(entry.before), markSign(entry.after));
}

// What is no longer there is known by its number alone.
std::string voucherOf(const LogEntry& entry) {
  if (entry.isPlan()) return "计划";
  if (!entry.there) return fmt::format("编号 {}", entry.line->voucher);
  if (entry.period == 0) return "期初";
  std::string text;
  appendVoucher(text, entry.word, entry.number);
  return text;
}

std::string summaryOf(const LogEntry& entry) {
  if (!entry.there) return entry.isPlan() ? "计划已经删除" : "分录已不在帐套中";
  return entry.isPlan() ? fmt::format("{} 月的计划", entry.period) : entry.summary;
}

void addLogRow(ComputedReport& report, const LogEntry& entry) {
  auto& grid = report.grid;
  const auto row = grid.GetRows();
  grid.SetRows(row + 1);
  grid.SetText(row, logWhenColumn, entry.shown);
  grid.SetText(row, logByColumn, entry.by);
  grid.SetText(row, logWorkColumn, entry.work);
  grid.SetText(row, logVoucherColumn, voucherOf(entry));
  grid.SetText(row, logDigestColumn, summaryOf(entry));
  grid.SetText(row, logMarkColumn, marksOf(entry));
  grid.SetText(row, logBatchColumn, entry.batch);
  const auto subject = report.subjects.keep({});
  if (!entry.there) return report.subjects.set(row, subject, 0);
  grid.SetText(row, logAccountColumn, fmt::format("{} {}", entry.account, entry.accountName));
  if (entry.isPlan()) return report.subjects.set(row, subject, 0);
  grid.SetDate(row, logDateColumn, entry.date);
  grid.SetNumber(row, entry.isDebit ? logDebitColumn : logCreditColumn, entry.amount);
  report.subjects.set(row, subject, 0, *entry.line);
}

// One for each act, whose rows fold below it.
void addHeading(ComputedReport& report, const LogEntry& entry, std::size_t rows) {
  auto& grid = report.grid;
  const auto row = grid.GetRows();
  grid.SetRows(row + 1);
  grid.SetRowKind(row, RowKind::heading);
  grid.SetText(row, logWhenColumn, entry.shown);
  grid.SetText(row, logByColumn, entry.by);
  grid.SetText(row, logWorkColumn, entry.work);
  grid.SetText(row, logDigestColumn, fmt::format("{} 笔", rows));
  report.subjects.set(row, report.subjects.keep({}), 0);
}

std::string rangeText(const LogAsk& asked) {
  if (!asked.from && !asked.to) return {};
  return fmt::format("日期: {} 至 {}", asked.from ? isoText(*asked.from) : "最早",
                     asked.to ? isoText(*asked.to) : "最近");
}

void addNotices(ComputedReport& report, const WorkLog& log) {
  if (!log.kept) {
    report.grid.notices.push_back(
        {"这个帐套没有操作日志（没有 MarkLog 表）：在桌面打开一次，以后的操作就会记下", Notice::Weight::incomplete});
  }
  const auto shown = static_cast<std::int64_t>(log.entries.size());
  if (log.found <= shown) return;
  const auto count = [](std::int64_t number) { return figureText(static_cast<double>(number), ColumnKind::count); };
  report.grid.notices.push_back(
      {fmt::format("日志有 {} 条，只列出最近 {} 条", count(log.found), count(shown)), Notice::Weight::incomplete});
}

}  // namespace

ComputedReport logReport(const LogAsk& asked, const WorkLog& log) {
  ComputedReport report;
  report.title = "操作日志";
  report.subtitle = asked.by.empty() ? "操作员：全部" : fmt::format("操作员：{}", asked.by);
  report.period = rangeText(asked);
  report.subject = asked.by;
  report.fileName = "操作日志";
  addLogColumns(report.grid);
  const auto& entries = log.entries;
  for (std::size_t first = 0; first < entries.size();) {
    std::size_t end = first + 1;
    while (end < entries.size() && together(entries[end], entries[first])) ++end;
    addHeading(report, entries[first], end - first);
    for (; first < end; ++first) addLogRow(report, entries[first]);
  }
  addNotices(report, log);
  return report;
}

}  // namespace tz
