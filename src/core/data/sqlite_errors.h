// What a SQLite error means to the program, and what is wrong with a file that cannot be opened. Messages carry the
// path and SQLite's own words.
#pragma once

#include <string>

#include "core/data/connection.h"

namespace tz {

// From an extended result code and its message.
[[nodiscard]] DbError sqliteError(int code, const std::string& message);
// Throws unless an ordinary file is there.
void requireFile(const std::string& path);
// Why the file could not be opened or made: `error` is what SQLite said, the file's first bytes often tell more.
[[nodiscard]] DbError openingError(const std::string& path, const std::string& head, const DbError& error);
[[nodiscard]] DbError creatingError(const std::string& path, const DbError& error);

}  // namespace tz
