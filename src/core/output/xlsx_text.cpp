#include "core/output/xlsx_text.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/grid/utf8.h"

namespace tz {
namespace {

constexpr std::size_t longest = 32'767;
constexpr std::size_t hexDigits = 4;

// What XML cannot hold, and the line feed's companion, which it would turn into one.
bool needsEscape(char32_t character) {
  const bool control = character < 0x20 && character != '\n' && character != '\t';
  return control || character == 0xFFFE || character == 0xFFFF;
}

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

// Whether what stands behind a "_" would make it the beginning of an escape in the file.
bool beginsEscape(std::string_view behind) {
  if (behind.size() < hexDigits + 2 || behind.front() != 'x') return false;
  if (!std::ranges::all_of(behind.substr(1, hexDigits), isHexDigit)) return false;
  std::size_t place = hexDigits + 1;
  const char32_t end = nextCharacter(behind, place);
  return end == '_' || needsEscape(end);  // an escaped character begins with "_" as well
}

}  // namespace

void xlsxTextInto(std::string& out, std::string_view text) {
  constexpr std::size_t escapeLength = hexDigits + 3;
  out.clear();
  std::size_t units = 0;
  for (std::size_t place = 0; place < text.size();) {
    const char32_t character = nextCharacter(text, place);
    const bool escaped = needsEscape(character) || (character == '_' && beginsEscape(text.substr(place)));
    units += escaped ? escapeLength : character > 0xFFFF ? 2 : 1;
    if (units > longest) return;
    if (escaped) {
      out += fmt::format("_x{:04X}_", static_cast<std::uint32_t>(character));
    } else {
      appendCharacter(out, character);
    }
  }
}

}  // namespace tz
