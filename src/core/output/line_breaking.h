// Texts on several lines of a given width, counted in half-width letters. Texts are made harmless as on a terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tz {

// More lines than these no cell takes: what is left ends in "…", so that one endless text does not fill a page.
inline constexpr std::size_t mostLines = 12;

// At least one line. Words and figures stay whole where a line has room for them; no line begins with a closing mark.
[[nodiscard]] std::vector<std::string> brokenLines(std::string_view text, int letters);

}  // namespace tz
