#include "core/output/page_head.h"

#include <algorithm>

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
  void centred(const std::string& text) {
    if (text.empty()) return;
    add(text, HeadPiece::Face::text, HeadPiece::Place::centre, textSize);
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
  head.centred(report.printedPeriod);
  head.sides(linesOf(report.subtitle), linesOf(report.unit));
  for (const auto& condition : report.conditions) head.wide(condition, HeadPiece::Face::text);
  for (const auto& line : lines) {
    if (line.kind == HeadLine::Kind::warning) head.wide(line.text, HeadPiece::Face::warning);
  }
  return head.done();
}

}  // namespace tz
