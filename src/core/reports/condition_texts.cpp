#include "core/reports/condition_texts.h"

#include <fmt/format.h>

#include "core/reports/control_kind.h"

namespace tz {
namespace {

constexpr std::string_view monthsReversed = "起始月份在终止月份之后。";
constexpr std::string_view projectsReversed = "起始项目在终止项目之后。";
constexpr std::string_view accountsReversed = "起始科目在终止科目之后。";
constexpr std::string_view shiftedForeignFormat = "外币式沿用七栏表头：借方外币在“贷方”栏，贷方外币在“余额”栏。";

// Whether the subtitle changes with the member that the control names.
bool inSubtitle(const ReportDefinition& report, ControlSpec::Kind kind, const Conditions& conditions) {
  const auto rename = controlKind(kind).rename;
  if (rename == nullptr) return false;
  Conditions renamed = conditions;
  rename(renamed);
  return report.subtitle(renamed) != report.subtitle(conditions);
}

// What one control's condition adds to the subtitle.
std::string besideSubtitle(const ReportDefinition& report, const ControlSpec& control, const Conditions& conditions,
                           bool onPage) {
  const auto& kind = controlKind(control.kind);
  if (!inSubtitle(report, control.kind, conditions)) return conditionText(control, conditions);
  if (kind.unsaid == nullptr) return {};
  return onPage ? kind.unsaid(conditions) : conditionText(control, conditions);
}

std::vector<std::string> textsOf(const ReportDefinition& report, const Conditions& conditions, bool onPage) {
  std::vector<std::string> texts;
  for (const auto& control : report.dialog.controls) {
    if (toldByPeriod(report, control)) continue;
    auto text = besideSubtitle(report, control, conditions, onPage);
    if (!text.empty()) texts.push_back(std::move(text));
  }
  for (const auto& toggle : rowToggles) {
    if (conditions.request.flag(toggle.key)) texts.emplace_back(parameter(toggle.key).label);
  }
  for (const auto& tab : toolbarTabs) {
    if (conditions.request.text(tab.key) != tab.value || conditions.request.choice(tab.key) == 0) continue;
    const auto& told = parameter(tab.key);
    texts.push_back(fmt::format("{}: {}", told.label, told.choices[conditions.request.choice(tab.key)].caption));
  }
  if (report.formats != nullptr && conditions.format != AmountFormat::amount) {
    texts.push_back(fmt::format("金额格式: {}", formatName(conditions.format)));
  }
  return texts;
}

}  // namespace

bool toldByPeriod(const ReportDefinition& report, const ControlSpec& control) {
  return report.period.tells == control.key;
}

std::vector<std::string> conditionTexts(const ReportDefinition& report, const Conditions& conditions) {
  return textsOf(report, conditions, false);
}

std::vector<std::string> printedConditionTexts(const ReportDefinition& report, const Conditions& conditions) {
  return textsOf(report, conditions, true);
}

std::vector<Notice> conditionNotices(const ReportDefinition& report, const Conditions& conditions,
                                     const Session& session, std::optional<int> accountYear) {
  std::vector<Notice> notices;
  const auto warn = [&](std::string_view text) { notices.push_back({std::string(text), Notice::Weight::warning}); };
  for (const auto& control : report.dialog.controls) {
    const auto end = [&](ParameterKey key) { return CGetData::GetCode_Separator(conditions.request.text(key)); };
    const auto last = end(ParameterKey::projectTo);
    if (control.kind == ControlSpec::Kind::months && conditions.from > conditions.to) warn(monthsReversed);
    if (control.kind == ControlSpec::Kind::projectRange && !last.empty() && end(ParameterKey::projectFrom) > last) {
      warn(projectsReversed);
    }
    const bool emptied = !conditions.accountRange.all && conditions.accountRange.accounts.empty();
    if (control.kind == ControlSpec::Kind::accountRange && emptied) warn(accountsReversed);
  }
  if (conditions.format == AmountFormat::foreignAlone) warn(shiftedForeignFormat);
  if (accountYear && *accountYear != session.logon.year) {
    warn(fmt::format("登录日期 {} 不在会计年度 {} 内，表中月份的年份与帐套不符。", isoText(session.logon),
                     *accountYear));
  }
  return notices;
}

}  // namespace tz
