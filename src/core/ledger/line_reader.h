// The voucher lines of a selection, one after the other: the posted or the unposted ones of a period range, group by
// group. The reader stands on one line or past the last one of its block; it keeps no line behind it.
#pragma once

#include <memory>
#include <optional>

#include "core/data/connection.h"
#include "core/data/line_query.h"
#include "core/ledger/amount_layout.h"
#include "core/ledger/group_levels.h"
#include "core/ledger/ledger_line.h"

namespace tz {

class LineReader {
 public:
  // A reader that is past its last line from the start.
  LineReader() = default;
  // Quantities and foreign amounts are read only where the layout shows them; the first block is open at once.
  LineReader(Connection& connection, const LineQuery& query, const GroupLevels& levels, const AmountLayout& layout);

  // Whether the lines of the open block are used up.
  [[nodiscard]] bool done() const { return done_; }
  // Whether there are no more lines at all.
  [[nodiscard]] bool ended() const { return cursor_ == nullptr; }
  [[nodiscard]] const LedgerLine& line() const { return line_; }
  void advance();

  // The block of the line that the reader stands on; not when all have ended.
  [[nodiscard]] const GroupKey& key() const { return key_; }
  // Opens the block of this key: its lines if it is the one that the reader stands on, else none.
  void openBlock(const GroupKey& key);
  // What the figures of the lines that follow are counted in; a line with neither has no price and no rate.
  void countIn(const AccountAmounts& amounts) {
    priced_ = !amounts.unit.empty();
    rated_ = !amounts.currency.empty();
    setPriceAndRate();
  }

 private:
  void readRow();
  void setPriceAndRate();

  std::unique_ptr<Cursor> cursor_;
  std::optional<GroupColumns> groups_;
  GroupKey key_;
  int quantityColumn_ = -1;
  int foreignColumn_ = -1;
  int rateColumn_ = -1;
  bool priced_ = false;  // the account keeps quantities
  bool rated_ = false;   // the account keeps foreign amounts
  bool done_ = true;
  LedgerLine line_;
};

}  // namespace tz
