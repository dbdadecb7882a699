#include "desktop/shell/command_table.h"

#include <algorithm>
#include <iterator>

namespace tz {
namespace {

using enum Opens;
using enum Pointer;

// The subject details of the unit area open on the department area's window 542.
constexpr Command commands[] = {
    {10178, 1, "OnTzAssistantArchivePerson", "", "", 0, directory, none},
    {10179, 13, "OnTzAssistantArchiveProject", "", "", 0, directory, none},
    {10180, 75, "OnTzAssistantArchiveUnit", "", "", 0, directory, none},
    {10181, 8, "OnTzAssistantArchiveBranch", "", "", 0, directory, none},
    {10183, 3, "OnTzAssistantPersonRemainSubject", "科目余额表", "个人往来_科目余额表", 506, report, slot},
    {10184, 4, "OnTzAssistantPersonDetailSubject", "科目明细帐", "个人往来_科目明细帐", 515, report, slot},
    {10185, 3, "OnTzAssistantPersonRemainBranch", "部门余额表", "个人往来_部门余额表", 507, report, slot},
    {10186, 4, "OnTzAssistantPersonDetailBranch", "部门明细帐", "个人往来_部门明细帐", 516, report, slot},
    {10187, 3, "OnTzAssistantPersonRemainPerson", "个人余额表", "个人往来_个人余额表", 508, report, slot},
    {10188, 4, "OnTzAssistantPersonDetailPerson", "个人明细帐", "个人往来_个人明细帐", 517, report, slot},
    {10189, 3, "OnTzAssistantPersonRemain3Column", "三栏式余额表", "个人往来_三栏式余额表", 509, report, slot},
    {10190, 4, "OnTzAssistantPersonDetail3Column", "三栏式明细帐", "个人往来_三栏明细帐", 518, report, slot},
    {10191, 4, "OnTzAssistantPersonDetailMulti", "多栏式明细帐", "个人往来_多栏式明细帐", 519, report, slot},
    {10192, 5, "OnTzAssistantPersonClear", "", "个人往来_个人往来两清", 523, report, local},
    {10193, 6, "OnTzAssistantPersonUrge", "", "个人往来催款单", 525, report, local},
    {10194, 7, "OnTzAssistantPersonYears", "", "个人往来帐龄分析", 527, report, local},
    {10196, 77, "OnTzAssistantUnitRemainSubject", "科目余额表", "单位往来_科目余额表", 715, report, slot},
    {10197, 77, "OnTzAssistantUnitRemainUnit", "单位余额表", "单位往来_单位余额表(详细)", 709, report, slot},
    {10198, 77, "OnTzAssistantUnitRemainClass", "分类余额表", "单位往来_分类余额表", 711, report, slot},
    {10199, 77, "OnTzAssistantUnitRemainBranch", "部门余额表", "单位往来_部门余额表", 713, report, slot},
    {10200, 77, "OnTzAssistantUnitRemainProject", "项目余额表", "单位往来_项目余额表", 714, report, slot},
    {10201, 77, "OnTzAssistantUnitRemain3Column", "三栏式余额表", "单位往来_三栏式余额表", 710, report, slot},
    {10202, 77, "OnTzAssistantUnitRemainPerson", "业务员余额表", "单位往来_业务员余额表", 712, report, slot},
    {10203, 78, "OnTzAssistantUnitDetailSubject", "科目明细帐", "部门管理_科目明细帐", 542, report, slot},
    {10204, 78, "OnTzAssistantUnitDetailUnit", "单位明细帐", "单位往来_单位明细帐", 639, report, slot},
    {10205, 78, "OnTzAssistantUnitDetailClass", "分类明细帐", "单位往来_分类明细帐", 633, report, slot},
    {10206, 78, "OnTzAssistantUnitDetailBranch", "部门明细帐", "单位往来_部门明细帐", 634, report, slot},
    {10207, 78, "OnTzAssistantUnitDetailProject", "项目明细帐", "单位往来_项目明细帐", 637, report, slot},
    {10208, 78, "OnTzAssistantUnitDetail3Column", "三栏式明细帐", "单位往来_三栏明细帐", 632, report, slot},
    {10209, 78, "OnTzAssistantUnitDetailMulti", "多栏式明细帐", "单位往来_多栏式明细帐", 635, report, slot},
    {10210, 78, "OnTzAssistantUnitDetailPerson", "业务员明细帐", "单位往来_业务员明细帐", 636, report, slot},
    {10211, 79, "OnTzAssistantUnitClear", "", "单位往来_单位往来两清", 887, report, local},
    {10212, 80, "OnTzAssistantUnitUrge", "", "单位往来对帐单", 888, report, local},
    {10213, 81, "OnTzAssistantUnitYears", "", "单位往来帐龄分析", 911, report, local},
    {10215, 16, "OnTzAssistantProjectRemainSubject", "科目总帐", "项目管理_科目总帐", 889, report, slot},
    {10216, 16, "OnTzAssistantProjectRemainProject", "项目总帐", "项目管理_项目总帐", 890, report, slot},
    {10217, 16, "OnTzAssistantProjectRemain3Column", "三栏式总帐", "项目管理_三栏总帐", 909, report, slot},
    {10218, 16, "OnTzAssistantProjectRemainBranch", "部门项目总帐", "项目管理_部门总帐", 910, report, slot},
    {10219, 17, "OnTzAssistantProjectDetailSubject", "科目明细帐", "项目管理_科目明细帐", 906, report, slot},
    {10220, 17, "OnTzAssistantProjectDetailProject", "项目明细帐", "项目管理_项目明细帐", 905, report, slot},
    {10221, 17, "OnTzAssistantProjectDetail3Column", "三栏式明细帐", "项目管理_三栏明细帐", 902, report, slot},
    {10222, 17, "OnTzAssistantProjectDetailBranch", "部门项目明细帐", "项目管理_部门明细帐", 903, report, slot},
    {10223, 17, "OnTzAssistantProjectDetailMulti", "多栏式明细帐", "项目管理_多栏明细帐", 904, report, slot},
    {10224, 18, "OnTzAssistantProjectStatistics", "", "项目统计表", 1172, report, local},
    {10226, 10, "OnTzAssistantBranchSumupSubject", "科目总帐", "部门管理_科目总帐", 537, report, slot},
    {10227, 10, "OnTzAssistantBranchSumupBranch", "部门总帐", "部门管理_部门总帐", 536, report, slot},
    {10228, 10, "OnTzAssistantBranchSumup3Column", "三栏式总帐", "部门管理_三栏式总帐", 535, report, slot},
    {10229, 11, "OnTzAssistantBranchDetailSubject", "科目明细帐", "部门管理_科目明细帐", 542, report, slot},
    {10230, 11, "OnTzAssistantBranchDetailBranch", "部门明细帐", "部门管理_部门明细帐", 543, report, slot},
    {10231, 11, "OnTzAssistantBranchDetail3Column", "三栏式明细帐", "部门管理_三栏明细帐", 901, report, slot},
    {10232, 11, "OnTzAssistantBranchDetailMulti", "多栏式明细帐", "部门管理_多栏明细帐", 545, report, slot},
    {10233, 12, "OnTzAssistantBranchAnalyse", "", "部门收支分析表", 913, report, local},
    {10235, 19, "OnTzAssistantPlanSetup", "", "计划编制", 571, dialog, none},
    {10236, 20, "OnTzAssistantPlanSubject", "", "科目计划执行报告", 579, report, local},
    {10237, 21, "OnTzAssistantPlanBranch", "", "部门计划执行报告", 580, report, local},
    {10238, 22, "OnTzAssistantPlanProject", "", "项目计划执行报告", 581, report, local},
};

}  // namespace

std::span<const Command> allCommands() { return commands; }

const Command* findCommand(int id) {
  const auto* found = std::ranges::find(commands, id, &Command::id);
  return found == std::end(commands) ? nullptr : found;
}

}  // namespace tz
