#include "core/output/line_breaking.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/grid/utf8.h"
#include "core/output/display_text.h"
#include "core/output/report_output.h"

namespace tz {
namespace {

constexpr auto closingMarks = std::to_array<std::string_view>(
    {"，", "。", "、", "；", "：", "！", "？", "）", "》", "”", "’", "】", "%", ",", ".", ")", ";"});

bool isWord(std::string_view character) {
  return character.size() == 1 && (character == "." || character == "-" || character == "/" ||
                                   (std::isalnum(static_cast<unsigned char>(character.front())) != 0));
}

bool mayBreakBetween(std::string_view before, std::string_view behind) {
  if (std::ranges::find(closingMarks, behind) != closingMarks.end()) return false;
  return !(isWord(before) && isWord(behind));
}

struct Letter {
  std::string_view text;
  int width;
};

std::vector<Letter> lettersOf(std::string_view text) {
  std::vector<Letter> letters;
  for (std::size_t place = 0; place < text.size();) {
    const auto start = place;
    (void)nextCharacter(text, place);
    const auto letter = text.substr(start, place - start);
    letters.push_back({letter, measureText(letter).width});
  }
  return letters;
}

class LineBreaker {
 public:
  LineBreaker(const std::vector<Letter>& letters, int room) : letters_(letters), room_(room) {}

  // Where the line that begins at `start` ends.
  [[nodiscard]] std::size_t endFrom(std::size_t start) const {
    int width = 0;
    auto end = start;
    while (end < letters_.size() && width + letters_[end].width <= room_) width += letters_[end++].width;
    end = std::max(end, start + 1);
    if (end >= letters_.size()) return letters_.size();
    for (auto place = end; place > start + 1; --place) {
      if (mayBreakBetween(letters_[place - 1].text, letters_[place].text)) return place;
    }
    return end;
  }

 private:
  const std::vector<Letter>& letters_;
  int room_;
};

}  // namespace

std::vector<std::string> brokenLines(std::string_view text, int letters) {
  const std::string shown = shownLine(text);
  if (displayWidth(shown) <= letters) return {shown};
  const auto all = lettersOf(shown);
  const LineBreaker breaker(all, std::max(letters, 1));
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < all.size();) {
    const auto end = breaker.endFrom(start);
    const auto* const first = all[start].text.data();
    lines.emplace_back(first, all[end - 1].text.data() + all[end - 1].text.size());
    start = end;
    while (start < all.size() && all[start].text == " ") ++start;
    if (lines.size() == mostLines && start < all.size()) {
      lines.back() += "…";
      break;
    }
  }
  return lines;
}

}  // namespace tz
