#include "core/manual/markdown.h"

#include <fmt/format.h>

namespace tz::manual {

std::string plain(std::string_view text) {
  std::string written;
  for (const char sign : text) {
    if (std::string_view("\\`*_[]<>|#").find(sign) != std::string_view::npos) written += '\\';
    written += sign == '\n' ? ' ' : sign;
  }
  return written;
}

std::string link(std::string_view words, std::string_view target) { return fmt::format("[{}]({})", words, target); }

std::string tableRow(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const auto& cell : cells) row.append(" ").append(cell).append(" |");
  return row + "\n";
}

std::string tableHead(const std::vector<std::string>& captions) {
  std::vector<std::string> words;
  std::string rule = "|";
  for (const auto& caption : captions) {
    const bool onTheRight = caption.starts_with('>');
    words.push_back(caption.substr(onTheRight ? 1 : 0));
    rule += onTheRight ? "---:|" : "---|";
  }
  return tableRow(words) + rule + "\n";
}

}  // namespace tz::manual
