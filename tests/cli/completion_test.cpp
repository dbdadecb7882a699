// Completion as a shell does it: the script is loaded into the shell and asked for the word at the end of a line.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "catalogue/catalogue.h"
#include "cli/small_company.h"

namespace tz::test {
namespace {

using Words = std::vector<std::string>;

Words linesOf(const std::string& text) {
  Words lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// What bash puts in the place of the last word.
Words completed(const Words& line) {
  Words command = {"bash", "--norc", "-c", R"(
    source <("$1" completion bash)
    [[ $(complete -p tzassistant) == *_tzassistant* ]] || exit 9
    COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
    _tzassistant
    for word in "${COMPREPLY[@]}"; do printf '%s\n' "$word"; done)", "bash", TZ_PROGRAM};
  command.insert(command.end(), line.begin(), line.end());
  const auto run = runCommand(command);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  return linesOf(run.out);
}

bool has(const Words& words, const std::string& word) { return std::ranges::find(words, word) != words.end(); }

TEST(Completion, OffersCommandsAndOptions) {
  EXPECT_EQ(completed({"rep"}), (Words{"reports", "report"}));
  EXPECT_EQ(completed({"ledger", "cr"}), Words{"create"});
  EXPECT_EQ(completed({"completion", ""}).front(), "bash");
  EXPECT_EQ(completed({"report", "10190", "--led"}), Words{"--ledger"});
  EXPECT_EQ(completed({"report", "10190", "--ledger", "a.db", "--led"}), Words{}) << "given already";
  EXPECT_TRUE(completed({"nonsense", "--none", "--nothing"}).empty());
}

TEST(Completion, OffersEveryReportWithItsConditions) {
  Words ids;
  for (const auto* report : catalogue()) {
    ids.push_back(std::to_string(report->command));
    const auto options = completed({"report", ids.back(), "--"});
    for (const auto key : parametersOf(*report)) {
      EXPECT_TRUE(has(options, "--" + std::string(parameter(key).option))) << ids.back();
    }
  }
  EXPECT_EQ(completed({"report", ""}), ids);
}

TEST(Completion, OffersTheChoicesOfAnOption) {
  EXPECT_EQ(completed({"report", "10190", "--as", "j"}), Words{"json"});
  EXPECT_EQ(completed({"report", "10190", "--as", "=", "x"}), Words{"xlsx"}) << "bash parts --as=x";
  EXPECT_EQ(completed({"report", "10190", "--from", "1"}), (Words{"1", "10", "11", "12"}));
  EXPECT_EQ(completed({"report", "10190", "--format", "数量"}), (Words{"数量金额式", "数量外币式"}));
  EXPECT_EQ(completed({"report", "10191", "--analysis", ""}), (Words{"balance", "amount"}));
  for (const auto* report : catalogue()) {
    if (!has(completed({"report", std::to_string(report->command), "--acc"}), "--account")) continue;
    const auto again = completed({"report", std::to_string(report->command), "--account", "122101", "--acc"});
    EXPECT_EQ(again, takesSeveral(*report, ParameterKey::account) ? Words{"--account"} : Words{}) << report->command;
  }
}

TEST(Completion, OffersNamesOfTheLedgerOnTheLine) {
  TestLedger ledger(Engine::sqlite);
  fillSmallCompany(ledger.keeper());
  const auto ask = [&](const std::string& option, const std::string& typed) {
    return completed({"report", "10190", "--ledger", ledger.address(), option, typed});
  };
  EXPECT_EQ(ask("--account", "11"), Words{"113301"});
  EXPECT_EQ(ask("--dept", "销"), Words{"销售部"});
  EXPECT_EQ(ask("--person", ""), Words{"张三"});
  EXPECT_EQ(completed({"report", "10190", "--ledger", ledger.address(), "--dept", "别的", "--person", ""}), Words{});
  EXPECT_EQ(completed({"report", "10190", "--ledger", "nowhere.db", "--dept", ""}), Words{});
  EXPECT_EQ(completed({"report", "10190", "--dept", "' OR 1=1 --", "--ledger", ledger.address(), "--person", ""}),
            Words{});
  ledger.fill("zOperator", "lId | sName | bAll\n 1 | 主管 | 1");
  EXPECT_EQ(ask("--person", ""), Words{}) << "names are shown to nobody who has not logged on";
}

TEST(Completion, LeavesFilesToTheShell) {
  const TempFolder folder;
  std::ofstream(folder.file("帐 套.db")) << "x";
  EXPECT_EQ(completed({"report", "10190", "--ledger", folder.file("帐")}), Words{folder.file("帐 套.db")});
  EXPECT_EQ(completed({"ledger", "check", folder.file("")}), Words{folder.file("帐 套.db")});
}

TEST(Completion, WorksInFishAndIsReadByZsh) {
  const auto fish = runCommand(
      {"fish", "--no-config", "-c",
       "source (\"$argv[1]\" completion fish | psub); complete -C\"$argv[1] report 10190 --as \"", TZ_PROGRAM});
  EXPECT_EQ(fish.err, "");
  EXPECT_EQ(linesOf(fish.out), (Words{"csv", "json", "text", "xlsx"}));
  const TempFolder folder;
  std::ofstream(folder.file("_tzassistant")) << runProgram({"completion", "zsh"}).out;
  const auto zsh = runCommand({"zsh", "-n", folder.file("_tzassistant")});
  EXPECT_EQ(zsh.status, 0) << zsh.err;
}

}  // namespace
}  // namespace tz::test
