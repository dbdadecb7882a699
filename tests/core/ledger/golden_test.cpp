// Hand-sized ledgers with their whole reports beside them, on both databases through the command line.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/ledger/golden_file.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

std::string goldenFolder() { return TZ_TEST_FOLDER "/golden"; }

// The files that are there, without their ending.
std::vector<std::string> goldenNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(goldenFolder())) names.push_back(entry.path().stem());
  std::ranges::sort(names);
  return names;
}

GoldenFile goldenFile(const std::string& name) { return readGoldenFile(goldenFolder() + "/" + name + ".golden"); }

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
  const auto file = goldenFile(GetParam());
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

INSTANTIATE_TEST_SUITE_P(Ledgers, GoldenTest, ::testing::ValuesIn(goldenNames()),
                         [](const auto& test) { return test.param; });

TEST(GoldenFiles, ShowEveryReport) {
  std::set<std::string> shown;
  for (const auto& name : goldenNames()) {
    for (const auto& report : goldenFile(name).reports) shown.insert(report.id);
  }
  for (const auto* report : catalogue()) {
    EXPECT_TRUE(shown.contains(std::to_string(report->command))) << report->command << ": no golden ledger shows it";
  }
}

}  // namespace
}  // namespace tz::test
