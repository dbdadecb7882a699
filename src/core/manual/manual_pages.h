// The pages of the manual that are drawn up from the program's own records beside those of reports, and the list of all
// pages. They are kept in docs/manual, which the windows carry in themselves.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tz::manual {

// A chapter that is written by hand: docs/manual/<page>.md.
struct Chapter {
  std::string_view page;
  std::string_view title;
  std::string_view about;  // a line of the contents
};
struct Part {
  std::string_view title;
  std::span<const Chapter> chapters;
};
[[nodiscard]] std::span<const Part> manualParts();

// The contents: the parts with their chapters, and the reports by area.
[[nodiscard]] std::string composeIndexPage();
// Every message with what to do about it.
[[nodiscard]] std::string composeMessagesPage();

}  // namespace tz::manual
