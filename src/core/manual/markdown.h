// Pieces of Markdown: texts that mean themselves, rows of tables, links.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tz::manual {

// A text that holds no marks; line breaks become blanks.
[[nodiscard]] std::string plain(std::string_view text);
[[nodiscard]] std::string link(std::string_view words, std::string_view target);
// The head of a table with the line below it. A caption that begins with '>' stands on the right.
[[nodiscard]] std::string tableHead(const std::vector<std::string>& captions);
// Cells are Markdown.
[[nodiscard]] std::string tableRow(const std::vector<std::string>& cells);

}  // namespace tz::manual
