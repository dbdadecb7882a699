// From a line of a voucher onward: the detail ledgers of its account and members, in the voucher's own period.
#pragma once

#include <string>
#include <vector>

#include "core/reports/report_definition.h"
#include "core/voucher/voucher.h"

namespace tz {

struct VoucherLedger {
  DetailTarget target;
  std::string member;  // whose ledger it is
};

// The finest ledger of each dimension that the account keeps and the line names: person, unit, department, project.
// Empty for a line without any.
[[nodiscard]] std::vector<VoucherLedger> ledgersOf(const Voucher& voucher, const VoucherLine& line);

namespace messages {
inline constexpr Message lineWithoutLedger{"该分录的科目没有辅助核算，没有可以联查的明细帐。"};
inline constexpr Message noLineChosen{"请先选择一条分录"};
}  // namespace messages

}  // namespace tz
