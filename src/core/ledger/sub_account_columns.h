// The columns of a multi-column ledger: one per sub-account of the chosen parent account, in which each line's amount
// stands again and which the totals sum. A line is shown by the prefix of its account's code, but summed only into the
// column of exactly its account; what has no column is summed behind the last one and shown nowhere.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "core/grid/tz_grid.h"
#include "core/ledger/ledger_line.h"
#include "core/reports/conditions.h"

namespace tz {

// The net movements of a column, debit minus credit, or their absolute values.
struct ColumnSum {
  SideFigures figures;
  double unitPrice = 0;  // amount ÷ quantity; as the division gives it where the quantity is 0
  double exchangeRate = 0;
};

struct LedgerColumn {
  Id account = 0;
  int column = 0;  // in the grid
  std::string code, name;
  ColumnSum month;
  ColumnSum year;  // since the start period
};

class SubAccountColumns {
 public:
  // `flag` is the auxiliary flag that a sub-account must carry.
  SubAccountColumns(const CQnCwDB& db, const Conditions& conditions, char flag);

  void addTo(CTzGrid& grid);
  void writeLine(CTzGrid& grid, std::int64_t row, const LedgerLine& line);
  void add(const LedgerLine& line);
  // The sums of the month, which start anew; then those of the year, which go on.
  void writeMonth(CTzGrid& grid, std::int64_t row);
  void writeYear(CTzGrid& grid, std::int64_t row);

  // The last one is the sentinel: it stands at column 0 and takes what has no column.
  [[nodiscard]] const std::vector<LedgerColumn>& columns() const { return columns_; }

 private:
  [[nodiscard]] std::size_t shownIn(Id account);
  [[nodiscard]] std::size_t summedIn(Id account) const;
  [[nodiscard]] bool matches(const LedgerColumn& column, Id account) const;
  void formPrices(ColumnSum& sum) const;
  void writeSum(CTzGrid& grid, std::int64_t row, const LedgerColumn& column, double sum) const;

  const Conditions& conditions_;
  std::vector<LedgerColumn> columns_;
  std::unordered_map<Id, std::size_t> shownIn_;  // found before
  std::unordered_map<Id, std::size_t> ownColumn_;
};

}  // namespace tz
