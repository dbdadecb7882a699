// Hand-sized ledgers with their whole reports beside them, on both databases through the command line.
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "core/ledger/golden_file.h"
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
    "list_members",
    "list_formats",
    "units",
    "unit_projects",
    "projects",
};

std::string goldenFolder() { return TZ_TEST_FOLDER "/golden"; }

// The item table of a project class is made when the file fills it.
void fill(TestLedger& ledger, const GoldenTable& table) {
  constexpr std::string_view prefix = "ProjItems";
  if (table.name.starts_with(prefix) && table.name != prefix) ledger.makeItemTable(table.name.substr(prefix.size()));
  ledger.fill(table.name, table.rows);
}

std::string spelled(const GoldenReport& report) {
  std::string text = "report " + report.id;
  for (const auto& argument : report.arguments) text += " " + argument;
  return text;
}

ProgramRun runReport(const std::string& address, const GoldenReport& report) {
  std::vector<std::string> all = {"report", report.id, "--ledger", address, "--as", "json"};
  all.insert(all.end(), report.arguments.begin(), report.arguments.end());
  return runProgram(all);
}

class GoldenTest : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenTest, PrintsWhatStandsBesideTheLedger) {
  const auto file = readGoldenFile(goldenFolder() + "/" + GetParam() + ".golden");
  TestLedger onFile(Engine::sqlite);
  TestLedger onServer(Engine::postgres);
  for (auto* ledger : {&onFile, &onServer}) {
    for (const auto& table : file.tables) fill(*ledger, table);
  }
  ASSERT_FALSE(file.reports.empty());
  for (const auto& report : file.reports) {
    SCOPED_TRACE(spelled(report));
    ASSERT_FALSE(report.expected.empty()) << "nothing stands beside the command";
    const auto run = runReport(onFile.address(), report);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto shown = shownReport(nlohmann::json::parse(run.out));
    EXPECT_TRUE(shown == report.expected) << "expected:\n" << report.expected << "printed:\n" << shown;
    EXPECT_EQ(runReport(onServer.address(), report).out, run.out) << "the databases differ";
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
