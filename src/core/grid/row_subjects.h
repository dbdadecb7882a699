// What each row of a report is about: which account, department, person, unit and item, on which level of its groups it
// stands and, for a line, which voucher line it is. Drilling, finding and marking go by it; no output shows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "core/data/line_query.h"
#include "core/data/records.h"

namespace tz {

// 0 or nothing: the row is about no one of the kind, or about all of them.
struct Subject {
  Id account = 0;
  Id dept = 0;
  Id person = 0;
  Id unit = 0;
  Id item = 0;                       // of itemClass
  std::string itemClass;             // class id
  std::optional<Id> unitClass;       // 0: units without a class
  std::optional<std::string> clerk;  // empty: lines without a clerk

  bool operator==(const Subject&) const = default;
};

// A voucher line by its own id and its voucher's, which belong together.
struct LineId {
  Book book = Book::posted;
  Id line = 0;
  Id voucher = 0;
  bool opening = false;  // of an opening voucher, which is no voucher to open

  bool operator==(const LineId&) const = default;
};

class RowSubjects {
 public:
  using Place = std::uint32_t;
  // The level of rows that stand in no group: those of a report without groups, and its total.
  static constexpr int wholeReport = -1;

  // Takes a subject that rows share; it costs most, so a block keeps it once.
  Place keep(Subject subject);
  [[nodiscard]] const Subject& at(Place place) const { return subjects_.at(place); }
  // Says of a row what it is about. Levels count from the outer one, 0; rows that nobody names are about nothing.
  void set(std::int64_t row, Place subject, int level);
  void set(std::int64_t row, Place subject, int level, const LineId& line);

  [[nodiscard]] const Subject& of(std::int64_t row) const;
  [[nodiscard]] int level(std::int64_t row) const;
  // The voucher line that a row shows; nothing for openings, headings and totals.
  [[nodiscard]] std::optional<LineId> line(std::int64_t row) const;

  // Whether any row shows a voucher line: those of tables are sums.
  [[nodiscard]] bool hasLines() const { return hasLines_; }

  // Rows that were named, up to the last one.
  [[nodiscard]] std::int64_t size() const { return static_cast<std::int64_t>(rows_.size()); }
  // Bytes held for rows and subjects, texts that do not fit into a record left out.
  [[nodiscard]] std::size_t memoryUsed() const {
    return rows_.size() * sizeof(Row) + subjects_.size() * sizeof(Subject);
  }

 private:
  struct Row {
    Id line = 0;
    Id voucher = 0;
    Place subject = 0;
    Book book = Book::posted;
    std::int8_t level = wholeReport;
    bool isLine = false;
    bool opening = false;
  };
  static_assert(sizeof(Row) <= 24);

  [[nodiscard]] Row& rowAt(std::int64_t row);
  [[nodiscard]] const Row* find(std::int64_t row) const;

  // In pieces, so that growing neither copies them nor holds twice the room.
  std::deque<Subject> subjects_ = std::deque<Subject>(1);  // the first one is about nothing
  std::deque<Row> rows_;
  bool hasLines_ = false;
};

}  // namespace tz
