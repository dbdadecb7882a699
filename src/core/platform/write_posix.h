// Writing to file descriptors, for the sources of this folder.
#pragma once

#include <string>
#include <string_view>

namespace tz::platform {

// Throws OutputError: what could not be written, and why.
[[noreturn]] void failToWrite(const std::string& target, int error);
// Returns 0 or the error that ended the writing.
[[nodiscard]] int writeAll(int handle, std::string_view text);

}  // namespace tz::platform
