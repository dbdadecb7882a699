// The subcommands that list reports and make ledgers.
#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/small_company.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

TEST(Reports, ListTheirConditions) {
  const auto run = runProgram({"reports", "--as", "json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto list = nlohmann::json::parse(run.out);
  const auto found =
      std::find_if(list.begin(), list.end(), [](const auto& report) { return report.at("id") == 10190; });
  ASSERT_NE(found, list.end());
  EXPECT_EQ(found->at("area"), "个人往来");
  EXPECT_EQ(found->at("title"), "三栏式明细帐");
  EXPECT_EQ(found->at("conditions"), (Arguments{"account", "dept", "person", "from", "to", "unposted", "format"}));
  const auto text = runProgram({"reports"}).out;
  EXPECT_NE(text.find("10190"), std::string::npos);
}

TEST(LedgerCreate, MakesALedgerThatCanBeAsked) {
  const TempFolder folder;
  const auto path = folder.file("新帐套.tz");
  ASSERT_EQ(runProgram({"ledger", "create", path, "--year", "2006"}).status, 0);
  const auto run = smallReport(path);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "没有个人核算科目,不能查询个人三栏明细帐。\n");
}

TEST(LedgerCreate, KeepsWhatIsThere) {
  const TempFolder folder;
  const auto path = folder.file("新帐套.tz");
  ASSERT_EQ(runProgram({"ledger", "create", path, "--year", "2006"}).status, 0);
  const auto before = fileBytes(path);
  for (const Arguments& more : {Arguments{}, Arguments{"--sample"}}) {
    Arguments arguments = {"ledger", "create", path};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const auto again = runProgram(arguments);
    EXPECT_EQ(again.status, 3);
    EXPECT_NE(again.err, "");
    EXPECT_TRUE(fileBytes(path) == before);
  }
  EXPECT_EQ(namesIn(folder.path()), Arguments{"新帐套.tz"});
  EXPECT_EQ(runProgram({"ledger", "create", folder.file("没有/新帐套.tz")}).status, 3);

  const TestPlace server(Engine::postgres);
  ASSERT_EQ(runProgram({"ledger", "create", server.address(), "--year", "2006"}).status, 0);
  EXPECT_EQ(runProgram({"ledger", "create", server.address(), "--year", "2006"}).status, 3);
}

TEST(LedgerCreate, RefusesContradictions) {
  const TempFolder folder;
  const auto path = folder.file("新帐套.tz");
  EXPECT_EQ(runProgram({"ledger", "create"}).status, 2);
  EXPECT_EQ(runProgram({"ledger", "create", path, "--sample", "--empty"}).status, 2);
  EXPECT_EQ(runProgram({"ledger", "create", path, "--lines", "100"}).status, 2);
  EXPECT_EQ(runProgram({"ledger", "create", path, "--sample", "--lines", "0"}).status, 2);
  EXPECT_EQ(runProgram({"ledger"}).status, 2);
  EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(SampleLedger, GivesTheSameOnBothDatabases) {
  const TempFolder folder;
  const TestPlace server(Engine::postgres);
  const auto path = folder.file("示例.db");
  for (const auto& address : {path, server.address()}) {
    const auto made = runProgram({"ledger", "create", address, "--sample"});
    ASSERT_EQ(made.status, 0) << made.err;
  }
  for (const char* form : {"json", "text", "csv"}) {
    const auto ask = [&](const std::string& address) {
      return runProgram({"report", "10190", "--ledger", address, "--account", "122101", "--dept", "销售部", "--person",
                         "李明", "--from", "1", "--to", "12", "--unposted", "--as", form});
    };
    const auto onFile = ask(path);
    ASSERT_EQ(onFile.status, 0) << onFile.err;
    EXPECT_TRUE(ask(server.address()).out == onFile.out) << form;
    EXPECT_NE(onFile.out.find("本年累计"), std::string::npos);
  }
}

}  // namespace
}  // namespace tz::test
