// Reading a table whose contents are not to be trusted: every cell is looked at for what its column may hold, and what
// is wrong is reported once by row.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>

#include "core/check/ledger_check.h"
#include "core/data/ledger_tables.h"
#include "core/data/record_io.h"
#include "core/data/schema.h"

namespace tz::check {

class Report {
 public:
  Report(const std::function<void(const Violation&)>& found, const LedgerTables& tables)
      : found_(found), tables_(tables) {}
  void add(std::string_view table, std::string record, std::string problem) {
    found_({std::string(table), std::move(record), std::move(problem)});
  }
  void hint(std::string_view table, std::string record, std::string what) {
    found_({std::string(table), std::move(record), std::move(what), true});
  }
  [[nodiscard]] const LedgerTables& tables() const { return tables_; }

 private:
  const std::function<void(const Violation&)>& found_;
  const LedgerTables& tables_;
};

inline std::string byId(Id id) { return "lId=" + std::to_string(id); }

// Members that bear one name, which a name alone cannot tell apart.
class Namesakes {
 public:
  void add(const std::string& name, Id id) { ids_[name].insert(id); }
  void report(Report& report, std::string_view table) const;

 private:
  std::map<std::string, std::set<Id>> ids_;
};

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

// By how many millionths figures of a size may differ where a double cannot hold them any closer: four steps of it.
inline std::int64_t slack(std::int64_t size) {
  return static_cast<std::int64_t>(4 * DBL_EPSILON * std::abs(static_cast<double>(size)));
}

// As people wrote it: without the digits that a large double only seems to have.
std::string figureText(std::int64_t millionths);

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

// A column that is read: what it should hold and how it is declared.
struct ReadColumn {
  std::string name;
  Dialect::Type wanted;
  Dialect::Fit fit;
};

struct ReadColumns {
  std::vector<ReadColumn> there;
  bool complete = true;
};

// The columns that a table should have and has; reports what is missing and what is of another type.
ReadColumns readColumns(Connection& connection, Report& report, const TableSchema& wanted);
// What is wrong with a cell before it is read: empty, bytes, of another kind.
std::string wrongKind(CellKind kind, const ReadColumn& column);
[[nodiscard]] Sql selectOf(std::string_view table, const std::vector<ReadColumn>& columns);

// each(record) for every row, its cells checked before.
template <class Record, class Each>
void readTable(Connection& connection, Report& report, Each&& each) {
  const ReadColumns read = readColumns(connection, report, tableOf(Record::table));
  if (!read.complete) return;
  const auto& columns = read.there;
  const auto cursor = connection.query(selectOf(Record::table, columns));
  Record record;
  while (cursor->next()) {
    std::size_t place = 0;
    Record::columns(record, [&](const char* name, auto& field) {
      const int number = static_cast<int>(place);
      const auto kind = cursor->kind(number);
      auto problem = wrongKind(kind, columns[place++]);
      const bool readable = problem.empty() && kind != CellKind::other;
      if (readable) {
        problem = readCell(*cursor, number, name, field);
      } else {
        field = {};
      }
      if (problem.empty()) return;
      // The first column is the record's own id.
      const auto id = cursor->kind(0) == CellKind::other ? "?" : cursor->anyText(0);
      report.add(Record::table, columns.front().name + "=" + id, problem);
    });
    each(std::as_const(record));
  }
}

}  // namespace tz::check
