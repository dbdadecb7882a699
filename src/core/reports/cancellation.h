// How a computation tells that it goes on, and learns that it should stop.
#pragma once

#include <cstdint>

#include "core/reports/session.h"

namespace tz {

// Thrown through a computation that the person stopped; runReport turns it into an outcome.
struct CancelledWork {};

// Called once per step of a long loop; reports and asks only now and then.
class Steps {
 public:
  explicit Steps(Session& session) : session_(session) {}
  void step() {
    constexpr std::int64_t between = 4096;
    if (++done_ % between != 0) return;
    session_.progress(done_, 0);
    if (session_.cancelled()) throw CancelledWork{};
  }

 private:
  Session& session_;
  std::int64_t done_ = 0;
};

}  // namespace tz
