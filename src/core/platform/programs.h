// This program and the one it hands over to.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tz::platform {

// The folder that this program was started from.
[[nodiscard]] std::filesystem::path programFolder();
// Becomes another program; throws std::runtime_error when that cannot be started.
[[noreturn]] void replaceProcess(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace tz::platform
