#include "core/output/sheet_name.h"

#include "core/grid/utf8.h"

namespace tz {
namespace {

constexpr std::size_t longestName = 31;

bool refused(char32_t sign) {
  return sign < 0x20 || std::u32string_view(U"[]:*?/\\\x7F").find(sign) != std::u32string_view::npos;
}

std::size_t unitsOf(char32_t sign) { return sign > 0xFFFF ? 2 : 1; }

}  // namespace

std::string sheetName(std::string_view title, int number) {
  const std::string behind = number > 1 ? " " + std::to_string(number) : "";
  std::string name;
  std::size_t units = behind.size();
  for (std::size_t place = 0; place < title.size();) {
    char32_t sign = nextCharacter(title, place);
    if (refused(sign)) sign = U'_';
    units += unitsOf(sign);
    if (units > longestName) break;
    // An apostrophe may stand inside, but not at an end.
    if (sign == U'\'' && (name.empty() || place == title.size() || units == longestName)) sign = U'_';
    appendCharacter(name, sign);
  }
  return (name.empty() ? "报表" : name) + behind;
}

}  // namespace tz
