// A small integer generator of our own (SplitMix64): the same numbers on every machine and with every library.
#pragma once

#include <cstdint>

namespace tz::sample {

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15U;
    auto z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }
  // 0 to bound - 1.
  std::int64_t below(std::int64_t bound) {
    return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(bound));
  }
  // From low to high, both included, in whole steps.
  std::int64_t between(std::int64_t low, std::int64_t high, std::int64_t step = 1) {
    return low + below((high - low) / step + 1) * step;
  }

 private:
  std::uint64_t state_;
};

}  // namespace tz::sample
