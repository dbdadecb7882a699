// Reading a table whose contents are not to be trusted: every cell is looked at for what its column may hold, and what
// is wrong is reported once by row.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_set>
#include <utility>

#include "data/ledger_check.h"
#include "data/record_io.h"

namespace tz::check {

class Report {
 public:
  explicit Report(const std::function<void(const Violation&)>& found) : found_(found) {}
  void add(std::string_view table, std::string record, std::string problem) {
    found_({std::string(table), std::move(record), std::move(problem)});
  }

 private:
  const std::function<void(const Violation&)>& found_;
};

inline std::string byId(Id id) { return "lId=" + std::to_string(id); }

// Beyond this a figure has no whole millionths in 64 bits.
inline constexpr double largestFigure = 9e12;

// Rounded to whole millionths, so that 0.1 + 0.2 = 0.3.
inline std::int64_t millionths(double figure) {
  return std::abs(figure) <= largestFigure ? std::llround(figure * 1e6) : 0;
}
// Sums may wrap around without harm: they are only compared.
inline void addTo(std::int64_t& sum, std::int64_t value) {
  sum = static_cast<std::int64_t>(static_cast<std::uint64_t>(sum) + static_cast<std::uint64_t>(value));
}

// Tells values that were there before.
class Seen {
 public:
  [[nodiscard]] bool twice(Id value) { return !ids_.insert(value).second; }
  [[nodiscard]] bool twice(const std::string& value) { return !texts_.insert(value).second; }

 private:
  std::unordered_set<Id> ids_;
  std::unordered_set<std::string> texts_;
};

// One cell into its field; answers what is wrong with it, nothing when it is right.
std::string readCell(const Cursor& cursor, int column, std::string_view name, int& field);
std::string readCell(const Cursor& cursor, int column, std::string_view name, Id& field);
std::string readCell(const Cursor& cursor, int column, std::string_view name, double& field);
std::string readCell(const Cursor& cursor, int column, std::string_view name, std::string& field);
std::string readCell(const Cursor& cursor, int column, std::string_view name, Date& field);

// The columns of a table in the form of a SELECT that also tells, last, the place from 1 of a cell that is empty or of
// another kind. Reports columns that are missing; nothing then.
Sql guardedSelect(Connection& connection, Report& report, std::string_view table,
                  const std::vector<std::string>& columns);

// each(record) for every row, its cells checked before.
template <class Record, class Each>
void readTable(Connection& connection, Report& report, Each&& each) {
  const auto columns = columnNames<Record>();
  const auto select = guardedSelect(connection, report, Record::table, columns);
  if (select.empty()) return;
  const auto cursor = connection.query(select);
  Record record;
  while (cursor->next()) {
    int column = 0;
    const auto wrong = [&](const std::string& problem) {
      report.add(Record::table, columns.front() + "=" + cursor->anyText(0), problem);
    };
    Record::columns(record, [&](const char* name, auto& field) {
      if (const auto problem = readCell(*cursor, column++, name, field); !problem.empty()) wrong(problem);
    });
    if (const auto place = cursor->integer(column); place != 0) {
      wrong(columns[static_cast<std::size_t>(place - 1)] + " 为空或类型不符");
    }
    each(std::as_const(record));
  }
}

}  // namespace tz::check
