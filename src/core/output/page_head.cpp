#include "core/output/page_head.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "core/output/line_breaking.h"

namespace tz {
namespace {

constexpr double titleSize = 18;
constexpr double textSize = 9;
constexpr double titleSpacing = 1.5;
constexpr double lineSpacing = 1.4;

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = text.find('\n');
    if (end != 0) lines.emplace_back(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
  }
  return lines;
}

class HeadWriter {
 public:
  HeadWriter(const PageColumns& columns, double columnEm) : room_(columns.paper.innerWidth()), columnEm_(columnEm) {}

  void title(const std::string& text) {
    if (text.empty()) return;
    // A title that says more than it usually does becomes smaller rather than being cut.
    const double fitting = room_ / (displayWidth(text) * columnEm_);
    add(text, HeadPiece::Face::title, HeadPiece::Place::centre, std::min(titleSize, fitting));
    head_.height += titleSize * titleSpacing;
  }
  // The period in the middle, the company at the left of it, or above it where it is too long for that.
  void companyAndPeriod(const std::string& company, const std::string& period) {
    const double besides = (room_ / (textSize * columnEm_) - displayWidth(period)) / 2;
    if (!company.empty()) {
      const bool fits = displayWidth(company) + 2 <= besides;
      const auto lines = fits ? std::vector{company} : broken(company, 0);
      for (const auto& line : lines) {
        add(line, HeadPiece::Face::text, HeadPiece::Place::left, textSize);
        if (!fits) next();
      }
      if (fits && period.empty()) next();
    }
    if (period.empty()) return;
    add(period, HeadPiece::Face::text, HeadPiece::Place::centre, textSize);
    next();
  }
  // Two columns of lines: at the left margin, broken where they are too long, and at the right one.
  void sides(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    int widest = 0;
    for (const auto& line : right) widest = std::max(widest, displayWidth(line) + 2);
    std::vector<std::string> lines;
    for (const auto& line : left) std::ranges::move(broken(line, widest), std::back_inserter(lines));
    for (std::size_t i = 0; i < std::max(lines.size(), right.size()); ++i) {
      if (i < lines.size()) add(lines[i], HeadPiece::Face::text, HeadPiece::Place::left, textSize);
      if (i < right.size()) add(right[i], HeadPiece::Face::text, HeadPiece::Place::right, textSize);
      next();
    }
  }
  void wide(const std::string& text, HeadPiece::Face face) {
    if (text.empty()) return;
    for (const auto& line : broken(text, 0)) {
      add(line, face, HeadPiece::Place::left, textSize);
      next();
    }
  }
  PageHead done() {
    constexpr double gap = 3;
    head_.height += gap;
    return std::move(head_);
  }

 private:
  [[nodiscard]] std::vector<std::string> broken(const std::string& text, int taken) const {
    const int letters = static_cast<int>(room_ / (textSize * columnEm_));
    return brokenLines(text, std::max(letters - taken, letters / 2));
  }
  void add(const std::string& text, HeadPiece::Face face, HeadPiece::Place place, double size) {
    head_.pieces.push_back({text, face, place, head_.height, size});
  }
  void next() { head_.height += textSize * lineSpacing; }

  PageHead head_;
  double room_;
  double columnEm_;
};

}  // namespace

PageHead pageHead(const ComputedReport& report, const PageColumns& columns, double columnEm) {
  HeadWriter head(columns, columnEm);
  const auto lines = headLines(report);
  for (const auto& line : lines) {
    if (line.kind == HeadLine::Kind::title) head.title(line.text);
  }
  head.companyAndPeriod(report.company.empty() ? "" : "核算单位：" + report.company, report.printedPeriod);
  head.sides(linesOf(report.subtitle), linesOf(report.unit));
  head.wide(fmt::format("{}", fmt::join(report.printedConditions, "　　")), HeadPiece::Face::text);
  for (const auto& line : lines) {
    if (line.kind == HeadLine::Kind::warning) head.wide(line.text, HeadPiece::Face::warning);
  }
  return head.done();
}

}  // namespace tz
