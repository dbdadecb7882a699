// The paper that reports are printed on, and how. Lengths are points (1/72 inch).
#pragma once

#include <cstdint>

namespace tz {

inline constexpr double pointsPerInch = 72;

struct Paper {
  double width = 0;
  double height = 0;
  double left = 0;  // margins; the left one has room for binding
  double right = 0;
  double top = 0;
  double bottom = 0;

  [[nodiscard]] constexpr double innerWidth() const { return width - left - right; }
  [[nodiscard]] constexpr double innerHeight() const { return height - top - bottom; }
};
inline constexpr Paper a4Portrait{.width = 595.28, .height = 841.89, .left = 50, .right = 34, .top = 40, .bottom = 40};
// Bound at the same edge of the sheet, which is above.
inline constexpr Paper a4Landscape{.width = 841.89, .height = 595.28, .left = 40, .right = 40, .top = 50, .bottom = 34};

enum class Orientation : std::uint8_t { byWidth, portrait, landscape };

struct PageOptions {
  Orientation orientation = Orientation::byWidth;
  // "过次页" and "承前页" where a ledger's block goes over to the next page.
  bool carriedLines = true;
  // Width of a digit, or half a Chinese character, whichever is more, in sizes of the font that is painted with.
  double columnEm = 0.5;
};

}  // namespace tz
