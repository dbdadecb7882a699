// What a PostgreSQL error means to the program. Messages carry the server's own words.
#pragma once

#include <string>
#include <string_view>

#include "core/data/connection.h"

namespace tz {

[[nodiscard]] DbError::Kind kindOfSqlState(std::string_view state);
// A failed attempt to connect, from the client's verbose message ("… FATAL:  3D000: database … does not exist").
[[nodiscard]] DbError connectError(std::string_view message, bool passwordMissing);
// The address in the form that the client library reads. Throws when it cannot be read for certain, without repeating
// any of it: a sign in a password that ought to be written as % and its code would otherwise carry a part of the
// password into messages about hosts and databases.
[[nodiscard]] std::string readableAddress(const std::string& address);

}  // namespace tz
