// Tables that stand exactly as the program makes them are told by their definition in its short form (see Dialect);
// nobody has to look at their columns then.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/data/dialect.h"

namespace tz {

// The columns of a table of the ledger as Dialect::columnsQuery() would tell them; nothing where the definition is not,
// to the letter, the one that the program gives a table of that name.
[[nodiscard]] std::optional<std::vector<StoredColumn>> columnsAsMade(std::string_view name, std::string_view definition,
                                                                     const Dialect& dialect);

}  // namespace tz
