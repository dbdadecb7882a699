// The program's log: what failed without a message box.
#pragma once

#include <string_view>

namespace tz {

void logFailure(std::string_view where, std::string_view what);

}  // namespace tz
