// Where the rows of detail ledgers lead: a voucher line to its voucher. What the others answer is worded by each area
// in its own way.
#pragma once

#include "core/reports/report_definition.h"

namespace tz {

struct VoucherWords {
  Message nothingShown{"没有记录,无法联查凭证"};
  Message noRow;  // no row is the current one
  Message opening{"期初数无法联查凭证"};
  Message noVoucher{"无法联查凭证"};  // headings and totals
};

inline constexpr Message chooseVoucherRecord{"请选择凭证记录!", "岚川财务软件"};
inline constexpr VoucherWords personVoucherWords{.noRow = chooseVoucherRecord, .noVoucher = chooseVoucherRecord};
inline constexpr VoucherWords unitVoucherWords{.noRow = {"请选择一条凭证记录!"}};
// Departments and projects.
inline constexpr VoucherWords usualVoucherWords{.noRow = {"请先选中一条凭证记录!"}};

[[nodiscard]] DrillAnswer drillToVoucher(const VoucherWords& words, const ComputedReport& shown, std::int64_t row);

// The same as records name it.
template <const VoucherWords& words>
[[nodiscard]] DrillAnswer toVoucher(const Conditions& /*conditions*/, const ComputedReport& shown, std::int64_t row) {
  return drillToVoucher(words, shown, row);
}

// What the detail ledgers of an area have unless they say otherwise.
[[nodiscard]] constexpr DetailOf toVoucherOf(Area area) {
  if (area == Area::person) return toVoucher<personVoucherWords>;
  return area == Area::unit ? toVoucher<unitVoucherWords> : toVoucher<usualVoucherWords>;
}

}  // namespace tz
