#include "core/output/formula_guard.h"

#include <algorithm>
#include <array>

#include "core/grid/utf8.h"

namespace tz {
namespace {

constexpr std::array formulaSigns =
    std::to_array<char32_t>({'=', '+', '-', '@', U'＝', U'＋', U'－', U'＠', 0xFE62, 0xFE63, 0xFE66, 0xFE6B, 0x2212});

bool isBlank(char32_t character) {
  const auto within = [character](char32_t first, char32_t last) { return character >= first && character <= last; };
  return character <= ' ' || within(0x7F, 0xA0) || character == 0xAD || character == 0x1680 || character == 0x3000 ||
         within(0x2000, 0x200A) || character == 0x202F || character == 0x205F;
}

// Marks of byte order, direction and joining, which nobody sees.
bool isMark(char32_t character) {
  const auto within = [character](char32_t first, char32_t last) { return character >= first && character <= last; };
  return character == 0x061C || character == 0x115F || character == 0x1160 || character == 0x180E ||
         within(0x200B, 0x200F) || within(0x2028, 0x202E) || within(0x2060, 0x206F) || character == 0x3164 ||
         character == 0xFEFF || within(0xFFF9, 0xFFFB) || within(0xE0000, 0xE007F);
}

}  // namespace

bool looksLikeFormula(std::string_view text) {
  if (text.size() < 2) return false;
  // Some programs part cells at these.
  if (text.front() == '\t' || text.front() == '\r' || text.front() == '\n') return true;
  for (std::size_t place = 0; place < text.size();) {
    const char32_t character = nextCharacter(text, place);
    if (isBlank(character) || isMark(character)) continue;
    return place < text.size() && std::ranges::find(formulaSigns, character) != formulaSigns.end();
  }
  return false;
}

}  // namespace tz
