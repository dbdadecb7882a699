#include "core/receivables/clearing_check.h"

#include "core/grid/column_adder.h"
#include "core/receivables/clearing_columns.h"
#include "core/receivables/millionths.h"

namespace tz {

ClearingCheck checkClearing(const ComputedReport& report) {
  const auto& grid = report.grid;
  const auto columns = clearingColumnsOf(grid);
  ClearingCheck check;
  check.foreign = report.format && traitsOf(*report.format).foreign;
  MillionthSum debit, credit;
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (grid.RowKindAt(row) != RowKind::line || grid.TextAt(row, columns.mark).empty()) continue;
    debit += grid.NumberAt(row, check.foreign ? columns.debitForeign : columns.debitAmount);
    credit += grid.NumberAt(row, check.foreign ? columns.creditForeign : columns.creditAmount);
  }
  check.debit = debit.value();
  check.credit = credit.value();
  debit -= credit;
  check.level = debit.sign() == 0;
  return check;
}

Message levelMessage(ClearingKind kind) {
  return {.text = "往来两清检查平衡", .caption = kind == ClearingKind::unit ? "岚川财务软件" : ""};
}

std::string_view checkTitle(ClearingKind kind) {
  return kind == ClearingKind::person ? "个人往来_两清检查" : "单位两清往来检查";
}

void fillCheckGrid(const ClearingCheck& check, CTzGrid& grid) {
  constexpr int captionWidth = 80, figureWidth = 100;
  grid.Clear();
  CTzGridControl::AddCol(grid, "说明", captionWidth, ColumnKind::text);
  CTzGridControl::AddCol(grid, check.foreign ? "借方勾对外币" : "借方勾对金额", figureWidth,
                         check.foreign ? ColumnKind::debitForeign : ColumnKind::debitAmount);
  CTzGridControl::AddCol(grid, check.foreign ? "贷方勾对外币" : "贷方勾对金额", figureWidth,
                         check.foreign ? ColumnKind::creditForeign : ColumnKind::creditAmount);
  grid.SetRows(1);
  grid.SetText(0, 0, check.foreign ? "外币不平" : "金额不平");
  grid.SetNumber(0, 1, check.debit);
  grid.SetNumber(0, 2, check.credit);
}

}  // namespace tz
