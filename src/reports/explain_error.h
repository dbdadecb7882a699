// What went wrong in a database, as the person at the screen should read it: what happened and what to do.
#pragma once

#include <string>

#include "data/connection.h"

namespace tz {

[[nodiscard]] std::string explain(const DbError& error);

}  // namespace tz
