// Logging on from the command line: the name by --operator, the password from TZ_PASSWORD or a prompt.
#pragma once

#include <optional>
#include <string>

#include "core/data/qncw_db.h"
#include "core/reports/operator.h"

namespace tz::cli {

// Keeps the password that TZ_PASSWORD holds and takes the variable away, so that no program started later learns it.
void takeGivenPassword();
// Puts it back, for the program that this one becomes.
void giveBackPassword();

// The operator, or nothing after a complaint when he cannot be logged on.
[[nodiscard]] std::optional<Operator> logOnFromTerminal(const CQnCwDB& db, const std::string& name);

}  // namespace tz::cli
