// Texts on a terminal: how many columns they take, and what is written so that no text breaks a table or commands the
// terminal. Line breaks and tabs become blanks; other control characters, marks that turn the direction of writing,
// tags and broken bytes become U+FFFD. Whatever may hold a ledger's or a user's words goes through here on its way to a
// terminal.
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
[[nodiscard]] std::string shownLine(std::string_view text);
// The same for texts whose line breaks are their own.
[[nodiscard]] std::string shownText(std::string_view text);

}  // namespace tz
