// The columns of sub-accounts beside a detail ledger, for the naive computation.
#pragma once

#include "core/ledger/naive_figures.h"

namespace tz::test::naive {

class SubAccountColumns {
 public:
  // One column for each account right below the parent that keeps the dimension, in code order.
  SubAccountColumns(const Ledger& ledger, const CodeInfo& parent, char flag, bool absolute, std::size_t firstColumn);

  // Counts a line of an account and shows it in its row, which grows to its full width.
  void line(Id account, const Figures& figures, Row& row);
  void monthTotal(Row& row);
  void yearTotal(Row& row) const;
  void widen(Row& row) const { row.cells.resize(firstColumn_ + columns_.size()); }

 private:
  struct Column {
    CodeInfo account;
    double month = 0, year = 0;
  };

  [[nodiscard]] std::size_t placeOf(Id account) const;
  void total(Row& row, double Column::*sum) const;

  const Ledger& ledger_;
  bool debit_, absolute_;
  std::size_t firstColumn_;
  std::vector<Column> columns_;
};

}  // namespace tz::test::naive
