// A moment as clocks in this place show it.
#pragma once

#include <chrono>
#include <string>

namespace tz::platform {

// "2006-01-31 09:30"
[[nodiscard]] std::string localTimeText(std::chrono::sys_seconds moment);

}  // namespace tz::platform
