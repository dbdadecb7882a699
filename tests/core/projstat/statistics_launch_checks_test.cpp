#include "core/projstat/statistics_launch_checks.h"

#include "support/test_ledger.h"

namespace tz::test {
namespace {

class StatisticsLaunchChecks : public DatabaseTest {
 protected:
  // What the checks refuse with; nothing where they pass.
  std::string refusal(std::span<const LaunchCheck> checks) {
    CQnCwDB db(Access::read);
    db.Open(ledger_.address());
    const auto refused = launchRefusal(checks, db);
    return refused ? refused->text : "";
  }

  TestLedger ledger_{GetParam()};
};
TZ_ON_BOTH_DATABASES(StatisticsLaunchChecks);

TEST_P(StatisticsLaunchChecks, AProjectClassNeedsAnId) {
  ledger_.fill("ProjClass", R"(
      lId | sItemId | sName
      1   |         | 无编号 )");
  EXPECT_EQ(refusal(statisticsChecks), messages::defineProjectClassFirst.text);
  ledger_.fill("ProjClass", R"(
      lId | sItemId | sName
      2   | A1      | 工程 )");
  EXPECT_EQ(refusal(statisticsChecks), "");
}

}  // namespace
}  // namespace tz::test
