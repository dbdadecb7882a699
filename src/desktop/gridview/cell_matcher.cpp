#include "desktop/gridview/cell_matcher.h"

#include <algorithm>
#include <array>

#include "core/grid/figures.h"
#include "core/grid/utf8.h"

namespace tz {
namespace {

constexpr char32_t wideFirst = 0xFF01;  // the wide "!"
constexpr char32_t wideLast = 0xFF5E;   // the wide "~"
constexpr char32_t wideToNarrow = 0xFEE0;
constexpr char32_t wideBlank = 0x3000;

// Bytes with which characters begin that are compared as others: capitals, wide signs, the wide blank.
constexpr auto foldedLeads = [] {
  std::array<bool, 256> leads = {};
  for (std::size_t capital = 'A'; capital <= 'Z'; ++capital) leads.at(capital) = true;
  leads.at(0xEF) = leads.at(0xE3) = true;
  return leads;
}();

char32_t folded(char32_t sign) {
  if (sign >= wideFirst && sign <= wideLast) sign -= wideToNarrow;
  if (sign == wideBlank) return U' ';
  return sign >= U'A' && sign <= U'Z' ? sign + (U'a' - U'A') : sign;
}

bool changesFolded(std::string_view text) {
  return std::ranges::any_of(text, [](char sign) { return foldedLeads[static_cast<unsigned char>(sign)]; });
}

bool holds(std::string_view text, std::string_view part) {
  if (text.size() < part.size()) return false;  // folding makes no text longer
  if (text.find(part) != std::string_view::npos) return true;
  return changesFolded(text) && foldedText(text).find(part) != std::string::npos;
}

// "借" in three bytes.
bool isOneSign(std::string_view text) { return text.size() == 3 && static_cast<unsigned char>(text.front()) >= 0xE0; }

bool onlyOf(std::string_view text, std::string_view signs) {
  return text.find_first_not_of(signs) == std::string_view::npos;
}

}  // namespace

std::string foldedText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) appendCharacter(out, folded(nextCharacter(text, place)));
  return out;
}

CellMatcher::CellMatcher(std::string_view typed) : text_(foldedText(typed)), dated_(onlyOf(text_, "0123456789.")) {
  if (!onlyOf(text_, "0123456789.,-")) return;
  figure_ = text_;
  std::erase(figure_, ',');
}

bool CellMatcher::MatchesText(const CTzGrid& grid, std::int64_t row, int column) const {
  switch (grid.TypeAt(row, column)) {
    case CTzGrid::CellType::text: {
      const std::string_view text = grid.TextAt(row, column);
      return !isOneSign(text) && holds(text, text_);
    }
    case CTzGrid::CellType::date:
      return dated_ && grid.ShownAt(row, column).find(text_) != std::string::npos;
    default:
      return false;
  }
}

bool CellMatcher::Matches(const CTzGrid& grid, std::int64_t row, int column) const {
  if (empty()) return false;
  if (grid.TypeAt(row, column) != CTzGrid::CellType::number) return MatchesText(grid, row, column);
  if (figure_.empty()) return false;
  std::string shown;
  appendFigure(shown, grid.NumberAt(row, column), grid.Columns()[static_cast<std::size_t>(column)].kind);
  std::erase(shown, ',');
  return shown.find(figure_) != std::string::npos;
}

}  // namespace tz
