// Makes a new ledger: all of it or nothing.
#pragma once

#include <functional>
#include <string>

#include "core/data/connection.h"

namespace tz {

// Creates the tables at a file path that does not exist or in a server database without ledger tables, lets `fill`
// write the contents, then adds the indexes. On any failure (DbError, or what fill throws) nothing is left behind.
void createLedger(const std::string& address, const std::function<void(Connection&)>& fill);

}  // namespace tz
