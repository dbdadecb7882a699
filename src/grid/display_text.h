// Texts on a terminal: how many columns they take, and what is written so that no text breaks a table or commands the
// terminal. Line breaks and tabs become blanks; other control characters, marks that turn the direction of writing and
// broken bytes become U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace tz {

struct ShownText {
  int width = 0;      // columns
  bool clean = true;  // nothing needs to be replaced
};

[[nodiscard]] ShownText measureText(std::string_view text);
void appendShown(std::string& out, std::string_view text);

}  // namespace tz
