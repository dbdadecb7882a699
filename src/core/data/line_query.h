// Voucher lines of a member and a period range: the rows that a WHERE text with
// "lTieId IN ( SELECT lTieId FROM RegMain WHERE byPeroid BETWEEN … )" selects, read as a join with the heads in a fixed
// order, which follows the member's index and leaves no sort.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/data/value.h"

namespace tz {

enum class Book : std::uint8_t { posted, unposted };

struct LineQuery {
  Book book = Book::posted;
  Sql filter;  // on the columns of the lines: account condition and dimension keys
  int firstPeriod = 0;
  int lastPeriod = 0;
  std::string order;  // columns of the lines ("s.") as the member asks for them; continued by line and voucher id
};

// The values that a column of these lines takes; the order of the query does not matter.
[[nodiscard]] Sql distinctStatement(const LineQuery& query, std::string_view column);

// These lines as the database comes by them, for whoever puts them in order himself.
[[nodiscard]] Sql unorderedStatement(const LineQuery& query, std::string_view columns);

// `columns` names what to read: "s." columns of the line, "m." columns of its head.
[[nodiscard]] Sql lineStatement(const LineQuery& query, std::string_view columns);

}  // namespace tz
