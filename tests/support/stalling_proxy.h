// A server between a program and the test server that can stop in the middle: it passes bytes on until it is told to
// stall, and then keeps its connections open and says nothing more.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "support/test_ledger.h"

namespace tz::test {

class StallingProxy {
 public:
  StallingProxy();
  StallingProxy(const StallingProxy&) = delete;
  StallingProxy& operator=(const StallingProxy&) = delete;
  ~StallingProxy();

  // The same database by way of this proxy.
  [[nodiscard]] std::string addressOf(const std::string& address) const;
  // Stalls once the server has sent that many bytes more.
  void stallAfter(long bytes) { left_ = bytes; }

 private:
  void run();

  TempFolder folder_;
  int listener_ = -1;
  std::atomic<long> left_;
  std::atomic<bool> ending_ = false;
  std::thread thread_;
};

}  // namespace tz::test
