// A password asked for on the terminal.
#pragma once

#include <optional>
#include <string>

namespace tz::platform {

// Asks on the terminal without showing what is typed; nothing when there is no terminal or no answer. Whatever ends or
// stops the process meanwhile finds the terminal as it was before.
[[nodiscard]] std::optional<std::string> promptPassword(const std::string& prompt);

}  // namespace tz::platform
