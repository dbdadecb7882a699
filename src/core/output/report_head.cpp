#include <algorithm>

#include "core/output/report_output.h"

namespace tz {
namespace {

constexpr std::string_view warningSign = "※ ";
constexpr std::string_view linesMissing = "（有分录未列示）";

void addLines(std::vector<HeadLine>& head, std::string_view text) {
  while (!text.empty()) {
    const auto end = text.find('\n');
    head.push_back({HeadLine::Kind::text, std::string(text.substr(0, end))});
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
  }
}

}  // namespace

std::vector<HeadLine> headLines(const ComputedReport& report) {
  std::vector<HeadLine> head;
  const auto& notices = report.grid.notices;
  const bool missing = std::ranges::find(notices, Notice::Weight::incomplete, &Notice::weight) != notices.end();
  if (!report.title.empty()) {
    head.push_back({HeadLine::Kind::title, missing ? report.title + std::string(linesMissing) : report.title});
  }
  for (const auto& notice : notices) {
    if (notice.warns()) head.push_back({HeadLine::Kind::warning, std::string(warningSign) + notice.text});
  }
  addLines(head, report.subtitle);
  addLines(head, report.period);
  addLines(head, report.unit);
  for (const auto& condition : report.conditions) head.push_back({HeadLine::Kind::text, condition});
  return head;
}

std::vector<std::string> remarks(const CTzGrid& grid) {
  std::vector<std::string> texts;
  for (const auto& notice : grid.notices) {
    if (!notice.warns()) texts.push_back(notice.text);
  }
  return texts;
}

}  // namespace tz
