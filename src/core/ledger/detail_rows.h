// The rows of a detail ledger: how opening, lines, totals and the rows around a block are written into the grid.
#pragma once

#include <optional>

#include "core/grid/tz_grid.h"
#include "core/ledger/amount_layout.h"
#include "core/ledger/sub_account_columns.h"

namespace tz {

class DetailRows {
 public:
  // Adds the columns; the sub-account columns follow where the ledger has them (may be null).
  DetailRows(CTzGrid& grid, const AmountLayout& layout, SubAccountColumns* columns);

  // An opening of less than a hundredth of a thousandth has no row.
  [[nodiscard]] static bool hasOpeningRow(const LedgerBalance& balance);
  void writeOpening(std::string_view caption, const LedgerBalance& balance);
  void writeLine(const LedgerLine& line, const LedgerBalance& balance, bool unposted);
  // "本月合计", "本年累计", subtotals and "合计".
  std::int64_t writeTotal(const LedgerLine& total, const LedgerBalance& balance, RowKind kind);
  // A name and nothing else.
  void writeHeading(std::string_view name);

 private:
  std::int64_t appendRow(RowKind kind);
  std::int64_t writeRow(const LedgerLine& line, const LedgerBalance& balance, RowKind kind);
  [[nodiscard]] std::string_view runningDirection(double amount) const;

  CTzGrid& grid_;
  const AmountLayout& layout_;
  SubAccountColumns* columns_;
};

}  // namespace tz
