// The operating system's failures in the words of this program.
#pragma once

#include <string>

namespace tz::platform {

// What an error number (errno) says to a person who wanted to use a file.
[[nodiscard]] std::string errorText(int error);

}  // namespace tz::platform
