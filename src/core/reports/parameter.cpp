#include "core/reports/parameter.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace tz {
namespace {

using ParameterKind = Parameter::Kind;

constexpr std::array parameters = {
    Parameter{.key = ParameterKey::account,
              .option = "account",
              .label = "科目",
              .kind = ParameterKind::list,
              .valueName = "CODE",
              .help = "科目编码，例如 122101；可选多个科目的报表可重复",
              .fieldHelp = "科目，含其下级；输入编码、名称或拼音首字母即可查找",
              .byCode = true},
    Parameter{.key = ParameterKey::dept,
              .option = "dept",
              .label = "部门",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "部门名称；可选全部部门的报表为“全部”；同名的在前面加编码，如“0301 销售部”"},
    Parameter{.key = ParameterKey::person,
              .option = "person",
              .label = "个人",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "个人姓名；同名的在前面加编码，如“0301 李明”"},
    Parameter{.key = ParameterKey::unit,
              .option = "unit",
              .label = "单位",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "单位名称；同名的在前面加编码"},
    Parameter{.key = ParameterKey::unitClass,
              .option = "unit-class",
              .label = "分类",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "单位分类名称，“其它”为没有分类的单位"},
    Parameter{.key = ParameterKey::clerk,
              .option = "clerk",
              .label = "业务员",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "业务员，“其它”为没有业务员的分录和单位"},
    Parameter{.key = ParameterKey::projectClass,
              .option = "project-class",
              .label = "项目大类",
              .kind = ParameterKind::text,
              .valueName = "ID",
              .help = "项目大类的编号",
              .fieldHelp = "项目大类",
              .byCode = true},
    Parameter{.key = ParameterKey::project,
              .option = "project",
              .label = "项目",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "项目名称；同名的在前面加编码"},
    Parameter{.key = ParameterKey::projectFrom,
              .option = "project-from",
              .label = "起始项目",
              .kind = ParameterKind::text,
              .valueName = "CODE",
              .help = "项目范围的起始编码",
              .byCode = true},
    Parameter{.key = ParameterKey::projectTo,
              .option = "project-to",
              .label = "终止项目",
              .kind = ParameterKind::text,
              .valueName = "CODE",
              .help = "项目范围的终止编码",
              .byCode = true},
    Parameter{.key = ParameterKey::from,
              .option = "from",
              .label = "起始月份",
              .kind = ParameterKind::month,
              .valueName = "M",
              .help = "起始月份 1–12，缺省为登录月份",
              .fieldHelp = "起始和终止月份；首次打开时为登录月份"},
    Parameter{.key = ParameterKey::to,
              .option = "to",
              .label = "终止月份",
              .kind = ParameterKind::month,
              .valueName = "M",
              .help = "终止月份 1–12，缺省为登录月份"},
    Parameter{.key = ParameterKey::unposted,
              .option = "unposted",
              .label = "包含未记帐凭证",
              .kind = ParameterKind::flag,
              .help = "包含未记帐凭证"},
    Parameter{.key = ParameterKey::minimum,
              .option = "min",
              .label = "余额下限",
              .kind = ParameterKind::amount,
              .valueName = "X",
              .help = "余额范围的下限"},
    Parameter{.key = ParameterKey::maximum,
              .option = "max",
              .label = "余额上限",
              .kind = ParameterKind::amount,
              .valueName = "Y",
              .help = "余额范围的上限"},
    Parameter{.key = ParameterKey::side,
              .option = "side",
              .label = "余额方向",
              .kind = ParameterKind::choice,
              .valueName = "SIDE",
              .help = "both 双方余额，debit 借方余额，credit 贷方余额",
              .choices = balanceSides,
              .fieldHelp = "双方、借方或贷方余额"},
    Parameter{.key = ParameterKey::cutoff,
              .option = "cutoff",
              .label = "截止日期",
              .kind = ParameterKind::date,
              .valueName = "YYYY-MM-DD",
              .help = "截止日期"},
    Parameter{.key = ParameterKey::analysis,
              .option = "analysis",
              .label = "分析方式",
              .kind = ParameterKind::choice,
              .valueName = "METHOD",
              .help = "balance 余额分析，amount 金额分析；缺省为余额分析",
              .choices = analyses,
              .fieldHelp = "余额分析或金额分析"},
    Parameter{.key = ParameterKey::format,
              .option = "format",
              .label = "金额格式",
              .kind = ParameterKind::text,
              .valueName = "NAME",
              .help = "金额式、数量金额式、外币金额式、数量外币式，有的报表另有外币式；缺省为科目自身的格式"},
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

}  // namespace tz
