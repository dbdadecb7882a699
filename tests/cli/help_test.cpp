// The help of every command: its examples are run as they stand, and the manual page is well-formed and whole.
#include <cstdlib>
#include <fmt/format.h>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

std::string helpOf(Arguments command) {
  command.emplace_back("--help");
  const auto help = runProgram(command);
  EXPECT_EQ(help.status, 0) << help.err;
  EXPECT_EQ(help.err, "");
  return help.out;
}

// The program, its subcommands and theirs, as help lists them.
void collectCommands(const Arguments& command, std::vector<Arguments>& all) {
  all.push_back(command);
  bool inList = false;
  for (const auto& line : linesOf(helpOf(command))) {
    if (inList && line.starts_with("  ") && line[2] != ' ') {
      auto inner = command;
      inner.push_back(line.substr(2, line.find(' ', 2) - 2));
      collectCommands(inner, all);
    }
    inList = line.ends_with("子命令:") || (inList && !line.empty());
  }
}

class HelpTest : public ::testing::Test {
 protected:
  HelpTest() { EXPECT_EQ(runProgram({"ledger", "create", folder_.file("示例.db"), "--sample"}).status, 0); }

  // Files go into the folder of the test. What it prints, or the file that it makes.
  std::string runExample(const std::string& line) {
    Arguments words;
    std::string made;
    std::istringstream text(line);
    for (std::string word; text >> word; words.push_back(word)) {
      if (word.find(".db") == std::string::npos && word.find(".xlsx") == std::string::npos) continue;
      word = folder_.file(word);
      if (word.ends_with(".xlsx") || words.back() == "create") made = word;
    }
    if (!made.empty()) std::filesystem::remove(made);
    const bool keeping = words.front() == "operator";
    if (keeping) prepareOperators(line.ends_with("--all"));
    const auto run = runProgram(words, {"TZ_PASSWORD=" + password_, "TZ_NEW_PASSWORD=" + password_});
    if (keeping) std::filesystem::copy_file(folder_.file("原来.db"), folder_.file("示例.db"), overwrite);
    EXPECT_EQ(run.status, 0) << line << "\n" << run.err;
    EXPECT_EQ(run.err, "") << line;
    return made.empty() ? run.out : fileBytes(made);
  }
  // Examples of operators are of a ledger that has none yet, or of one with 主管 and 王会计. Every one begins so.
  void prepareOperators(bool none) {
    const auto ledger = folder_.file("示例.db");
    const auto original = folder_.file("原来.db");
    const auto kept = folder_.file("操作员.db");
    if (!std::filesystem::exists(kept)) {
      std::filesystem::copy_file(ledger, original);
      const auto add = [&](Arguments words) {
        words.insert(words.begin(), {"operator", "add", "--ledger", ledger, "--operator", "主管"});
        const auto run = runProgram(words, {"TZ_PASSWORD=" + password_, "TZ_NEW_PASSWORD=" + password_});
        EXPECT_EQ(run.status, 0) << run.err;
      };
      add({"主管", "--all"});
      add({"王会计"});
      std::filesystem::copy_file(ledger, kept);
    }
    std::filesystem::copy_file(none ? original : kept, ledger, overwrite);
  }
  // How many examples the help of a command shows.
  int runExamples(const Arguments& command, const std::string& expected) {
    const std::string mark = "例：tzassistant ";
    int examples = 0;
    for (const auto& line : linesOf(helpOf(command))) {
      if (!line.starts_with(mark)) continue;
      ++examples;
      const auto result = runExample(line.substr(mark.size()));
      EXPECT_NE(result, "") << line;
      const bool workbook = line.find(".xlsx") != std::string::npos;
      EXPECT_TRUE(workbook || result.find(expected) != std::string::npos) << line;
    }
    return examples;
  }

  static constexpr auto overwrite = std::filesystem::copy_options::overwrite_existing;
  const std::string password_ = "示例的口令足够长";
  TempFolder folder_;
};

