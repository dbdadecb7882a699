// How long an answer to a wrong password waits. Each failure of one operator doubles it, and so do further failures of
// whomever in this process.
#pragma once

#include <chrono>
#include <map>
#include <string>

namespace tz {

class LogonDelays {
 public:
  explicit LogonDelays(std::chrono::milliseconds first = std::chrono::seconds(1)) : first_(first) {}

  // Counts a failure; how long to wait before the next attempt.
  [[nodiscard]] std::chrono::milliseconds Failed(const std::string& name);
  void Succeeded(const std::string& name);

 private:
  std::chrono::milliseconds first_;
  std::map<std::string, int> failures_;
  int all_ = 0;
};

// Those of this process.
[[nodiscard]] LogonDelays& logonDelays();

}  // namespace tz
