#include "core/plan/plan_launch_checks.h"

#include "support/launch_refusals.h"

namespace tz::test {
namespace {

class PlanLaunchChecks : public LaunchRefusals {};
TZ_ON_BOTH_DATABASES(PlanLaunchChecks);

TEST_P(PlanLaunchChecks, DepartmentPlansCountForAccountsKeptByDepartmentsOnly) {
  ledger_.fill("Code", R"(
      lId | sCode | sName | sAssBook
      1   | 1221  | 其他  | AC
      2   | 6601  | 销售  | C
      3   | 6602  | 管理  | DC )");
  // An account that mixes other flags in, one that is unknown, and a plan without a department.
  ledger_.fill("Plan", R"(
      lId | lCodeId | lDeptId | byPeroid | mPPlan
      1   | 1       | 5       | 1        | 100
      2   | 99      | 5       | 1        | 100
      3   | 2       | 0       | 1        | 100 )");
  EXPECT_EQ(refusal(departmentPlanChecks), messages::noPlanAccount.text);
  ledger_.fill("Plan", R"(
      lId | lCodeId | lDeptId | byPeroid | mPPlan
      4   | 3       | 5       | 2        | 100 )");
  EXPECT_EQ(refusal(departmentPlanChecks), "");
}

TEST_P(PlanLaunchChecks, ProjectPlansNeedAClass) {
  ledger_.fill("Plan", R"(
      lId | lCodeId | lItemId | sItemId | byPeroid
      1   | 1       | 3       |         | 1 )");
  EXPECT_EQ(refusal(projectPlanChecks), messages::noPlanProjectClass.text);
  ledger_.fill("Plan", R"(
      lId | lCodeId | lItemId | sItemId | byPeroid
      2   | 1       | 3       | A1      | 1 )");
  EXPECT_EQ(refusal(projectPlanChecks), "");
}

}  // namespace
}  // namespace tz::test
