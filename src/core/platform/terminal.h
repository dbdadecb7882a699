// Standard output and the terminal with its pager. Failures throw OutputError with a reason for people.
#pragma once

#include <string>

#include "core/platform/sink.h"

namespace tz::platform {

[[nodiscard]] bool isTerminal();
// Writes to standard output. A reader that goes away early is no failure.
void writeToStandardOutput(const Producer& produce);
// Writes to a pager. False when it could not be started or failed; one that is left early is no failure.
[[nodiscard]] bool writeToPager(const std::string& command, const Producer& produce);
// The command of the pager to use: the user's own, else `less`; empty for none.
[[nodiscard]] std::string pagerCommand();
// Shows an output to a person: through the pager on a terminal, else straight to standard output.
void showOutput(const Producer& produce);

}  // namespace tz::platform
