// A voucher as a table, for paper.
#include <fmt/format.h>

#include "core/grid/column_adder.h"
#include "core/voucher/capital_amount.h"
#include "core/voucher/voucher.h"

namespace tz {
namespace {

enum PaperColumn { paperDigest, paperAccount, paperDetail, paperDebit, paperCredit };

void addPaperColumns(CTzGrid& grid) {
  CTzGridControl::AddCol(grid, "摘要", 160, ColumnKind::text);
  CTzGridControl::AddCol(grid, "科目", 200, ColumnKind::text);
  CTzGridControl::AddCol(grid, "辅助核算", 160, ColumnKind::text);
  CTzGridControl::AddCol(grid, "借方金额", 100, ColumnKind::debitAmount);
  CTzGridControl::AddCol(grid, "贷方金额", 100, ColumnKind::creditAmount);
}

std::string detailsText(const VoucherLine& line) {
  std::string text;
  for (const auto& details : {membersOf(line), figuresOf(line), remarksOf(line)}) {
    for (const auto& [caption, value] : details) {
      if (!text.empty()) text += "　";
      text.append(caption).append("：").append(value);
    }
  }
  return text;
}

std::int64_t addPaperRow(CTzGrid& grid, RowKind kind) {
  const auto row = grid.GetRows();
  grid.SetRows(row + 1);
  grid.SetRowKind(row, kind);
  return row;
}

void addVoucherLine(CTzGrid& grid, const VoucherLine& line) {
  const auto row = addPaperRow(grid, RowKind::line);
  grid.SetText(row, paperDigest, line.entry.sDigest);
  grid.SetText(row, paperAccount, line.accountText());
  grid.SetText(row, paperDetail, detailsText(line));
  if (line.debit() != 0) grid.SetNumber(row, paperDebit, line.debit());
  if (line.credit() != 0) grid.SetNumber(row, paperCredit, line.credit());
}

void addVoucherTotal(CTzGrid& grid, const Voucher& voucher) {
  const auto row = addPaperRow(grid, RowKind::total);
  grid.SetText(row, paperDigest, "合计");
  grid.SetText(row, paperAccount, capitalAmount(voucher.debit));
  if (!voucher.balanced()) grid.SetText(row, paperDetail, "借贷不平");
  grid.SetNumber(row, paperDebit, voucher.debit);
  grid.SetNumber(row, paperCredit, voucher.credit);
}

}  // namespace

ComputedReport voucherReport(const Voucher& voucher) {
  const auto& head = voucher.head;
  ComputedReport report;
  report.title = "记帐凭证";
  report.company = voucher.company;
  report.printedPeriod = fmt::format("{} 年 {} 月 {} 日", head.dtBill.year, head.dtBill.month, head.dtBill.day);
  report.subtitle = fmt::format("会计期间：{} 月　{}", head.byPeroid, bookName(voucher.book));
  report.unit = fmt::format("凭证号：{}　附单据 {} 张", voucher.number(), head.nAttach);
  report.subject = voucher.number();
  report.fileName = fmt::format("记帐凭证 {}.{:02} {}", head.dtBill.year, head.byPeroid, voucher.number());
  addPaperColumns(report.grid);
  for (const auto& line : voucher.lines) addVoucherLine(report.grid, line);
  addVoucherTotal(report.grid, voucher);
  report.grid.notices.push_back(
      {fmt::format("制单：{}　　　　审核：{}　　　　记帐：{}", head.sMaker, head.sChecker, head.sPoster)});
  return report;
}

}  // namespace tz
