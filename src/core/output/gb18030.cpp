#include "core/output/gb18030.h"

#include <algorithm>
#include <array>

#include "core/grid/utf8.h"
#include "core/platform/character_codes.h"

namespace tz {
namespace {

struct Sign {
  char32_t privatePoint;  // what the code means in the editions of 2000 and 2005
  std::string_view code;
  char32_t publicPoint;  // what it means since
};

// In the order of the private code points.
constexpr std::array movedSigns = std::to_array<Sign>({
    {0xE78D, "\xA6\xD9", 0xFE10},  {0xE78E, "\xA6\xDA", 0xFE12},  {0xE78F, "\xA6\xDB", 0xFE11},
    {0xE790, "\xA6\xDC", 0xFE13},  {0xE791, "\xA6\xDD", 0xFE14},  {0xE792, "\xA6\xDE", 0xFE15},
    {0xE793, "\xA6\xDF", 0xFE16},  {0xE794, "\xA6\xEC", 0xFE17},  {0xE795, "\xA6\xED", 0xFE18},
    {0xE796, "\xA6\xF3", 0xFE19},  {0xE816, "\xFE\x51", 0x20087}, {0xE817, "\xFE\x52", 0x20089},
    {0xE818, "\xFE\x53", 0x200CC}, {0xE81E, "\xFE\x59", 0x9FB4},  {0xE826, "\xFE\x61", 0x9FB5},
    {0xE82B, "\xFE\x66", 0x9FB6},  {0xE82C, "\xFE\x67", 0x9FB7},  {0xE831, "\xFE\x6C", 0x215D7},
    {0xE832, "\xFE\x6D", 0x9FB8},  {0xE83B, "\xFE\x76", 0x2298F}, {0xE843, "\xFE\x7E", 0x9FB9},
    {0xE854, "\xFE\x90", 0x9FBA},  {0xE855, "\xFE\x91", 0x241FE}, {0xE864, "\xFE\xA0", 0x9FBB},
});

// Beyond the first plane every character has a code of four bytes by its number, which all editions read alike.
std::string fourBytes(char32_t character) {
  std::uint32_t rest = static_cast<std::uint32_t>(character) - 0x10000;
  std::string code(4, '\0');
  code[3] = static_cast<char>(0x30 + rest % 10);
  code[2] = static_cast<char>(0x81 + (rest /= 10) % 126);
  code[1] = static_cast<char>(0x30 + (rest /= 126) % 10);
  code[0] = static_cast<char>(0x90 + rest / 10);
  return code;
}

const Sign* signOf(char32_t character) {
  const auto* const found = std::ranges::find_if(
      movedSigns, [&](const Sign& sign) { return sign.privatePoint == character || sign.publicPoint == character; });
  return found == movedSigns.end() ? nullptr : found;
}

// The first bytes of these characters in UTF-8, so that the others are passed over quickly.
bool mayBeSign(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte == 0xE9 || byte == 0xEE || byte == 0xEF || byte == 0xF0;
}

}  // namespace

std::string Gb18030Converter::Convert(std::string_view text) {
  std::string result;
  std::size_t done = 0;  // up to here all is converted
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t start = place;
    if (!mayBeSign(text[place])) {
      ++place;
      continue;
    }
    const char32_t character = nextCharacter(text, place);
    const Sign* sign = signOf(character);
    if (sign == nullptr) continue;
    result += platform::toGb18030(text.substr(done, start - done));
    done = place;
    const bool plain = character > 0xFFFF;
    result += plain ? fourBytes(character) : std::string(sign->code);
    if (!plain) ambiguous_.insert(character);
  }
  return result + platform::toGb18030(text.substr(done));
}

}  // namespace tz
