#include "core/grid/utf8.h"

#include <array>

namespace tz {
namespace {

// The smallest character of each length: what is written longer than needed is broken.
constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};

std::size_t lengthByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

struct Decoded {
  char32_t character = replacementCharacter;
  std::size_t length = 0;  // 0: broken
};

Decoded decode(std::string_view text, std::size_t place) {
  const auto lead = static_cast<unsigned char>(text[place]);
  const std::size_t length = lengthByLead(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || text.size() - place < length) return {};
  auto character = static_cast<char32_t>(lead & (0xFF >> (length + 1)));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[place + i]);
    if ((byte & 0xC0) != 0x80) return {};
    character = character << 6 | (byte & 0x3F);
  }
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (surrogate || character > 0x10FFFF || character < smallest[length]) return {};
  return {character, length};
}

}  // namespace

char32_t nextCharacter(std::string_view text, std::size_t& place) {
  const Decoded next = decode(text, place);
  place += next.length == 0 ? 1 : next.length;
  return next.character;
}

void appendCharacter(std::string& out, char32_t character) {
  const auto add = [&out](char32_t byte) { out += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0 | character >> 6);
    add(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    add(0xE0 | character >> 12);
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  } else {
    add(0xF0 | character >> 18);
    add(0x80 | (character >> 12 & 0x3F));
    add(0x80 | (character >> 6 & 0x3F));
    add(0x80 | (character & 0x3F));
  }
}

void appendUtf8(std::string& out, std::string_view text) {
  std::size_t done = 0;  // up to here all is appended
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = decode(text, place).length;
    if (length == 0) {
      out.append(text, done, place - done);
      appendCharacter(out, replacementCharacter);
      done = place + 1;
    }
    place += length == 0 ? 1 : length;
  }
  out.append(text, done);
}

}  // namespace tz
