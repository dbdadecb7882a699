#include <ctime>
#include <fmt/format.h>

#include "core/platform/local_time.h"

namespace tz::platform {

std::string localTimeText(std::chrono::sys_seconds moment) {
  const std::time_t time = std::chrono::system_clock::to_time_t(moment);
  std::tm shown{};
  if (::localtime_r(&time, &shown) == nullptr) return {};
  constexpr int firstYear = 1900;
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", shown.tm_year + firstYear, shown.tm_mon + 1, shown.tm_mday,
                     shown.tm_hour, shown.tm_min);
}

}  // namespace tz::platform
