#include "core/reports/condition_texts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace tz {
namespace {

constexpr std::string_view monthsReversed = "起始月份在终止月份之后。";
constexpr std::string_view projectsReversed = "起始项目在终止项目之后。";
constexpr std::string_view shiftedForeignFormat = "外币式沿用七栏表头：借方外币在“贷方”栏，贷方外币在“余额”栏。";

std::string pickedAccounts(const Conditions& conditions) {
  const auto picked = conditions.request.list(ParameterKey::account);
  if (picked.empty()) return std::string(allMembers);
  std::vector<std::string> codes;
  for (const auto& account : picked) codes.push_back(CGetData::GetCode_Separator(account));
  return fmt::format("{}", fmt::join(codes, "、"));
}

std::string projectRange(const Conditions& conditions) {
  const auto end = [&](ParameterKey key) {
    const auto code = CGetData::GetCode_Separator(conditions.request.text(key));
    return code.empty() ? std::string("不限") : code;
  };
  if (conditions.projects.all) return {};
  return fmt::format("项目范围: {} 至 {}", end(ParameterKey::projectFrom), end(ParameterKey::projectTo));
}

std::string amountRange(const Conditions& conditions) {
  const auto end = [&](ParameterKey key) {
    const auto bound = conditions.request.text(key);
    return bound.empty() ? std::string("不限") : bound;
  };
  const bool none =
      conditions.request.amount(ParameterKey::minimum) == 0 && conditions.request.amount(ParameterKey::maximum) == 0;
  return none ? "" : fmt::format("金额范围: {} 至 {}", end(ParameterKey::minimum), end(ParameterKey::maximum));
}

std::string side(BalanceSide chosen) {
  switch (chosen) {
    case BalanceSide::both:
      return {};
    case BalanceSide::debit:
      return "方向: 借方";
    case BalanceSide::credit:
      return "方向: 贷方";
  }
  return {};
}

std::string project(const Conditions& conditions) {
  return fmt::format("项目: {} {}", conditions.projectClass.sName, conditions.project.fields.at(1));
}

// The member that a control names; empty for controls that name none.
std::string memberOf(ControlSpec::Kind kind, const Conditions& conditions) {
  switch (kind) {
    case ControlSpec::Kind::accountCombo:
      return conditions.accountText();
    case ControlSpec::Kind::deptReference:
    case ControlSpec::Kind::deptCombo:
      return conditions.dept.sDeptName;
    case ControlSpec::Kind::personReference:
      return conditions.person.sName;
    case ControlSpec::Kind::unitReference:
      return conditions.unit.sEnterName;
    case ControlSpec::Kind::unitClassCombo:
      return conditions.unitClass.sName;
    case ControlSpec::Kind::clerkCombo:
      return conditions.clerk.shown();
    case ControlSpec::Kind::classCombo:
      return conditions.projectClass.sName;
    default:
      return {};
  }
}

// Gives the member of a control another name.
void rename(ControlSpec::Kind kind, Conditions& conditions) {
  const std::string other = memberOf(kind, conditions) + "?";
  switch (kind) {
    case ControlSpec::Kind::accountCombo:
      conditions.account.sName += "?";
      break;
    case ControlSpec::Kind::deptReference:
    case ControlSpec::Kind::deptCombo:
      conditions.dept.sDeptName = other;
      break;
    case ControlSpec::Kind::personReference:
      conditions.person.sName = other;
      break;
    case ControlSpec::Kind::unitReference:
      conditions.unit.sEnterName = other;
      break;
    case ControlSpec::Kind::unitClassCombo:
      conditions.unitClass.sName = other;
      break;
    case ControlSpec::Kind::clerkCombo:
      conditions.clerk.name = other;
      break;
    default:
      break;
  }
}

// Whether the subtitle changes with the member that the control names.
bool inSubtitle(const ReportDefinition& report, ControlSpec::Kind kind, const Conditions& conditions) {
  Conditions renamed = conditions;
  rename(kind, renamed);
  return report.subtitle(renamed) != report.subtitle(conditions);
}

}  // namespace

std::string conditionText(const ControlSpec& control, const Conditions& conditions) {
  const auto captioned = [&](const std::string& value) {
    return value.empty() ? "" : fmt::format("{}: {}", control.caption, value);
  };
  switch (control.kind) {
    case ControlSpec::Kind::months:
      return {};
    case ControlSpec::Kind::accountLists:
      return "科目: " + pickedAccounts(conditions);
    case ControlSpec::Kind::projectReference:
      return project(conditions);
    case ControlSpec::Kind::projectRange:
      return projectRange(conditions);
    case ControlSpec::Kind::amountRange:
      return amountRange(conditions);
    case ControlSpec::Kind::side:
      return side(static_cast<BalanceSide>(conditions.request.choice(control.key)));
    case ControlSpec::Kind::date:
      return captioned(conditions.request.text(control.key));
    case ControlSpec::Kind::analysis:
      return std::string(analyses.at(static_cast<std::size_t>(conditions.analysis)).caption);
    case ControlSpec::Kind::checkBox:
      return conditions.request.flag(control.key) ? std::string(control.caption) : "";
    default:
      return captioned(memberOf(control.kind, conditions));
  }
}

std::vector<std::string> conditionTexts(const ReportDefinition& report, const Conditions& conditions) {
  std::vector<std::string> texts;
  for (const auto& control : report.dialog.controls) {
    auto text = conditionText(control, conditions);
    if (!text.empty() && !inSubtitle(report, control.kind, conditions)) texts.push_back(std::move(text));
  }
  if (report.formats != nullptr && conditions.format != AmountFormat::amount) {
    texts.push_back(fmt::format("金额格式: {}", formatName(conditions.format)));
  }
  return texts;
}

std::vector<Notice> conditionNotices(const ReportDefinition& report, const Conditions& conditions,
                                     const Session& session) {
  std::vector<Notice> notices;
  const auto warn = [&](std::string_view text) { notices.push_back({std::string(text), Notice::Weight::warning}); };
  for (const auto& control : report.dialog.controls) {
    const auto end = [&](ParameterKey key) { return CGetData::GetCode_Separator(conditions.request.text(key)); };
    const auto last = end(ParameterKey::projectTo);
    if (control.kind == ControlSpec::Kind::months && conditions.from > conditions.to) warn(monthsReversed);
    if (control.kind == ControlSpec::Kind::projectRange && !last.empty() && end(ParameterKey::projectFrom) > last) {
      warn(projectsReversed);
    }
  }
  if (conditions.format == AmountFormat::foreignAlone) warn(shiftedForeignFormat);
  if (const auto year = accountYear(session.db); year && *year != session.logon.year) {
    warn(fmt::format("登录日期 {} 不在会计年度 {} 内，表中月份的年份与帐套不符。", isoText(session.logon), *year));
  }
  return notices;
}

}  // namespace tz
