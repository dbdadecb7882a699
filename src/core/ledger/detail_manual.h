// What the manual says of all detail ledgers, and of the multi-column ones besides.
#pragma once

#include <array>
#include <string_view>

namespace tz {

inline constexpr std::array<std::string_view, 7> detailRules = {
    "科目条件包括所选科目和它的全部下级科目。",
    "月份条件是凭证的会计期间；本月合计按凭证日期的月份结出，本年累计从起始月份起累计。凭证日期不在查询月份内的分录"
    "不列示，排在它后面而没有轮到的分录也不列示，条数写在表的上面。",
    "期初是起始月份的月初余额；包含未记帐凭证时，还要加上起始月份以前的未记帐分录。期初为零时没有期初行。",
    "方向按余额的正负显示，余额为零显示“平”；余额列是绝对值。贷方科目的期初余额以负数参加计算。",
    "未记帐凭证的分录用浅绿色，在同一月份内排在已记帐分录之后。",
    "单价、汇率由金额和数量、外币算出，除数为零时空着。",
    "金额式之外的格式由科目的计量单位和外币决定；跨多个科目的报表提供全部格式。",
};

inline constexpr std::array<std::string_view, 10> multiColumnRules = {
    detailRules[0],
    detailRules[1],
    detailRules[2],
    detailRules[3],
    detailRules[4],
    detailRules[5],
    "栏目是上级科目的直接下级科目中带有本类辅助核算的科目，按编码排列；不提供外币式。",
    "凭证行按科目编码归栏：分录科目是某栏科目本身、它的下级或它的上级，就填在第一个符合的栏里；没有符合的栏时填在"
    "日期列。上级科目在借方的，借方和贷方发生额都填列；在贷方的，只填列贷方发生额。",
    "本月合计、本年累计只加分录科目恰好是该栏科目的分录，所以记在上级科目或更下级科目上的分录不进入各栏合计。",
    "余额分析的各栏合计是借贷相抵后的净额，贷方科目反号；金额分析的各栏合计是每笔净额的绝对值之和。",
};

}  // namespace tz
