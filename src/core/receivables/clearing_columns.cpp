#include "core/receivables/clearing_columns.h"

#include <vector>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

constexpr int narrowWidth = 80, wideWidth = 90, businessWidth = 60;

}  // namespace

std::string_view groupCaption(ClearingGrouping grouping) {
  switch (grouping) {
    case ClearingGrouping::date:
      break;
    case ClearingGrouping::dept:
      return "部门";
    case ClearingGrouping::project:
      return "项目";
    case ClearingGrouping::clerk:
      return "业务员";
  }
  return {};
}

ClearingColumns addClearingColumns(CTzGrid& grid, AmountFormat format, ClearingGrouping grouping) {
  const auto& shown = traitsOf(format);
  const auto side = [&](std::string_view caption, ColumnKind quantity, ColumnKind foreign, ColumnKind amount) {
    std::vector<ColumnKind> kinds;
    if (shown.quantities) kinds.push_back(quantity);
    if (shown.foreign) kinds.push_back(foreign);
    kinds.push_back(amount);
    CTzGridControl::AddGroup(grid, caption, wideWidth, kinds);
  };
  CTzGridControl::AddCol(grid, "日期", narrowWidth, ColumnKind::isoDate);
  CTzGridControl::AddCol(grid, "凭证号数", narrowWidth, ColumnKind::text);
  if (grouping != ClearingGrouping::date) {
    CTzGridControl::AddCol(grid, groupCaption(grouping), wideWidth, ColumnKind::text);
  }
  CTzGridControl::AddCol(grid, "摘要", wideWidth, ColumnKind::text);
  CTzGridControl::AddCol(grid, "业务号", businessWidth, ColumnKind::text);
  side("借方", ColumnKind::debitQuantity, ColumnKind::debitForeign, ColumnKind::debitAmount);
  side("贷方", ColumnKind::creditQuantity, ColumnKind::creditForeign, ColumnKind::creditAmount);
  CTzGridControl::AddCol(grid, "两清", wideWidth, ColumnKind::text);
  return clearingColumnsOf(grid);
}

ClearingColumns clearingColumnsOf(const CTzGrid& grid) {
  constexpr int summaryWithoutGroup = 2;
  const auto at = [&](ColumnKind kind) {
    for (int column = 0; column < grid.GetCols(); ++column) {
      if (grid.Columns()[static_cast<std::size_t>(column)].kind == kind) return column;
    }
    return ClearingColumns::none;
  };
  const bool grouped = grid.Columns().at(summaryWithoutGroup).caption != "摘要";
  ClearingColumns columns;
  if (grouped) columns.group = summaryWithoutGroup;
  columns.summary = grouped ? summaryWithoutGroup + 1 : summaryWithoutGroup;
  columns.business = columns.summary + 1;
  columns.debitQuantity = at(ColumnKind::debitQuantity);
  columns.debitForeign = at(ColumnKind::debitForeign);
  columns.debitAmount = at(ColumnKind::debitAmount);
  columns.creditQuantity = at(ColumnKind::creditQuantity);
  columns.creditForeign = at(ColumnKind::creditForeign);
  columns.creditAmount = at(ColumnKind::creditAmount);
  columns.mark = grid.GetCols() - 1;
  return columns;
}

}  // namespace tz
