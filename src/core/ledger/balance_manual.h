// What the manual says of all balance tables, general ledgers and three-column tables.
#pragma once

#include <array>
#include <string_view>

namespace tz {

inline constexpr std::array<std::string_view, 7> balanceRules = {
    "科目条件包括所选科目和它的全部下级科目。",
    "期初是该行在查询月份内第一个有余额记录的月份的月初余额，借方、贷方是查询月份的发生额，期末＝期初＋借方－贷方。",
    "包含未记帐凭证时，查询月份内的未记帐分录加进发生额；有的报表还把起始月份以前的未记帐分录加进期初，只加金额，"
    "不加数量和外币，报表的说明里写明。",
    "方向按余额的正负显示：期初小于 0.0001、期末小于 0.00001 为“平”；合计按自己的余额另算，小于 0.00001 为“平”。"
    "金额列是绝对值，发生额带正负号。贷方科目的余额以负数参加计算。",
    "查询月份内有余额记录的，各项全为零也列出；只有未记帐分录的也列出。",
    "有余额范围和方向的报表按期末余额（绝对值，含两端）选行，上限和下限都为零则不选；小计与合计只加列出的行。",
    "金额式之外的格式由科目的计量单位和外币决定；跨多个科目的报表提供全部格式。",
};

inline constexpr std::array<std::string_view, 7> latestRecordRules = {
    balanceRules[0],
    "期初取每个科目和核算对象在起始月份或以前最近一个月的余额记录：是起始月份的取月初余额，是以前月份的取月末余额；"
    "借方、贷方是查询月份的发生额，期末＝期初＋借方－贷方。",
    balanceRules[2],
    balanceRules[3],
    "起始月份或以前、查询月份内有余额记录的，各项全为零也列出；只有未记帐分录的也列出。",
    balanceRules[5],
    balanceRules[6],
};

inline constexpr std::array<std::string_view, 5> periodRules = {
    balanceRules[0],
    "上年结转是查询月份内第一个有余额记录的月份的月初余额，总是列出；以后每个有余额记录的月份一行，写本月发生额和"
    "月末余额；没有记录、也没有包含的未记帐分录的月份不列。",
    "包含未记帐凭证时，查询月份内的未记帐分录加进各月的发生额。",
    "方向按余额的正负显示，上年结转小于 0.00001、各月小于 0.0001 "
    "为“平”；余额列是绝对值，为零的格空着。贷方科目的余额以负数参加计算。",
    "金额式之外的格式由科目的计量单位和外币决定；单价、汇率由余额的金额和数量、外币算出。",
};

inline constexpr std::array<std::string_view, 6> yearTotalRules = {
    periodRules[0], periodRules[1], "每个月份的本月合计后面有本年累计，从查询的第一个月份起累计。",
    periodRules[2], periodRules[3], periodRules[4],
};

}  // namespace tz
