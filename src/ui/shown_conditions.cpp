#include "ui/shown_conditions.h"

#include <fmt/format.h>

namespace tz {
namespace {

// More are counted: the line has to stay one.
constexpr std::size_t mostAccounts = 3;

std::string accounts(const Conditions& conditions) {
  const auto picked = conditions.request.list(ParameterKey::account);
  if (picked.empty()) return std::string(allMembers);
  std::string text;
  for (std::size_t i = 0; i < picked.size() && i < mostAccounts; ++i) {
    if (i > 0) text += "、";
    text += CGetData::GetCode_Separator(picked[i]);
  }
  return picked.size() > mostAccounts ? fmt::format("{} 等{}个", text, picked.size()) : text;
}

std::string range(const Conditions& conditions) {
  const auto end = [&](ParameterKey key) {
    const auto code = CGetData::GetCode_Separator(conditions.request.text(key));
    return code.empty() ? std::string("不限") : code;
  };
  if (conditions.projects.all) return {};
  return fmt::format("项目范围: {} 至 {}", end(ParameterKey::projectFrom), end(ParameterKey::projectTo));
}

std::string shown(const ControlSpec& control, const Conditions& conditions) {
  switch (control.kind) {
    case ControlSpec::Kind::classCombo:
      return "项目大类: " + conditions.projectClass.sName;
    case ControlSpec::Kind::projectReference:
      return "项目: " + conditions.project.fields.at(1);
    case ControlSpec::Kind::projectRange:
      return range(conditions);
    case ControlSpec::Kind::accountLists:
      return "科目: " + accounts(conditions);
    case ControlSpec::Kind::analysis:
      return conditions.absoluteSums ? "金额分析" : "余额分析";
    case ControlSpec::Kind::checkBox:
      return control.key == ParameterKey::unposted && conditions.unposted ? "含未记帐凭证" : "";
    default:
      return {};
  }
}

}  // namespace

std::string shownConditions(const DialogSpec& dialog, const Conditions& conditions) {
  std::string line;
  for (const auto& control : dialog.controls) {
    const auto text = shown(control, conditions);
    if (text.empty()) continue;
    if (!line.empty()) line += "    ";
    line += text;
  }
  return line;
}

}  // namespace tz
