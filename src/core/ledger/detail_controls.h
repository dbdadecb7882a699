// Controls that the condition dialogs of ledgers and balance tables have in common.
#pragma once

#include "core/reports/dialog_spec.h"

namespace tz::controls {

using Kind = ControlSpec::Kind;

inline constexpr ControlSpec account{
    .kind = Kind::accountCombo, .key = ParameterKey::account, .id = 2206, .caption = "科目"};
inline constexpr ControlSpec dept{
    .kind = Kind::deptReference, .key = ParameterKey::dept, .id = 8052, .companion = 2006, .caption = "部门"};
inline constexpr ControlSpec deptNameOrAll{.kind = Kind::deptReference,
                                           .key = ParameterKey::dept,
                                           .id = 8052,
                                           .companion = 2006,
                                           .caption = "部门",
                                           .all = true};
inline constexpr ControlSpec deptList{
    .kind = Kind::deptCombo, .key = ParameterKey::dept, .id = 2207, .caption = "部门"};
inline constexpr ControlSpec deptOrAll{
    .kind = Kind::deptCombo, .key = ParameterKey::dept, .id = 2207, .caption = "部门", .all = true};
inline constexpr ControlSpec person{
    .kind = Kind::personReference, .key = ParameterKey::person, .id = 2111, .companion = 2007, .caption = "个人"};
inline constexpr ControlSpec unit{
    .kind = Kind::unitReference, .key = ParameterKey::unit, .id = 2115, .companion = 2028, .caption = "单位"};
inline constexpr ControlSpec unitOrAll{.kind = Kind::unitReference,
                                       .key = ParameterKey::unit,
                                       .id = 2115,
                                       .companion = 2028,
                                       .caption = "单位",
                                       .all = true};
inline constexpr ControlSpec unitClass{
    .kind = Kind::unitClassCombo, .key = ParameterKey::unitClass, .id = 2210, .caption = "分类"};
inline constexpr ControlSpec clerk{
    .kind = Kind::clerkCombo, .key = ParameterKey::clerk, .id = 2213, .caption = "业务员"};
inline constexpr ControlSpec classOfAccount{
    .kind = Kind::classCombo, .key = ParameterKey::projectClass, .id = 2211, .caption = "项目大类"};
inline constexpr ControlSpec project{
    .kind = Kind::projectReference, .key = ParameterKey::project, .id = 2117, .companion = 2015, .caption = "项目"};
inline constexpr ControlSpec months{
    .kind = Kind::months, .key = ParameterKey::from, .id = 2201, .companion = 2202, .caption = "月份"};
inline constexpr ControlSpec analysis{
    .kind = Kind::analysis, .key = ParameterKey::analysis, .id = 2464, .companion = 2409, .caption = "分析方式"};
inline constexpr ControlSpec unposted{
    .kind = Kind::checkBox, .key = ParameterKey::unposted, .id = 2601, .caption = "包含未记帐凭证"};

inline constexpr ControlSpec amountRange{
    .kind = Kind::amountRange, .key = ParameterKey::minimum, .id = 2113, .companion = 2114, .caption = "余额"};
inline constexpr ControlSpec side{.kind = Kind::side, .key = ParameterKey::side, .id = 2405, .caption = "方向"};
inline constexpr ControlSpec creditLimit{
    .kind = Kind::checkBox, .key = ParameterKey::creditLimit, .id = 2604, .caption = "显示信用额度"};

}  // namespace tz::controls
