// Reading UTF-8 that may come from anywhere: old imports, hostile names. Broken bytes read as U+FFFD, one at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tz {

inline constexpr char32_t replacementCharacter = 0xFFFD;

// The character at `place`, which must be inside the text; moves `place` behind it.
[[nodiscard]] char32_t nextCharacter(std::string_view text, std::size_t& place);
void appendCharacter(std::string& out, char32_t character);
// Appends a text, its broken bytes replaced.
void appendUtf8(std::string& out, std::string_view text);

}  // namespace tz
