// "No" on the command line.
#pragma once

#include "cli/cli.h"
#include "core/reports/messages.h"
#include "core/reports/operator.h"

namespace tz::cli {

// Prints the message as a dialog shows it; where that points at a list, the list in the next line. Status 1, or 3 where
// the ledger could not be asked.
[[nodiscard]] Status refuse(const Refusal& refusal);
// Prints which right an operator lacks.
[[nodiscard]] Status refuseRight(const Operator& who, int right, std::string_view rightName);

}  // namespace tz::cli
