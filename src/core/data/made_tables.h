// Tables that stand exactly as the program makes them are told by the text of their definition, which a database that
// keeps such texts hands out at once; nobody has to look at their columns then.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/dialect.h"

namespace tz {

// The columns of a table or view of the ledger, as its database would declare them; nothing where the text is not, to
// the letter, the one that the program gives the table of that name. The catalogue view is told without its columns.
[[nodiscard]] std::optional<std::vector<StoredColumn>> columnsAsMade(std::string_view text, const Dialect& dialect);

}  // namespace tz
