// What a connection to a ledger file may do, held by the database itself: an authorizer that sees every statement while
// it is prepared, and triggers of the connection's own for what the authorizer cannot see.
#pragma once

#include <sqlite3.h>

#include "core/data/connection.h"

namespace tz {

// For good: settings that opening needs are made before. A keeper's connection stays as it is.
void restrictSqliteHandle(sqlite3* handle, Access access);

}  // namespace tz
