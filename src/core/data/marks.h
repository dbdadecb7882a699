// Writes two-clearing marks of posted lines, many at once and all or none, with their rows in the mark log.
//
// A mark changes only where it still holds what was read. When it does not on any of the lines, because another
// operator was there in between, nothing is written, and the marks of now are what comes back.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz {

struct MarkChange {
  Id lId = 0, lTieId = 0;
  int read = 0;    // may be another than the three marks, as some programs write them
  int wanted = 0;  // one of the three, or what was read: then only the log tells of the line
};

// What the mark log says of the change beside lines and marks.
struct MarkOrigin {
  std::string who;
  std::string when;                       // UTC, "2006-01-31T08:05:09Z"
  std::optional<std::string> batch = {};  // the batch that the rows belong to; none: a new one of their own
  std::string newBatch = {};              // what the name of a new one begins with, before the number
};

struct LineMark {
  Id lId = 0, lTieId = 0;
  int mark = 0;

  auto operator<=>(const LineMark&) const = default;
};

struct MarksWritten {
  std::string batch;
};
// By voucher and line; a line that is gone is left out.
struct MarksOvertaken {
  std::vector<LineMark> now;
};
using MarkOutcome = std::variant<MarksWritten, MarksOvertaken>;

// The marks of these lines now, by voucher and line; a line that is gone is left out. What was read and is wanted does
// not matter. Inside the caller's transaction.
[[nodiscard]] std::vector<LineMark> readMarks(Connection& connection, std::span<const MarkChange> lines);

// What else must be as it was read, asked inside the transaction when nobody else can change these lines any more.
using StillSo = std::function<bool()>;

// Says which marks change, asked inside the transaction.
using ReadChanges = std::function<std::vector<MarkChange>()>;

// One transaction of its own; each line may be named once. Throws DbError, after which nothing is written.
[[nodiscard]] MarkOutcome writeMarks(Connection& connection, std::span<const MarkChange> changes,
                                     const MarkOrigin& origin, const StillSo& stillSo = {});
[[nodiscard]] MarkOutcome writeMarks(Connection& connection, const ReadChanges& read, const MarkOrigin& origin,
                                     const StillSo& stillSo = {});

}  // namespace tz
