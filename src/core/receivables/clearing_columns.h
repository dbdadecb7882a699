// The columns of two-clearing: which figures each amount format has and where they stand.
#pragma once

#include "core/grid/tz_grid.h"
#include "core/reports/conditions.h"

namespace tz {

struct ClearingColumns {
  static constexpr int none = -1;
  static constexpr int date = 0, voucher = 1;

  int group = none;
  int summary = none, business = none;
  int debitQuantity = none, debitForeign = none, debitAmount = none;
  int creditQuantity = none, creditForeign = none, creditAmount = none;
  int mark = none;
};

// Adds the columns to a grid without any.
ClearingColumns addClearingColumns(CTzGrid& grid, AmountFormat format, ClearingGrouping grouping);
// Where they stand in a grid that has them.
[[nodiscard]] ClearingColumns clearingColumnsOf(const CTzGrid& grid);

// "部门", "项目", "业务员"; empty for dates.
[[nodiscard]] std::string_view groupCaption(ClearingGrouping grouping);

}  // namespace tz
