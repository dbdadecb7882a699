#include "core/receivables/clearing_check.h"

#include "core/grid/column_adder.h"
#include "core/receivables/clearing_columns.h"

namespace tz {

namespace {

// Where the compared figures of a line stand.
struct ComparedColumns {
  int debit, credit;

  ComparedColumns(const CTzGrid& grid, bool foreign) {
    const auto columns = clearingColumnsOf(grid);
    debit = foreign ? columns.debitForeign : columns.debitAmount;
    credit = foreign ? columns.creditForeign : columns.creditAmount;
  }
};

}  // namespace

MillionthSum ClearingSums::Sides::balance() const {
  MillionthSum difference = debit;
  difference -= credit;
  return difference;
}

ClearingSums sumClearing(const ComputedReport& report) {
  const auto& grid = report.grid;
  ClearingSums sums{.foreign = report.format && traitsOf(*report.format).foreign, .marked = {}, .open = {}};
  const ComparedColumns columns(grid, sums.foreign);
  const int mark = clearingColumnsOf(grid).mark;
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (grid.RowKindAt(row) != RowKind::line) continue;
    auto& sides = grid.TextAt(row, mark).empty() ? sums.open : sums.marked;
    sides.debit += grid.NumberAt(row, columns.debit);
    sides.credit += grid.NumberAt(row, columns.credit);
  }
  return sums;
}

void moveLine(ClearingSums& sums, const CTzGrid& grid, std::int64_t row, bool marked) {
  const ComparedColumns columns(grid, sums.foreign);
  auto& to = marked ? sums.marked : sums.open;
  auto& from = marked ? sums.open : sums.marked;
  to.debit += grid.NumberAt(row, columns.debit);
  to.credit += grid.NumberAt(row, columns.credit);
  from.debit -= grid.NumberAt(row, columns.debit);
  from.credit -= grid.NumberAt(row, columns.credit);
}

ClearingCheck checkClearing(const ComputedReport& report) {
  const auto sums = sumClearing(report);
  return {.level = sums.marked.balance().sign() == 0,
          .foreign = sums.foreign,
          .debit = sums.marked.debit.value(),
          .credit = sums.marked.credit.value()};
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
