#include "shell/command_table.h"

#include <algorithm>
#include <iterator>

namespace tz {
namespace {

using enum Opens;
using enum Pointer;

// The subject details of the unit area open on the department area's window 542.
constexpr Command commands[] = {
    {10178, "OnTzAssistantArchivePerson", 1, "", 0, "", directory, none},
    {10179, "OnTzAssistantArchiveProject", 13, "", 0, "", directory, none},
    {10180, "OnTzAssistantArchiveUnit", 75, "", 0, "", directory, none},
    {10181, "OnTzAssistantArchiveBranch", 8, "", 0, "", directory, none},
    {10183, "OnTzAssistantPersonRemainSubject", 3, "科目余额表", 506, "个人往来_科目余额表", report, slot},
    {10184, "OnTzAssistantPersonDetailSubject", 4, "科目明细帐", 515, "个人往来_科目明细帐", report, slot},
    {10185, "OnTzAssistantPersonRemainBranch", 3, "部门余额表", 507, "个人往来_部门余额表", report, slot},
    {10186, "OnTzAssistantPersonDetailBranch", 4, "部门明细帐", 516, "个人往来_部门明细帐", report, slot},
    {10187, "OnTzAssistantPersonRemainPerson", 3, "个人余额表", 508, "个人往来_个人余额表", report, slot},
    {10188, "OnTzAssistantPersonDetailPerson", 4, "个人明细帐", 517, "个人往来_个人明细帐", report, slot},
    {10189, "OnTzAssistantPersonRemain3Column", 3, "三栏式余额表", 509, "个人往来_三栏式余额表", report, slot},
    {10190, "OnTzAssistantPersonDetail3Column", 4, "三栏式明细帐", 518, "个人往来_三栏明细帐", report, slot},
    {10191, "OnTzAssistantPersonDetailMulti", 4, "多栏式明细帐", 519, "个人往来_多栏式明细帐", report, slot},
    {10192, "OnTzAssistantPersonClear", 5, "", 523, "个人往来_个人往来两清", report, local},
    {10193, "OnTzAssistantPersonUrge", 6, "", 525, "个人往来催款单", report, local},
    {10194, "OnTzAssistantPersonYears", 7, "", 527, "个人往来帐龄分析", report, local},
    {10196, "OnTzAssistantUnitRemainSubject", 77, "科目余额表", 715, "单位往来_科目余额表", report, slot},
    {10197, "OnTzAssistantUnitRemainUnit", 77, "单位余额表", 709, "单位往来_单位余额表(详细)", report, slot},
    {10198, "OnTzAssistantUnitRemainClass", 77, "分类余额表", 711, "单位往来_分类余额表", report, slot},
    {10199, "OnTzAssistantUnitRemainBranch", 77, "部门余额表", 713, "单位往来_部门余额表", report, slot},
    {10200, "OnTzAssistantUnitRemainProject", 77, "项目余额表", 714, "单位往来_项目余额表", report, slot},
    {10201, "OnTzAssistantUnitRemain3Column", 77, "三栏式余额表", 710, "单位往来_三栏式余额表", report, slot},
    {10202, "OnTzAssistantUnitRemainPerson", 77, "业务员余额表", 712, "单位往来_业务员余额表", report, slot},
    {10203, "OnTzAssistantUnitDetailSubject", 78, "科目明细帐", 542, "部门管理_科目明细帐", report, slot},
    {10204, "OnTzAssistantUnitDetailUnit", 78, "单位明细帐", 639, "单位往来_单位明细帐", report, slot},
    {10205, "OnTzAssistantUnitDetailClass", 78, "分类明细帐", 633, "单位往来_分类明细帐", report, slot},
    {10206, "OnTzAssistantUnitDetailBranch", 78, "部门明细帐", 634, "单位往来_部门明细帐", report, slot},
    {10207, "OnTzAssistantUnitDetailProject", 78, "项目明细帐", 637, "单位往来_项目明细帐", report, slot},
    {10208, "OnTzAssistantUnitDetail3Column", 78, "三栏式明细帐", 632, "单位往来_三栏明细帐", report, slot},
    {10209, "OnTzAssistantUnitDetailMulti", 78, "多栏式明细帐", 635, "单位往来_多栏式明细帐", report, slot},
    {10210, "OnTzAssistantUnitDetailPerson", 78, "业务员明细帐", 636, "单位往来_业务员明细帐", report, slot},
    {10211, "OnTzAssistantUnitClear", 79, "", 887, "单位往来_单位往来两清", report, local},
    {10212, "OnTzAssistantUnitUrge", 80, "", 888, "单位往来对帐单", report, local},
    {10213, "OnTzAssistantUnitYears", 81, "", 911, "单位往来帐龄分析", report, local},
    {10215, "OnTzAssistantProjectRemainSubject", 16, "科目总帐", 889, "项目管理_科目总帐", report, slot},
    {10216, "OnTzAssistantProjectRemainProject", 16, "项目总帐", 890, "项目管理_项目总帐", report, slot},
    {10217, "OnTzAssistantProjectRemain3Column", 16, "三栏式总帐", 909, "项目管理_三栏总帐", report, slot},
    {10218, "OnTzAssistantProjectRemainBranch", 16, "部门项目总帐", 910, "项目管理_部门总帐", report, slot},
    {10219, "OnTzAssistantProjectDetailSubject", 17, "科目明细帐", 906, "项目管理_科目明细帐", report, slot},
    {10220, "OnTzAssistantProjectDetailProject", 17, "项目明细帐", 905, "项目管理_项目明细帐", report, slot},
    {10221, "OnTzAssistantProjectDetail3Column", 17, "三栏式明细帐", 902, "项目管理_三栏明细帐", report, slot},
    {10222, "OnTzAssistantProjectDetailBranch", 17, "部门项目明细帐", 903, "项目管理_部门明细帐", report, slot},
    {10223, "OnTzAssistantProjectDetailMulti", 17, "多栏式明细帐", 904, "项目管理_多栏明细帐", report, slot},
    {10224, "OnTzAssistantProjectStatistics", 18, "", 1172, "项目统计表", report, local},
    {10226, "OnTzAssistantBranchSumupSubject", 10, "科目总帐", 537, "部门管理_科目总帐", report, slot},
    {10227, "OnTzAssistantBranchSumupBranch", 10, "部门总帐", 536, "部门管理_部门总帐", report, slot},
    {10228, "OnTzAssistantBranchSumup3Column", 10, "三栏式总帐", 535, "部门管理_三栏式总帐", report, slot},
    {10229, "OnTzAssistantBranchDetailSubject", 11, "科目明细帐", 542, "部门管理_科目明细帐", report, slot},
    {10230, "OnTzAssistantBranchDetailBranch", 11, "部门明细帐", 543, "部门管理_部门明细帐", report, slot},
    {10231, "OnTzAssistantBranchDetail3Column", 11, "三栏式明细帐", 901, "部门管理_三栏明细帐", report, slot},
    {10232, "OnTzAssistantBranchDetailMulti", 11, "多栏式明细帐", 545, "部门管理_多栏明细帐", report, slot},
    {10233, "OnTzAssistantBranchAnalyse", 12, "", 913, "部门收支分析表", report, local},
    {10235, "OnTzAssistantPlanSetup", 19, "", 571, "计划编制", dialog, none},
    {10236, "OnTzAssistantPlanSubject", 20, "", 579, "科目计划执行报告", report, local},
    {10237, "OnTzAssistantPlanBranch", 21, "", 580, "部门计划执行报告", report, local},
    {10238, "OnTzAssistantPlanProject", 22, "", 581, "项目计划执行报告", report, local},
};

}  // namespace

std::span<const Command> allCommands() { return commands; }

const Command* findCommand(int id) {
  const auto* found = std::ranges::find(commands, id, &Command::id);
  return found == std::end(commands) ? nullptr : found;
}

}  // namespace tz
