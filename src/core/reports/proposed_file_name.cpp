#include <algorithm>
#include <fmt/format.h>

#include "core/grid/utf8.h"
#include "core/reports/condition_texts.h"

namespace tz {
namespace {

// File systems take 255 bytes; the rest is for endings, numbers and copies.
constexpr std::size_t longestName = 200;

bool asksFor(const DialogSpec& dialog, ControlSpec::Kind kind) {
  return std::ranges::find(dialog.controls, kind, &ControlSpec::kind) != dialog.controls.end();
}

// What a control adds to the subject. A person's department and a project's class say nothing more.
std::string subjectOf(const ControlSpec& control, const DialogSpec& dialog, const Conditions& conditions) {
  const auto end = [&](ParameterKey key) { return CGetData::GetCode_Separator(conditions.request.text(key)); };
  switch (control.kind) {
    case ControlSpec::Kind::accountCombo:
      return conditions.accountText();
    case ControlSpec::Kind::deptReference:
    case ControlSpec::Kind::deptCombo:
      return asksFor(dialog, ControlSpec::Kind::personReference) || conditions.dept.lDeptId == 0
                 ? ""
                 : conditions.dept.sDeptName;
    case ControlSpec::Kind::personReference:
      return conditions.person.sName;
    case ControlSpec::Kind::unitReference:
      return conditions.unit.sEnterName;
    case ControlSpec::Kind::unitClassCombo:
      return conditions.unitClass.sName;
    case ControlSpec::Kind::clerkCombo:
      return conditions.clerk.shown();
    case ControlSpec::Kind::projectReference:
      return conditions.project.fields.at(1);
    case ControlSpec::Kind::projectRange:
      return conditions.projects.all ? "" : end(ParameterKey::projectFrom) + "-" + end(ParameterKey::projectTo);
    default:
      return {};
  }
}

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

std::string monthsOf(const ReportDefinition& report, const Conditions& conditions, int year) {
  if (!asksFor(report.dialog, ControlSpec::Kind::months)) return {};
  if (conditions.from == conditions.to) return fmt::format(" {}.{:02}", year, conditions.from);
  return fmt::format(" {}.{:02}-{:02}", year, conditions.from, conditions.to);
}

}  // namespace

std::string proposedFileName(const ReportDefinition& report, const Conditions& conditions, int year) {
  std::string name(report.printTitle);
  for (const auto& control : report.dialog.controls) {
    const auto subject = subjectOf(control, report.dialog, conditions);
    if (!subject.empty()) name += " " + subject;
  }
  const auto months = monthsOf(report, conditions, year);
  return harmless(name, longestName - months.size()) + months;
}

}  // namespace tz
