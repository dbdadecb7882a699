// The rows of a balance table: key columns, direction and opening, debit, credit, direction and closing, each amount
// with its quantity and foreign amount as the format asks; behind them the credit limit where it is asked for.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger/balance_figures.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/direction_text.h"

namespace tz {

class BalanceRows {
 public:
  BalanceRows(const BalanceGrouping& grouping, const Conditions& conditions, ComputedReport& computed);

  // A member's row; `subject` is what it is about.
  void writeMember(const GroupKey& key, const Subject& subject, const BalanceFigures& figures);
  // The row of a group, in front of its members' or in place of them.
  void writeGroup(RowKind kind, const GroupKey& key, const Subject& subject, const BalanceFigures& figures);
  // The sum of a group; where its rows are left out it tells which group it is of.
  void writeSubtotal(std::string_view caption, const GroupKey& key, std::size_t level, const Subject& subject,
                     const BalanceFigures& figures);
  // "合计". The directions of sums are those of totals.
  void writeTotal(std::string_view caption, const Subject& subject, const BalanceFigures& figures);

 private:
  struct Places {
    int amount, quantity, foreign;  // -1 where the format shows none
  };
  Places addFigures(std::string_view caption, ColumnKind amount, ColumnKind quantity, ColumnKind foreign);
  // The columns of the levels up to this one; the first column behind them.
  int writeKeys(std::int64_t row, const GroupKey& key, std::size_t level);
  [[nodiscard]] std::string keyText(const KeyColumn& column, const GroupKey& key) const;
  std::int64_t append(RowKind kind, const Subject& subject, int level);
  void write(std::int64_t row, const BalanceFigures& figures, const DirectionRule& ofOpening,
             const DirectionRule& ofClosing);
  void writeFigures(std::int64_t row, const Places& places, const SideFigures& figures);

  const BalanceGrouping& grouping_;
  const Conditions& conditions_;
  CTzGrid& grid_;
  RowSubjects& subjects_;
  const AmountFormatTraits& shown_;
  int openingDirection_ = 0, closingDirection_ = 0, limit_ = -1;
  Places opening_, debit_, credit_, closing_;
};

}  // namespace tz
