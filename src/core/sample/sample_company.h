// The sample company: 华源机械制造有限公司, a machine-tool builder, in its account year 2025. Always the same bytes: no
// clock, no library randomness. Money is generated in whole cents, so every sum in the ledger is exact.
//
// Vouchers dated up to 25 November are posted, later ones (to the end of December) are not. Profit and loss accounts
// are closed at the year's end only, which lies ahead, so they show running balances. Period 0 holds the open items of
// 2023 and 2024.
//
// With `lines` the same company is grown: one further person and customer per 1 000 lines, one supplier and production
// order per 4 000, and further vouchers of the daily kinds until exactly `lines` posted lines are reached (the last
// voucher may exceed it by two). One salesman (122101 职工借款, 销售部 李明) and one customer (112201 国内货款,
// 江淮重工集团) get a tenth of all lines each; most others some dozens. A hundredth more lines stay unposted.
#pragma once

#include <cstdint>
#include <functional>

#include "core/data/connection.h"

namespace tz {

struct SampleOptions {
  std::int64_t lines = 0;  // posted lines wanted; what the readable company has is the least there is
  // Told after each month of the twelve; what it throws ends the work.
  std::function<void(int done, int of)> progress = {};
};

// Fills a ledger whose tables exist and are empty, the item tables of its project classes included; indexes come
// afterwards. Belongs inside one writing transaction. Throws DbError.
void fillSample(Connection& connection, const SampleOptions& options);

}  // namespace tz
