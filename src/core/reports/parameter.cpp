#include "core/reports/parameter.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace tz {
namespace {

using ParameterKind = Parameter::Kind;

constexpr std::array parameters = {
    Parameter{ParameterKey::account,
              "account",
              "科目",
              ParameterKind::list,
              "CODE",
              "科目编码，例如 122101；可选多个科目的报表可重复",
              {},
              "科目，含其下级；输入编码、名称或拼音首字母即可查找"},
    Parameter{ParameterKey::dept, "dept", "部门", ParameterKind::text, "NAME",
              "部门名称；可选全部部门的报表为“全部”；同名的在前面加编码，如“0301 销售部”"},
    Parameter{ParameterKey::person, "person", "个人", ParameterKind::text, "NAME",
              "个人姓名；同名的在前面加编码，如“0301 李明”"},
    Parameter{ParameterKey::unit, "unit", "单位", ParameterKind::text, "NAME", "单位名称；同名的在前面加编码"},
    Parameter{ParameterKey::unitClass, "unit-class", "分类", ParameterKind::text, "NAME",
              "单位分类名称，“其它”为没有分类的单位"},
    Parameter{ParameterKey::clerk, "clerk", "业务员", ParameterKind::text, "NAME",
              "业务员，“其它”为没有业务员的分录和单位"},
    Parameter{ParameterKey::projectClass,
              "project-class",
              "项目大类",
              ParameterKind::text,
              "ID",
              "项目大类的编号",
              {},
              "项目大类"},
    Parameter{ParameterKey::project, "project", "项目", ParameterKind::text, "NAME", "项目名称；同名的在前面加编码"},
    Parameter{ParameterKey::projectFrom, "project-from", "起始项目", ParameterKind::text, "CODE", "项目范围的起始编码"},
    Parameter{ParameterKey::projectTo, "project-to", "终止项目", ParameterKind::text, "CODE", "项目范围的终止编码"},
    Parameter{ParameterKey::from,
              "from",
              "起始月份",
              ParameterKind::month,
              "M",
              "起始月份 1–12，缺省为登录月份",
              {},
              "起始和终止月份；首次打开时为登录月份"},
    Parameter{ParameterKey::to, "to", "终止月份", ParameterKind::month, "M", "终止月份 1–12，缺省为登录月份"},
    Parameter{ParameterKey::unposted, "unposted", "包含未记帐凭证", ParameterKind::flag, "", "包含未记帐凭证"},
    Parameter{ParameterKey::minimum, "min", "余额下限", ParameterKind::amount, "X", "余额范围的下限"},
    Parameter{ParameterKey::maximum, "max", "余额上限", ParameterKind::amount, "Y", "余额范围的上限"},
    Parameter{ParameterKey::side, "side", "余额方向", ParameterKind::choice, "SIDE",
              "both 双方余额，debit 借方余额，credit 贷方余额", "both|debit|credit", "双方、借方或贷方余额"},
    Parameter{ParameterKey::cutoff, "cutoff", "截止日期", ParameterKind::date, "YYYY-MM-DD", "截止日期"},
    Parameter{ParameterKey::analysis, "analysis", "分析方式", ParameterKind::choice, "METHOD",
              "balance 余额分析，amount 金额分析；缺省为余额分析", "balance|amount", "余额分析或金额分析"},
    Parameter{ParameterKey::format, "format", "金额格式", ParameterKind::text, "NAME",
              "金额式、数量金额式、外币金额式、数量外币式，明细帐另有外币式；缺省为科目自身的格式"},
};

}  // namespace

std::span<const Parameter> allParameters() { return parameters; }

const Parameter& parameter(ParameterKey key) {
  const auto* const found = std::ranges::find(parameters, key, &Parameter::key);
  assert(found != parameters.end());
  return *found;
}

std::string WrongUse::withOption() const {
  return about_ ? "--" + std::string(parameter(*about_).option) + "：" + what() : what();
}

std::string WrongUse::withLabel() const {
  return about_ ? std::string(parameter(*about_).label) + "：" + what() : what();
}

std::vector<std::string_view> choicesOf(std::string_view choices) {
  std::vector<std::string_view> all;
  for (;;) {
    const auto end = choices.find('|');
    all.push_back(choices.substr(0, end));
    if (end == std::string_view::npos) return all;
    choices.remove_prefix(end + 1);
  }
}

}  // namespace tz
