// The rows of a detail ledger: how opening, lines, totals and the rows around a block are written into the grid, each
// with what it is about.
#pragma once

#include <unordered_map>

#include "core/ledger/amount_layout.h"
#include "core/ledger/sub_account_columns.h"
#include "core/output/report_output.h"

namespace tz {

class DetailRows {
 public:
  // Adds the columns; the sub-account columns follow where the ledger has them (may be null).
  DetailRows(ComputedReport& computed, const AmountLayout& layout, SubAccountColumns* columns);

  // What the rows that follow are about; lines besides that about their own account.
  void about(const Subject& subject, int level);

  // An opening of less than a hundredth of a thousandth has no row.
  [[nodiscard]] static bool hasOpeningRow(const LedgerBalance& balance);
  void writeOpening(std::string_view caption, const LedgerBalance& balance);
  void writeLine(const LedgerLine& line, const LedgerBalance& balance, Book book);
  // "本月合计", "本年累计", subtotals and "合计".
  std::int64_t writeTotal(const LedgerLine& total, const LedgerBalance& balance, RowKind kind);
  // A name and nothing else.
  void writeHeading(std::string_view name);

 private:
  std::int64_t appendRow(RowKind kind);
  // The same, about what was said last.
  std::int64_t appendNamed(RowKind kind);
  [[nodiscard]] RowSubjects::Place subjectOf(Id account);
  void fillRow(std::int64_t row, const LedgerLine& line, const LedgerBalance& balance);
  [[nodiscard]] std::string_view runningDirection(double amount) const;

  CTzGrid& grid_;
  RowSubjects& subjects_;
  const AmountLayout& layout_;
  SubAccountColumns* columns_;
  RowSubjects::Place subject_ = 0;
  int level_ = RowSubjects::wholeReport;
  std::unordered_map<Id, RowSubjects::Place> ofAccount_;  // the same subject with a line's account
};

}  // namespace tz
