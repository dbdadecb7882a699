#include "core/projstat/statistics_launch_checks.h"

#include "support/launch_refusals.h"

namespace tz::test {
namespace {

class StatisticsLaunchChecks : public LaunchRefusals {};
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
