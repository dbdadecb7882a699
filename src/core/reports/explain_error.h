// What went wrong in a database, as the person at the screen should read it: what happened and what to do. The
// database's own words are for whoever looks after it.
#pragma once

#include <string>

#include "core/data/connection.h"

namespace tz {

// For the command line: the database's own words in parentheses behind it.
[[nodiscard]] std::string explain(const DbError& error);
// For windows, which keep those words in a part of their own ("详细").
[[nodiscard]] std::string explainInWindow(const DbError& error);
// Those words, without the passwords that an address in them may hold.
[[nodiscard]] std::string wordsOf(const DbError& error);

}  // namespace tz
