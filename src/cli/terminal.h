// What the command line asks of the operating system besides its output.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tz::cli {

// The folder that this program was started from.
[[nodiscard]] std::filesystem::path programFolder();
// Becomes another program; throws std::runtime_error when that cannot be started.
[[noreturn]] void replaceProcess(const std::string& program, const std::vector<std::string>& arguments);
// Asks on the terminal without showing what is typed; nothing when there is no terminal or no answer. Whatever ends or
// stops the process meanwhile finds the terminal as it was before.
[[nodiscard]] std::optional<std::string> promptPassword(const std::string& prompt);

}  // namespace tz::cli
