// Logging on from the command line: the name by --operator, the password from TZ_PASSWORD or a prompt. No password ever
// comes from an argument.
#pragma once

#include <optional>
#include <string>

#include "core/data/qncw_db.h"
#include "core/reports/operator.h"

namespace tz::cli {

// Keeps the passwords that TZ_PASSWORD and TZ_NEW_PASSWORD hold and takes the variables away, so that no program
// started later learns them.
void takeGivenPasswords();
// Puts that of the logon back, for the program that this one becomes.
void giveBackPassword();

// The operator, or nothing after a complaint when he cannot be logged on.
[[nodiscard]] std::optional<Operator> logOnFromTerminal(const CQnCwDB& db, const std::string& name);

// A new password for an operator: from TZ_NEW_PASSWORD, or typed twice at a prompt. Nothing after a complaint.
[[nodiscard]] std::optional<std::string> newPassword(const std::string& operatorName);

}  // namespace tz::cli
