// The naive computation of each family of reports.
#pragma once

#include "core/ledger/naive_ledger.h"
#include "core/ledger/naive_reports.h"

namespace tz::test::naive {

[[nodiscard]] Answer detailLedger(const Ledger& ledger, const Report& report, const Question& question);
[[nodiscard]] Answer balanceTable(const Ledger& ledger, const Report& report, const Question& question);
[[nodiscard]] Answer periodTable(const Ledger& ledger, const Report& report, const Question& question);

}  // namespace tz::test::naive
