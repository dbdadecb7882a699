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
  // A subtotal or "合计", whose directions are those of totals.
  void writeTotal(std::string_view caption, RowKind kind, const Subject& subject, int level,
                  const BalanceFigures& figures);

 private:
  struct Places {
    int amount, quantity, foreign;  // -1 where the format shows none
  };
  Places addFigures(std::string_view caption, ColumnKind amount, ColumnKind quantity, ColumnKind foreign);
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
