// Two-clearing as one record: the posted lines of one account and party up to a month, each with its mark.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "core/reports/marking.h"
#include "core/reports/report_definition.h"

namespace tz {

struct ClearingMember {
  ClearingKind kind;
  Sql (*lines)(const Conditions&);  // of the account and the party
  Rgb marked;                       // the ground of marked lines, and of the closing row
  Rgb closing;
  bool showsDirection = false;  // the listed lines' balance stands above them
};

struct ClearingReport : ReportDefinition {
  ClearingMember member;
};

inline constexpr std::string_view clearingFeature = "two-clearing";

inline constexpr std::array<std::string_view, 7> clearingRules = {
    "列出所选科目和所选个人或单位的已记帐分录，从期初分录到截止月份月末，按凭证日期、凭证字、凭证号、分录的次序。",
    "“两清”栏里“√”是手工勾对的，“○”是自动勾对的，空着的还没有两清；有标记的行有底色。",
    "在“两清”栏里单击，或按空格键，改一条分录：空的变成“√”，“√”和“○”都变回空的。标记立即写入帐套。",
    "反两清取消全部个人（或全部单位）在全部科目上的标记，不只是列出的这些；可以撤销。",
    "平衡检查比较有标记的行的借方与贷方：金额式和数量金额式比较金额，外币金额式和数量外币式比较外币。",
    "自动勾对只看未两清的分录：先找金额相同、方向相反、业务号相同（或都没有）的两条；单位往来中没有业务号而剩下的，"
    "借贷合计相等时全部勾对。外币科目比较外币。",
    "撤销取回最近一批标记：一次手工勾对、一次自动勾对或一次反两清，逐批向前。",
};

inline constexpr std::array<ColumnMeaning, 10> clearingMeanings = {{
    {"日期", "凭证日期。"},
    {"凭证号数", "凭证字和凭证号。"},
    {"部门", "按部门分组时，这条分录的部门。"},
    {"项目", "按项目分组时，这条分录的项目。"},
    {"业务员", "按业务员分组时，这条分录的业务员。"},
    {"摘要", "分录的摘要；小计、合计各行写明是什么数。"},
    {"业务号", "分录上的发票号、合同号等，自动勾对时用它配对。"},
    {"借方", "分录的借方发生额，带正负号。"},
    {"贷方", "分录的贷方发生额，带正负号。"},
    {"两清", "“√”是手工勾对的，“○”是自动勾对的，空着的还没有两清。"},
}};

// The computation of both; the report is a ClearingReport.
void computeClearing(const ReportDefinition& report, Session& session, const Conditions& conditions,
                     ComputedReport& computed);

[[nodiscard]] std::span<const ClearingReport* const> clearingReports();
[[nodiscard]] const ClearingReport& clearingReport(ClearingKind kind);

}  // namespace tz
