#include "core/output/display_text.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/grid/utf8.h"
#include "core/output/report_output.h"

namespace tz {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Marks that sit on the character before them, and characters without any shape.
constexpr std::array zeroWidth = std::to_array<Range>({{0x0300, 0x036F},
                                                       {0x0483, 0x0489},
                                                       {0x0591, 0x05BD},
                                                       {0x064B, 0x065F},
                                                       {0x0E31, 0x0E31},
                                                       {0x0E34, 0x0E3A},
                                                       {0x0E47, 0x0E4E},
                                                       {0x1AB0, 0x1AFF},
                                                       {0x1DC0, 0x1DFF},
                                                       {0x200B, 0x200D},
                                                       {0x2060, 0x2064},
                                                       {0x20D0, 0x20F0},
                                                       {0x302A, 0x302D},
                                                       {0x3099, 0x309A},
                                                       {0xFE00, 0xFE0F},
                                                       {0xFE20, 0xFE2F},
                                                       {0xFEFF, 0xFEFF},
                                                       {0xE0100, 0xE01EF}});

constexpr std::array twoColumns = std::to_array<Range>(
    {{0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},   {0x25FD, 0x25FE},
     {0x2614, 0x2615},   {0x2648, 0x2653},   {0x26A1, 0x26A1},   {0x26BD, 0x26BE},   {0x2705, 0x2705},
     {0x270A, 0x270B},   {0x274C, 0x274C},   {0x2753, 0x2755},   {0x2757, 0x2757},   {0x2795, 0x2797},
     {0x2B1B, 0x2B1C},   {0x2E80, 0x303E},   {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},
     {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},
     {0xFFE0, 0xFFE6},   {0x16FE0, 0x18AFF}, {0x1B000, 0x1B2FF}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
     {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}});

// Marks of direction, notes between the lines and tags: they change what is seen around them, or hide a text.
constexpr std::array unseen = std::to_array<Range>({{0x061C, 0x061C},
                                                    {0x180E, 0x180E},
                                                    {0x200E, 0x200F},
                                                    {0x202A, 0x202E},
                                                    {0x2066, 0x206F},
                                                    {0xFFF9, 0xFFFB},
                                                    {0x1D173, 0x1D17A},
                                                    {0xE0000, 0xE007F}});

bool within(char32_t character, std::span<const Range> ranges) {
  const auto range = std::lower_bound(ranges.begin(), ranges.end(), character,
                                      [](const Range& one, char32_t sought) { return one.last < sought; });
  return range != ranges.end() && character >= range->first;
}

// What stands in the place of a character: itself, a blank or U+FFFD.
char32_t shownFor(char32_t character) {
  if (character == '\t' || character == '\n' || character == '\r') return ' ';
  if (character == 0x2028 || character == 0x2029) return ' ';
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return control || within(character, unseen) ? replacementCharacter : character;
}

int widthOf(char32_t shown) {
  if (within(shown, zeroWidth)) return 0;
  return within(shown, twoColumns) ? 2 : 1;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The Chinese characters in common use: three bytes, the lead byte E4 to E9.
bool isCommonChinese(std::string_view text, std::size_t place) {
  const auto lead = static_cast<unsigned char>(text[place]);
  return lead >= 0xE4 && lead <= 0xE9 && text.size() - place >= 3 && isContinuation(text[place + 1]) &&
         isContinuation(text[place + 2]);
}

}  // namespace

ShownText measureText(std::string_view text) {
  ShownText result;
  for (std::size_t place = 0; place < text.size();) {
    if (text[place] >= ' ' && text[place] <= '~') {
      ++result.width;
      ++place;
    } else if (isCommonChinese(text, place)) {
      result.width += 2;
      place += 3;
    } else {
      const char32_t character = nextCharacter(text, place);
      const char32_t shown = shownFor(character);
      result.clean = result.clean && shown == character && character != replacementCharacter;
      result.width += widthOf(shown);
    }
  }
  return result;
}

void appendShown(std::string& out, std::string_view text) {
  for (std::size_t place = 0; place < text.size();) appendCharacter(out, shownFor(nextCharacter(text, place)));
}

std::string shownText(std::string_view text) {
  std::string shown;
  for (std::size_t place = 0; place < text.size();) {
    const char32_t character = nextCharacter(text, place);
    if (character == '\r' && text.substr(place).starts_with('\n')) continue;
    appendCharacter(shown, character == '\n' ? character : shownFor(character));
  }
  return shown;
}

std::string shownLine(std::string_view text) {
  std::string shown;
  appendShown(shown, text);
  return shown;
}

int displayWidth(std::string_view text) { return measureText(text).width; }

}  // namespace tz
