#include "core/data/address.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tz {
namespace {

char lowered(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::size_t findWord(const std::string& text, std::string_view word, std::size_t from) {
  const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), word.begin(), word.end(),
                                 [](char one, char other) { return lowered(one) == other; });
  return found == text.end() ? std::string::npos : static_cast<std::size_t>(found - text.begin());
}

// Where the value that starts at `place` ends: behind its closing quote, or before a blank or the next parameter.
std::size_t endOfValue(const std::string& text, std::size_t place) {
  if (text.substr(place, 1) == "'") {
    for (++place; place < text.size() && text[place] != '\''; ++place) {
      if (text[place] == '\\') ++place;
    }
    return std::min(place + 1, text.size());
  }
  const auto end = text.find_first_of(" \t\n&", place);
  return end == std::string::npos ? text.size() : end;
}

// "password=secret", "sslpassword = 'secret'", "PGPASSWORD=secret".
void hideParameters(std::string& text) {
  static constexpr std::array<std::string_view, 3> names = {"password", "passwd", "pwd"};
  for (const auto name : names) {
    for (auto place = findWord(text, name, 0); place != std::string::npos; place = findWord(text, name, place)) {
      place += name.size();
      auto value = place;
      while (value < text.size() && isBlank(text[value])) ++value;
      if (value == text.size() || text[value] != '=') continue;
      ++value;
      while (value < text.size() && isBlank(text[value])) ++value;
      text.erase(value, endOfValue(text, value) - value);
    }
  }
}

// Where the user's name begins: behind "scheme:/", or where the word with the "@" does.
std::size_t startOfUser(std::string_view line, std::size_t at) {
  for (auto colon = line.find(":/"); colon < at; colon = line.find(":/", colon + 1)) {
    if (colon == 0 || std::isalnum(static_cast<unsigned char>(line[colon - 1])) == 0) continue;
    const auto start = line.find_first_not_of('/', colon + 1);
    return std::min(start, at);
  }
  const auto blank = line.substr(0, at).find_last_of(" \t");
  return blank == std::string_view::npos ? 0 : blank + 1;
}

// The placeholders of our own examples.
bool isPlaceholder(std::string_view secret) { return secret == "password" || secret == "口令"; }

// "user:secret@" of one line; the secret may hold any sign, "/", "@" and blanks among them.
std::string hideUserinfo(std::string line) {
  const auto at = line.rfind('@');
  if (at == std::string::npos) return line;
  const auto colon = line.find(':', startOfUser(line, at));
  if (colon >= at || isPlaceholder(std::string_view(line).substr(colon + 1, at - colon - 1))) return line;
  return line.erase(colon, at - colon);
}

}  // namespace

bool isServerAddress(std::string_view address) {
  std::string start(address.substr(0, address.find(':')));
  std::ranges::transform(start, start.begin(), lowered);
  return start.size() < address.size() && (start == "postgresql" || start == "postgres");
}

std::string withoutPasswords(std::string_view text) {
  std::string hidden;
  for (std::size_t place = 0; place <= text.size();) {
    const auto end = std::min(text.find('\n', place), text.size());
    hidden += hideUserinfo(std::string(text.substr(place, end - place)));
    if (end < text.size()) hidden += '\n';
    place = end + 1;
  }
  hideParameters(hidden);
  return hidden;
}

}  // namespace tz
