// Functions of SQL that turn cells of another type into what a ledger's column holds.
#pragma once

#include <string_view>

struct sqlite3;

namespace tz {

// tz_number(cell): the number, also where it is written as a text; NULL and blanks are 0, anything else fails.
// tz_text(cell): the text; whole numbers without decimals; NULL is ''; bytes that are no text fail.
void addSqliteFunctions(sqlite3* db);

// A whole text that is a finite number, blanks around it aside; an empty one is 0.
[[nodiscard]] bool isNumberText(std::string_view text);

}  // namespace tz
