// The statements over balance records and voucher lines that balance tables add up, and the row that a cursor stands
// on. Only columns that the amount format shows are read, figures that it does not show are 0; all are read where rows
// of nothing but zeros are left out, so that these are the same rows in every format.
#pragma once

#include <compare>
#include <string>
#include <utility>
#include <vector>

#include "core/ledger/balance_figures.h"
#include "core/ledger/selection.h"

namespace tz {

// In which orders the records and lines are read, columns as "s.": along an index, whatever the rows are. Amounts are
// added up in this order, so that they come out alike on every database.
struct ReadingOrder {
  std::string_view records;
  std::string_view lines;
};
inline constexpr ReadingOrder alongPersons{"s.lDeptId, s.lPersonId, s.byPeroid", "s.lDeptId, s.lPersonId, s.dtDate"};
inline constexpr ReadingOrder alongUnits{"s.lEnterId, s.byPeroid", "s.lEnterId, s.dtDate, s.lTieId"};
inline constexpr ReadingOrder alongDepts{"s.lDeptId, s.lPersonId, s.byPeroid", "s.lDeptId, s.dtDate"};
inline constexpr ReadingOrder alongItems{"s.sItemId, s.lItemId, s.byPeroid", "s.sItemId, s.lItemId, s.dtDate"};

struct PeriodRange {
  int first;
  int last;
};

// Columns for some figures of a statement, behind `first` others.
class FigureColumns {
 public:
  FigureColumns(const Conditions& conditions, int first);
  // ", s.mBegin, s.dBegin": one for each figure that is shown; read() will fill `into`.
  [[nodiscard]] std::string add(std::string_view amount, std::string_view quantity, std::string_view foreign,
                                SideFigures& into);
  void read(const Cursor& row);
  [[nodiscard]] int next() const { return next_; }

 private:
  bool quantities_;
  bool foreign_;
  int next_;
  std::vector<std::pair<int, double*>> places_;
};

// The account and dimensions of a balance record, whose periods follow on each other.
struct RecordChain {
  Id account = 0, dept = 0, person = 0, unit = 0, item = 0;
  std::string itemClass;

  auto operator<=>(const RecordChain&) const = default;
};

class RecordRows {
 public:
  // With `chains` each record's account and dimensions are read as well.
  RecordRows(const Selection& selection, const GroupLevels& levels, const Conditions& conditions, bool chains);
  RecordRows(const RecordRows&) = delete;
  RecordRows& operator=(const RecordRows&) = delete;
  ~RecordRows() = default;

  [[nodiscard]] Sql statement(PeriodRange periods, std::string_view order) const;
  // Takes the row: its record, debit-positive, and the key of its group; whether that is another one than before.
  bool read(const Cursor& row);
  [[nodiscard]] RecordChain chain(const Cursor& row) const;

  BalanceFigures record;
  int period = 0;
  GroupKey key;

 private:
  [[nodiscard]] std::string names();

  const Selection& selection_;
  const Conditions& conditions_;
  bool chains_;
  FigureColumns figures_;
  std::string names_;
  GroupColumns groups_;
  Id account_ = 0;
  Id knownAccount_ = 0;
  double sign_ = 1;
};

class LineRows {
 public:
  LineRows(const Selection& selection, const GroupLevels& levels, const Conditions& conditions);
  LineRows(const LineRows&) = delete;
  LineRows& operator=(const LineRows&) = delete;
  ~LineRows() = default;

  [[nodiscard]] Sql statement(Book book, PeriodRange periods, std::string_view order) const;
  bool read(const Cursor& row);

  SideFigures figures;
  bool debit = false;
  int period = 0;
  GroupKey key;

 private:
  const Selection& selection_;
  const Conditions& conditions_;
  FigureColumns columns_;
  std::string names_;
  GroupColumns groups_;
};

}  // namespace tz
