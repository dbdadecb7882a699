// The voucher lines of a member, one after the other: the posted or the unposted ones of a period range in the member's
// order. The reader stands on one line or past the last one; it keeps no line behind it.
#pragma once

#include <memory>

#include "data/connection.h"
#include "data/line_query.h"
#include "ledger/amount_layout.h"
#include "ledger/ledger_line.h"

namespace tz {

class LineReader {
 public:
  // A reader that is past its last line from the start.
  LineReader() = default;
  // Quantities and foreign amounts are read only where the layout shows them.
  LineReader(Connection& connection, const LineQuery& query, const AmountLayout& layout, const AccountAmounts& amounts);

  [[nodiscard]] bool done() const { return done_; }
  [[nodiscard]] const LedgerLine& line() const { return line_; }
  void advance();

 private:
  std::unique_ptr<Cursor> cursor_;
  int quantityColumn_ = -1;
  int foreignColumn_ = -1;
  int rateColumn_ = -1;
  bool priced_ = false;  // the account keeps quantities
  bool done_ = true;
  LedgerLine line_;
};

}  // namespace tz
