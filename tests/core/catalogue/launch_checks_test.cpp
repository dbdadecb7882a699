#include "core/catalogue/launch_checks.h"

#include "support/test_ledger.h"

namespace tz::test {
namespace {

class LaunchChecks : public DatabaseTest {
 protected:
  // Empty when it may open.
  std::string refusal(int command) {
    CQnCwDB db(Access::read);
    db.Open(ledger_.address());
    const auto message = launchRefusal(command, db);
    return message ? std::string(message->text) : std::string();
  }

  TestLedger ledger_{GetParam()};
};
TZ_ON_BOTH_DATABASES(LaunchChecks);

TEST_P(LaunchChecks, AnEmptyLedgerRefusesEachWithItsOwnMessage) {
  EXPECT_EQ(refusal(10224), "请先定义项目大类!");
  EXPECT_EQ(refusal(10237), "没有查到符合要求的科目!");
  EXPECT_EQ(refusal(10238), "没有查到符合条件的项目大类!");
  EXPECT_EQ(refusal(10190), "");
}

TEST_P(LaunchChecks, AProjectClassNeedsAnId) {
  ledger_.fill("ProjClass", R"(
      lId | sItemId | sName
      1   |         | 无编号 )");
  EXPECT_EQ(refusal(10224), "请先定义项目大类!");
  ledger_.fill("ProjClass", R"(
      lId | sItemId | sName
      2   | A1      | 工程 )");
  EXPECT_EQ(refusal(10224), "");
}

TEST_P(LaunchChecks, DepartmentPlansCountForAccountsKeptByDepartmentsOnly) {
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
  EXPECT_EQ(refusal(10237), "没有查到符合要求的科目!");
  ledger_.fill("Plan", R"(
      lId | lCodeId | lDeptId | byPeroid | mPPlan
      4   | 3       | 5       | 2        | 100 )");
  EXPECT_EQ(refusal(10237), "");
}

TEST_P(LaunchChecks, ProjectPlansNeedAClass) {
  ledger_.fill("Plan", R"(
      lId | lCodeId | lItemId | sItemId | byPeroid
      1   | 1       | 3       |         | 1 )");
  EXPECT_EQ(refusal(10238), "没有查到符合条件的项目大类!");
  ledger_.fill("Plan", R"(
      lId | lCodeId | lItemId | sItemId | byPeroid
      2   | 1       | 3       | A1      | 1 )");
  EXPECT_EQ(refusal(10238), "");
}

}  // namespace
}  // namespace tz::test
