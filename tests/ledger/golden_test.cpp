// Hand-sized ledgers with their whole reports beside them, on both databases through the command line.
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "ledger/golden_file.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

const std::string cases[] = {
    "amounts",
    "quantities",
    "foreign_rate_multiplies",
    "foreign_rate_divides",
    "quantities_foreign",
    "credit",
    "thresholds",
    "unposted",
    "gaps",
    "outside_months",
    "parent",
    "order",
};

std::string goldenFolder() { return TZ_TEST_FOLDER "/golden"; }

std::string spelled(const std::vector<std::string>& arguments) {
  std::string text = "report 10190";
  for (const auto& argument : arguments) text += " " + argument;
  return text;
}

ProgramRun runReport(const std::string& address, const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"report", "10190", "--ledger", address, "--as", "json"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return runProgram(all);
}

class GoldenTest : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenTest, PrintsWhatStandsBesideTheLedger) {
  const auto file = readGoldenFile(goldenFolder() + "/" + GetParam() + ".golden");
  TestLedger onFile(Engine::sqlite);
  TestLedger onServer(Engine::postgres);
  for (auto* ledger : {&onFile, &onServer}) {
    for (const auto& table : file.tables) ledger->fill(table.name, table.rows);
  }
  ASSERT_FALSE(file.reports.empty());
  for (const auto& report : file.reports) {
    SCOPED_TRACE(spelled(report.arguments));
    ASSERT_FALSE(report.expected.empty()) << "nothing stands beside the command";
    const auto run = runReport(onFile.address(), report.arguments);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto shown = shownReport(nlohmann::json::parse(run.out));
    EXPECT_TRUE(shown == report.expected) << "expected:\n" << report.expected << "printed:\n" << shown;
    EXPECT_EQ(runReport(onServer.address(), report.arguments).out, run.out) << "the databases differ";
  }
}

INSTANTIATE_TEST_SUITE_P(Ledgers, GoldenTest, ::testing::ValuesIn(cases), [](const auto& test) { return test.param; });

TEST(GoldenFiles, AreAllRun) {
  std::set<std::string> there;
  for (const auto& entry : std::filesystem::directory_iterator(goldenFolder())) there.insert(entry.path().stem());
  EXPECT_EQ(there, std::set<std::string>(std::begin(cases), std::end(cases)));
}

}  // namespace
}  // namespace tz::test
