// How long whoever gave a wrong password waits before the next attempt. Each failure of one operator doubles it, and so
// do further failures of whomever in this process.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>

namespace tz {

class LogonDelays {
 public:
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::milliseconds;
  explicit LogonDelays(Milliseconds first = std::chrono::seconds(1),
                       std::function<Clock::time_point()> now = Clock::now)
      : first_(first), now_(std::move(now)) {}

  // Counts a failure; how long to wait before the next attempt.
  [[nodiscard]] Milliseconds Failed(const std::string& name);
  void Succeeded(const std::string& name);
  // What is left of that wait, whoever asks: a window that is closed and opened again does not end it.
  [[nodiscard]] Milliseconds Left() const;

 private:
  Milliseconds first_;
  std::function<Clock::time_point()> now_;
  Clock::time_point until_{};
  std::map<std::string, int> failures_;
  int all_ = 0;
};

// Those of this process.
[[nodiscard]] LogonDelays& logonDelays();

}  // namespace tz
