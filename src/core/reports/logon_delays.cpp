#include "core/reports/logon_delays.h"

#include <algorithm>

namespace tz {

LogonDelays::Milliseconds LogonDelays::Failed(const std::string& name) {
  constexpr int freely = 2;   // mistakes of others that cost nobody time
  constexpr int longest = 5;  // doublings
  const int own = ++failures_[name];
  const int counted = std::max(own, ++all_ - freely);
  const Milliseconds wait = first_ * (1 << std::min(counted - 1, longest));
  until_ = now_() + wait;
  return wait;
}

LogonDelays::Milliseconds LogonDelays::Left() const {
  return std::max(std::chrono::ceil<Milliseconds>(until_ - now_()), Milliseconds(0));
}

void LogonDelays::Succeeded(const std::string& name) {
  failures_.erase(name);
  all_ = 0;
}

LogonDelays& logonDelays() {
  static LogonDelays delays;
  return delays;
}

}  // namespace tz
