#include "reports/parameter.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace tz {
namespace {

using Kind = Parameter::Kind;

constexpr std::array parameters = {
    Parameter{ParameterKey::account, "account", Kind::text, "CODE", "科目编码，例如 122101"},
    Parameter{ParameterKey::dept, "dept", Kind::text, "NAME", "部门名称"},
    Parameter{ParameterKey::person, "person", Kind::text, "NAME", "个人姓名"},
    Parameter{ParameterKey::from, "from", Kind::month, "M", "起始月份 1–12，缺省为登录月份"},
    Parameter{ParameterKey::to, "to", Kind::month, "M", "终止月份 1–12，缺省为登录月份"},
    Parameter{ParameterKey::unposted, "unposted", Kind::flag, "", "包含未记帐凭证"},
    Parameter{ParameterKey::format, "format", Kind::text, "NAME",
              "金额式、数量金额式、外币金额式、数量外币式，明细帐另有外币式；缺省为科目自身的格式"},
};

}  // namespace

std::span<const Parameter> allParameters() { return parameters; }

const Parameter& parameter(ParameterKey key) {
  const auto* const found = std::ranges::find(parameters, key, &Parameter::key);
  assert(found != parameters.end());
  return *found;
}

}  // namespace tz
