#include "bench/grid_work.h"

#include <fmt/format.h>

#include "core/ledger/amount_layout.h"
#include "core/output/grid_to_file.h"

namespace tz::bench {

ComputedReport makeReport(std::int64_t rows) {
  ComputedReport report;
  report.title = "三栏式明细帐";
  auto& grid = report.grid;
  const auto subject = report.subjects.keep({.account = 1, .dept = 1, .person = 1});
  addLedgerColumns(grid, amountLayout(AmountFormat::amount), threeColumnCaptions);
  grid.SetRows(rows);
  for (std::int64_t row = 0; row < rows; ++row) {
    const auto figure = static_cast<double>(row);
    const auto month = static_cast<std::uint8_t>(row % 12 + 1);
    grid.SetDate(row, 0, {2025, month, static_cast<std::uint8_t>(row % 28 + 1)});
    grid.SetText(row, 1, fmt::format("记-{:04}", row % 10000));
    grid.SetText(row, 2, "预借差旅费");
    grid.SetNumber(row, row % 2 == 0 ? 3 : 4, row % 2 == 0 ? figure / 4 : figure / 8);
    grid.SetText(row, 5, "借");
    grid.SetNumber(row, 6, figure / 2);
    report.subjects.set(row, subject, RowSubjects::wholeReport, {Book::posted, row, row / 4});
  }
  return report;
}

ComputedReport makeBlocks(std::int64_t rows) {
  auto report = makeReport(rows);
  const auto subject = report.subjects.keep({.account = 1, .unit = 1});
  const auto name = [&](std::int64_t row, RowKind kind) {
    report.grid.SetRowKind(row, kind);
    report.subjects.set(row, subject, 0);
  };
  constexpr std::int64_t block = 100;
  constexpr std::int64_t month = 10;
  for (std::int64_t row = 0; row < rows; ++row) {
    if (row % block == 0) name(row, RowKind::heading);
    if (row % month == month - 3) name(row, RowKind::monthTotal);
    if (row % month == month - 2) name(row, RowKind::yearTotal);
    if (row % block == block - 1) name(row, RowKind::subtotal);
  }
  return report;
}

void writeWorkbook(std::int64_t rows, const std::string& file) {
  const auto report = makeReport(rows);
  (void)CGridToFile(report).CreateFile(file, FileForm::xlsx);
}

}  // namespace tz::bench
