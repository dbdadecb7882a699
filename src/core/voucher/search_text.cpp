#include "core/voucher/search_text.h"

#include <algorithm>
#include <charconv>

#include "core/grid/utf8.h"

namespace tz {
namespace {

constexpr std::string_view blanks = " \t\r\n";

bool isFigure(char c) { return c >= '0' && c <= '9'; }
char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view withoutBlanksAround(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Full-width signs as those of ASCII.
std::string narrow(std::string_view text) {
  constexpr char32_t firstWide = 0xFF01;
  constexpr char32_t lastWide = 0xFF5E;
  constexpr char32_t wideBlank = 0x3000;
  constexpr char32_t minus = 0x2212;
  std::string narrowed;
  for (std::size_t place = 0; place < text.size();) {
    const auto sign = nextCharacter(text, place);
    if (sign >= firstWide && sign <= lastWide) {
      narrowed += static_cast<char>(sign - firstWide + '!');
    } else if (sign == wideBlank || sign == minus) {
      narrowed += sign == minus ? '-' : ' ';
    } else {
      appendCharacter(narrowed, sign);
    }
  }
  return narrowed;
}

// The figures in front of the point, without commas; nothing where these do not part thousands.
std::optional<std::string> wholePart(std::string_view text) {
  constexpr std::size_t group = 3;
  std::string figures;
  const bool parted = text.find(',') != std::string_view::npos;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const auto behind = text.size() - place;
    const bool comma = parted && behind % (group + 1) == 0 && place > 0;
    if (comma ? text[place] != ',' : !isFigure(text[place])) return std::nullopt;
    if (!comma) figures += text[place];
  }
  return figures;
}

std::optional<std::int64_t> centsIn(std::string_view text) {
  constexpr std::size_t decimals = 2;
  constexpr std::size_t mostFigures = 15;  // what an amount holds to the cent
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const auto point = text.find('.');
  auto figures = wholePart(text.substr(0, point));
  auto behind = point == std::string_view::npos ? std::string() : std::string(text.substr(point + 1));
  if (!figures || (figures->empty() && behind.empty()) || !std::ranges::all_of(behind, isFigure)) return std::nullopt;
  if (behind.size() > decimals) return std::nullopt;
  behind.resize(decimals, '0');
  *figures += behind;
  figures->erase(0, std::min(figures->find_first_not_of('0'), figures->size() - 1));
  if (figures->size() > mostFigures) return std::nullopt;
  std::int64_t cents = 0;
  std::from_chars(figures->data(), figures->data() + figures->size(), cents);
  return negative ? -cents : cents;
}

// "记-12", "记字第12号", "12".
std::optional<SearchedVoucher> voucherIn(std::string_view text) {
  constexpr std::string_view behindNumber = "号";
  if (text.ends_with(behindNumber)) text = withoutBlanksAround(text.substr(0, text.size() - behindNumber.size()));
  const auto lastOther = text.find_last_not_of("0123456789");
  const auto figures = lastOther == std::string_view::npos ? text : text.substr(lastOther + 1);
  SearchedVoucher voucher;
  const auto [end, error] = std::from_chars(figures.data(), figures.data() + figures.size(), voucher.number);
  if (error != std::errc{} || voucher.number <= 0) return std::nullopt;
  auto word = withoutBlanksAround(text.substr(0, text.size() - figures.size()));
  const bool bare = word.empty();
  for (const std::string_view between : {"-", "第", "字"}) {
    if (word.ends_with(between)) word = withoutBlanksAround(word.substr(0, word.size() - between.size()));
  }
  if (word.empty() && !bare) return std::nullopt;  // "-300" is an amount alone
  voucher.word = word;
  return voucher;
}

}  // namespace

SearchText readSearchText(std::string_view typed) {
  const auto narrowed = narrow(typed);
  const auto meant = withoutBlanksAround(narrowed);
  SearchText search{.text = std::string(withoutBlanksAround(typed)), .cents = centsIn(meant), .voucher = {}};
  if (meant.empty()) search.text.clear();
  // A figure with a point or with commas numbers no voucher.
  const bool whole = std::ranges::all_of(meant, isFigure);
  if (!search.cents || whole) search.voucher = voucherIn(meant);
  return search;
}

bool containsAnyCase(std::string_view text, std::string_view part) {
  const auto same = [](char one, char other) { return small(one) == small(other); };
  return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

}  // namespace tz
