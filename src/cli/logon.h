// Logging on from the command line: the name by --operator, the password from TZ_PASSWORD or a prompt.
#pragma once

#include <optional>
#include <string>

#include "data/qncw_db.h"
#include "reports/operator.h"

namespace tz::cli {

// The operator, or nothing after a complaint when he cannot be logged on.
[[nodiscard]] std::optional<Operator> logOnFromTerminal(const CQnCwDB& db, const std::string& name);

}  // namespace tz::cli
