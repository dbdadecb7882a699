#include "core/grid/utf8.h"
#include "core/reports/condition_texts.h"
#include "core/reports/control_kind.h"

namespace tz {
namespace {

// File systems take 255 bytes; the rest is for endings, numbers and copies.
constexpr std::size_t longestName = 200;

bool refused(char32_t sign) {
  const bool control = sign < 0x20 || (sign >= 0x7F && sign < 0xA0) || sign == replacementCharacter;
  const bool turnsWriting = (sign >= 0x200B && sign <= 0x200F) || (sign >= 0x2028 && sign <= 0x202E) ||
                            (sign >= 0x2066 && sign <= 0x2069) || sign == 0xFEFF;
  return control || turnsWriting || std::u32string_view(U"/\\:*?\"<>|").find(sign) != std::u32string_view::npos;
}

// Signs that file systems or their users take ill become "_"; cut at `room` bytes, between two characters.
std::string harmless(std::string_view text, std::size_t room) {
  std::string name;
  for (std::size_t place = 0; place < text.size();) {
    const char32_t sign = nextCharacter(text, place);
    std::string one;
    appendCharacter(one, refused(sign) ? U'_' : sign);
    if (name.size() + one.size() > room) break;
    name += one;
  }
  while (name.ends_with(' ') || name.ends_with('.')) name.pop_back();
  return name;
}

// The members that the conditions name, in the order of the dialog, each behind a blank.
std::string membersNamed(const ReportDefinition& report, const Conditions& conditions) {
  std::string names;
  for (const auto& control : report.dialog.controls) {
    const auto inFileName = controlKind(control.kind).inFileName;
    const auto member = inFileName == nullptr ? "" : inFileName(report.dialog, conditions);
    if (!member.empty()) names.append(" ").append(member);
  }
  return names;
}

}  // namespace

std::string subjectText(const ReportDefinition& report, const Conditions& conditions, int year) {
  std::string text = membersNamed(report, conditions);
  const auto told = periodIn(report.period.inSubject, conditions, year);
  if (!told.empty()) text.append(" ").append(told);
  return text.empty() ? text : text.substr(1);
}

std::string proposedFileName(const ReportDefinition& report, const Conditions& conditions, int year) {
  const auto name = std::string(report.printTitle) + membersNamed(report, conditions);
  const auto told = harmless(periodIn(report.period.inFileName, conditions, year), longestName / 2);
  if (told.empty()) return harmless(name, longestName);
  return harmless(name, longestName - told.size() - 1) + " " + told;
}

}  // namespace tz
