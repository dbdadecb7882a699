// The digits are those of the figure as it is shown, so both always say the same.
#include "core/voucher/capital_amount.h"

#include <array>
#include <cmath>

#include "core/grid/figures.h"

namespace tz {
namespace {

constexpr std::size_t groupSize = 4;  // digits below 万
constexpr std::size_t largeSize = 8;  // digits below 亿

std::string_view numeral(char digit) {
  constexpr std::array<std::string_view, 10> numerals = {"零", "壹", "贰", "叁", "肆", "伍", "陆", "柒", "捌", "玖"};
  return numerals.at(static_cast<std::size_t>(digit - '0'));
}

bool isZero(std::string_view digits) { return digits.find_first_not_of('0') == std::string_view::npos; }

// Up to four digits; a run of zeros between others is one 零, zeros at the end are none.
std::string groupText(std::string_view digits) {
  constexpr std::array<std::string_view, groupSize> units = {"", "拾", "佰", "仟"};
  std::string text;
  bool skipped = false;
  for (std::size_t place = 0; place < digits.size(); ++place) {
    if (digits[place] == '0') {
      skipped = !text.empty();
      continue;
    }
    if (skipped) text += "零";
    skipped = false;
    text += numeral(digits[place]);
    text += units.at(digits.size() - 1 - place);
  }
  return text;
}

// Digits without zeros in front; 万亿 and 亿亿 come out of 亿 before which numbers of any length stand.
std::string wholeText(std::string_view digits) {
  const auto first = digits.find_first_not_of('0');
  if (first == std::string_view::npos) return {};
  digits.remove_prefix(first);
  if (digits.size() <= groupSize) return groupText(digits);
  const bool large = digits.size() > largeSize;
  const auto head = digits.substr(0, digits.size() - (large ? largeSize : groupSize));
  const auto tail = digits.substr(head.size());
  std::string text = wholeText(head);
  text += large ? "亿" : "万";
  if (isZero(tail)) return text;
  if (tail.front() == '0') text += "零";
  return text.append(wholeText(tail));
}

}  // namespace

std::string capitalAmount(double amount) {
  if (!std::isfinite(amount)) return {};
  std::string digits = figureText(amount, ColumnKind::amount);
  const bool negative = digits.front() == '-';
  std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
  const auto whole = std::string_view(digits).substr(0, digits.size() - 2);
  const char jiao = digits[digits.size() - 2];
  const char fen = digits.back();

  std::string text = wholeText(whole);
  if (!text.empty()) text += "元";
  if (jiao == '0' && fen == '0') return (negative ? "负" : "") + (text.empty() ? "零元" : text) + "整";
  // A zero between yuan and what follows is said: of the jiao, or of the yuan's own place.
  if (!text.empty() && (jiao == '0' || whole.back() == '0')) text += "零";
  if (jiao != '0') text.append(numeral(jiao)).append("角");
  if (fen == '0') {
    text += "整";
  } else {
    text.append(numeral(fen)).append("分");
  }
  return (negative ? "负" : "") + text;
}

}  // namespace tz