TEST_F(HelpTest, ShowsExamplesThatWork) {
  std::vector<Arguments> commands;
  collectCommands({}, commands);
  EXPECT_GT(commands.size(), 6U);
  for (const auto& command : commands) {
    const bool desktop = !command.empty() && command.front() == "open";
    const int examples = runExamples(command, "");
    EXPECT_EQ(examples > 0, !desktop) << (command.empty() ? "tzassistant" : command.back());
  }
}

TEST_F(HelpTest, ShowsExamplesOfEachReportAndWhatItIs) {
  std::set<std::string_view> seen;
  for (const auto* report : catalogue()) {
    SCOPED_TRACE(report->command);
    const Arguments command = {"report", std::to_string(report->command)};
    EXPECT_GE(runExamples(command, std::string(report->printTitle)), 3);
    EXPECT_TRUE(!report->about.empty() && seen.insert(report->about).second);
    EXPECT_FALSE(report->rules.empty());
    const auto help = helpOf(command);
    EXPECT_NE(help.find(report->about), std::string::npos);
    for (const auto rule : report->rules) EXPECT_NE(help.find(rule), std::string::npos) << rule;
  }
}

// Words for words: what stands in tests/help is what a command says of itself. A report without a file there is told by
// its record alone; so that a change that is meant can be kept, TZ_KEEP_HELP=1 writes the files anew.
class KeptHelp : public ::testing::Test {
 protected:
  static void expectKept(const std::string& name, const std::string& text, bool mustBeKept) {
    const auto path = std::filesystem::path(TZ_TEST_FOLDER) / "help" / name;
    if (std::getenv("TZ_KEEP_HELP") != nullptr) std::ofstream(path, std::ios::binary) << text;
    if (!std::filesystem::exists(path)) {
      EXPECT_FALSE(mustBeKept) << "no file " << path;
      return;
    }
    EXPECT_EQ(fileBytes(path), text) << "when it is meant, keep it with TZ_KEEP_HELP=1: " << name;
  }
};

TEST_F(KeptHelp, OfEveryCommandAndReport) {
  std::vector<Arguments> commands;
  collectCommands({}, commands);
  for (const auto& command : commands) {
    expectKept(fmt::format("{}.txt", command.empty() ? "tzassistant" : fmt::to_string(fmt::join(command, "-"))),
               helpOf(command), true);
  }
  for (const auto* report : catalogue()) {
    expectKept(fmt::format("report-{}.txt", report->command), helpOf({"report", std::to_string(report->command)}),
               false);
  }
}

// The sections of the page that are written for it; its commands, reports and conditions are those of the help.
TEST_F(KeptHelp, OfTheManualPage) {
  std::string own;
  bool fromHelp = true;  // and the version above all sections
  for (const auto& line : linesOf(runProgram({"--man"}).out)) {
    const auto heads = [&](const char* section) { return line.starts_with(std::string(".SH ") + section); };
    if (line.starts_with(".SH")) fromHelp = heads("子命令") || heads("报表") || heads("条件");
    if (!fromHelp) own.append(line).append("\n");
  }
  expectKept("tzassistant.1", own, true);
}

TEST(ManualPage, IsWellFormedAndWhole) {
  const auto page = runProgram({"--man"});
  ASSERT_EQ(page.status, 0) << page.err;
  const TempFolder folder;
  std::ofstream(folder.file("tzassistant.1")) << page.out;
  const auto shown = runCommand({"groff", "-Kutf8", "-Tutf8", "-man", "-ww", "-P-c", folder.file("tzassistant.1")});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.err, "");
  for (const auto* report : catalogue()) {
    EXPECT_NE(page.out.find("\\fB" + std::to_string(report->command) + "\\fR"), std::string::npos);
  }
  std::string text = page.out;
  for (auto at = text.find('\\'); at != std::string::npos; at = text.find('\\', at)) text.erase(at, 1);
  for (const auto& condition : allParameters()) {
    EXPECT_NE(text.find("fB--" + std::string(condition.option)), std::string::npos) << condition.option;
  }
  EXPECT_NE(text.find("tzassistant ledger create"), std::string::npos);
}

}  // namespace
}  // namespace tz::test
