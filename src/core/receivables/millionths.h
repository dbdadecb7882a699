// Sums of amounts as whole millionths, so that 0.1 + 0.2 is 0.3. Whole units and the millionths beside them are kept
// apart: however much is added up, nothing overflows.
#pragma once

#include <cmath>
#include <cstdint>

namespace tz {

class MillionthSum {
 public:
  MillionthSum& operator+=(double amount) { return add(amount, 1); }
  MillionthSum& operator-=(double amount) { return add(amount, -1); }
  MillionthSum& operator-=(const MillionthSum& other) {
    units_ -= other.units_;
    parts_ -= other.parts_;
    return *this;
  }

  // -1, 0 or 1.
  [[nodiscard]] int sign() const {
    const std::int64_t whole = units_ + parts_ / million;
    if (whole != 0) return whole > 0 ? 1 : -1;
    return parts_ % million == 0 ? 0 : parts_ % million > 0 ? 1 : -1;
  }
  [[nodiscard]] double value() const {
    const std::int64_t whole = units_ + parts_ / million;
    const std::int64_t rest = parts_ % million;
    // The nearest double, as long as it holds the millionths at all.
    if (whole > -mostExact && whole < mostExact) return static_cast<double>(whole * million + rest) / million;
    return static_cast<double>(whole) + static_cast<double>(rest) / million;
  }

 private:
  static constexpr std::int64_t million = 1'000'000;
  static constexpr std::int64_t mostExact = (std::int64_t{1} << 53) / million;

  MillionthSum& add(double amount, int sign) {
    constexpr double most = 1e15;  // beyond that a double holds no hundredths
    const double whole = std::trunc(std::fmin(std::fmax(amount, -most), most));
    units_ += sign * static_cast<std::int64_t>(whole);
    if (std::abs(amount) < most) parts_ += sign * std::llround((amount - whole) * static_cast<double>(million));
    return *this;
  }

  std::int64_t units_ = 0;
  std::int64_t parts_ = 0;
};

}  // namespace tz
