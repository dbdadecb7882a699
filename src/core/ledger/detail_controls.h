// Controls that the condition dialogs of the detail ledgers have in common.
#pragma once

#include "core/reports/dialog_spec.h"

namespace tz::controls {

using Kind = ControlSpec::Kind;

inline constexpr ControlSpec account{Kind::accountCombo, ParameterKey::account, 2206, 0, "科目"};
inline constexpr ControlSpec dept{Kind::deptReference, ParameterKey::dept, 8052, 2006, "部门"};
inline constexpr ControlSpec deptNameOrAll{Kind::deptReference, ParameterKey::dept, 8052, 2006, "部门", true};
inline constexpr ControlSpec deptList{Kind::deptCombo, ParameterKey::dept, 2207, 0, "部门"};
inline constexpr ControlSpec deptOrAll{Kind::deptCombo, ParameterKey::dept, 2207, 0, "部门", true};
inline constexpr ControlSpec person{Kind::personReference, ParameterKey::person, 2111, 2007, "个人"};
inline constexpr ControlSpec unit{Kind::unitReference, ParameterKey::unit, 2115, 2028, "单位"};
inline constexpr ControlSpec unitClass{Kind::unitClassCombo, ParameterKey::unitClass, 2210, 0, "分类"};
inline constexpr ControlSpec clerk{Kind::clerkCombo, ParameterKey::clerk, 2213, 0, "业务员"};
inline constexpr ControlSpec classOfAccount{Kind::classCombo, ParameterKey::projectClass, 2211, 0, "项目大类"};
inline constexpr ControlSpec project{Kind::projectReference, ParameterKey::project, 2117, 2015, "项目"};
inline constexpr ControlSpec months{Kind::months, ParameterKey::from, 2201, 2202, "月份"};
inline constexpr ControlSpec analysis{Kind::analysis, ParameterKey::analysis, 2464, 2409, "分析方式"};
inline constexpr ControlSpec unposted{Kind::checkBox, ParameterKey::unposted, 2601, 0, "包含未记帐凭证"};

}  // namespace tz::controls
