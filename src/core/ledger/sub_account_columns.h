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

struct LedgerColumn {
  Id account = 0;
  int column = 0;  // in the grid
  std::string code, name;
  // Net movements, debit minus credit, or their absolute values.
  double month = 0;
  double year = 0;  // since the start period
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
  void writeYear(CTzGrid& grid, std::int64_t row) const;

 private:
  [[nodiscard]] std::size_t shownIn(Id account);
  [[nodiscard]] std::size_t summedIn(Id account) const;
  [[nodiscard]] bool matches(const LedgerColumn& column, Id account) const;
  void writeSum(CTzGrid& grid, std::int64_t row, const LedgerColumn& column, double sum) const;

  const Conditions& conditions_;
  std::vector<LedgerColumn> columns_;            // the last one, at column 0, takes what has no column
  std::unordered_map<Id, std::size_t> shownIn_;  // found before
  std::unordered_map<Id, std::size_t> ownColumn_;
};

}  // namespace tz
