// Where the rows of balance tables and general ledgers lead: to the detail ledger of the same area, with the table's
// own conditions. A row is no condition, unless the ledger asks for a member that the table does not.
#pragma once

#include <string>

#include "core/reports/report_definition.h"

namespace tz {

// What must hold of the row, each with its message.
namespace drills {
bool anythingShown(const DrillPlace& place);
bool memberRow(const DrillPlace& place);  // no subtotal, no total, and not no row at all
bool rowWithDept(const DrillPlace& place);
bool noSum(const DrillPlace& place);
bool projectRow(const DrillPlace& place);  // not that of one of its accounts
bool projectAsked(const DrillPlace& place);
bool monthRow(const DrillPlace& place);
}  // namespace drills

inline constexpr Message noDetailOfNothing{"没有记录，不能查明细!"};
inline constexpr Message noMemberChosen{"请先选择一条记录"};
inline constexpr Message rowWithoutDept{"部门不能不空!"};
inline constexpr Message noProjectRow{"请选择项目记录!"};
inline constexpr Message noProjectChosen{"请选择产品名称!"};
inline constexpr Message noMonthChosen{"请选择要查询的月份。"};

inline constexpr DrillCheck somethingToDrill{drills::anythingShown, noDetailOfNothing,
                                             "表里没有行。先用“查询”改换条件。"};
inline constexpr DrillCheck onMember{drills::memberRow, noMemberChosen,
                                     "没有选行，或选的是小计、合计。选一行明细再试。"};
inline constexpr DrillCheck onMonth{drills::monthRow, noMonthChosen,
                                    "没有选行，或选的是上年结转、本年累计。选有月份的一行再试。"};
inline constexpr std::array memberChecks = {somethingToDrill, onMember};

[[nodiscard]] DrillAnswer memberTarget(const DrillRule& rule, const DrillPlace& place);
[[nodiscard]] DrillAnswer projectTarget(const DrillRule& rule, const DrillPlace& place);
[[nodiscard]] DrillAnswer periodTarget(const DrillRule& rule, const DrillPlace& place);
[[nodiscard]] DrillAnswer periodOfProjectTarget(const DrillRule& rule, const DrillPlace& place);

void fillUnitClass(DetailTarget& target, const Subject& subject, const std::string& name);
void fillDept(DetailTarget& target, const Subject& subject, const std::string& name);
void fillClerk(DetailTarget& target, const Subject& subject, const std::string& name);

// From a member's row, with what the row fills in where the ledger asks for it.
[[nodiscard]] constexpr DrillRule memberTo(int report, decltype(DrillRule::fill) fill = nullptr) {
  return {.reports = {report}, .checks = memberChecks, .target = memberTarget, .fill = fill};
}
// The row's department.
[[nodiscard]] constexpr DrillRule memberOfDeptTo(int report) {
  return {.reports = {report},
          .checks = {somethingToDrill,
                     onMember,
                     {drills::rowWithDept, rowWithoutDept, "这一行没有部门，没有明细帐可到。选有部门的一行。"}},
          .target = memberTarget,
          .fill = fillDept};
}
// From a project's own row.
[[nodiscard]] constexpr DrillRule projectTo(int report) {
  return {.reports = {report},
          .checks = {somethingToDrill,
                     {drills::noSum, noMemberChosen, "选的是合计。选一个项目的行再试。"},
                     {drills::projectRow, noProjectRow, "没有选行，或选的是项目下面的科目。选项目自己的一行再试。"}},
          .target = projectTarget};
}
// From a period's row, to that period alone.
[[nodiscard]] constexpr DrillRule periodTo(int report) {
  return {.reports = {report}, .checks = {somethingToDrill, onMonth}, .target = periodTarget};
}
// From a period of one project; of one department of it, to the ledger that can be asked for that.
[[nodiscard]] constexpr DrillRule periodOfProjectTo(int report, int reportOfDept) {
  return {.reports = {report, reportOfDept},
          .checks = {somethingToDrill,
                     {drills::projectAsked, noProjectChosen, "还没有选定项目。用“查询”选一个项目。"},
                     onMonth},
          .target = periodOfProjectTarget};
}

}  // namespace tz
