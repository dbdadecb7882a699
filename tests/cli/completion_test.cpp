// Completion as a shell does it: the script is loaded into the shell and asked for the word at the end of a line.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "cli/small_company.h"
#include "cli/typed_shell.h"
#include "core/catalogue/catalogue.h"
#include "core/reports/offers.h"
#include "support/namesakes.h"

namespace tz::test {
namespace {

using Words = std::vector<std::string>;

// What bash puts in the place of the last word.
Words completed(const Words& line) {
  Words command = {"bash", "--norc", "-c", R"(
    source <("$1" completion bash)
    [[ $(complete -p tzassistant) == *_tzassistant* ]] || exit 9
    COMP_WORDS=("$@"); printf -v COMP_LINE '%q ' "${@:1:$#-1}"; COMP_LINE+="${@: -1}"; COMP_POINT=${#COMP_LINE}
    _tzassistant tzassistant "${@: -1}"
    for word in "${COMPREPLY[@]}"; do printf '%s\n' "$word"; done)", "bash", TZ_PROGRAM};
  command.insert(command.end(), line.begin(), line.end());
  const auto run = runCommand(command);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  return linesOf(run.out);
}

// The words of an answer to a shell, which are every third text.
std::string wordsIn(const std::string& answer) {
  std::string words;
  std::istringstream texts(answer);
  std::string text;
  for (int i = 0; std::getline(texts, text, '\0'); ++i) {
    if (i % 3 == 0) words.append(text).append("|");
  }
  return words;
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
  EXPECT_EQ(completed({"report", "10190", "--as=x"}), Words{"--as=xlsx"});
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
  EXPECT_EQ(completed({"clear", "match", "--ledger", ledger.address(), "--kind", "person", "--dept", "销"}),
            Words{"销售部"});
  ledger.fill("zOperator", "lId | sName | bAll\n 1 | 主管 | 1");
  EXPECT_EQ(ask("--person", ""), Words{}) << "names are shown to nobody who has not logged on";
}

// What the list of a dialog offers is what the command line completes, under the same conditions.
TEST(Completion, OffersWhatTheDialogsOffer) {
  TestLedger ledger(Engine::sqlite);
  fillNamesakes(ledger);
  fillOddNames(ledger);
  CQnCwDB db;
  db.Open(ledger.address());
  std::set<ParameterKey> tried;
  for (const auto* report : catalogue()) {
    Words line = {"completion", "words", "--", "report", std::to_string(report->command), "--ledger", ledger.address()};
    Request request;
    for (const auto key : parametersOf(*report)) {
      const auto offer = offered(report->dialog, key, request, db);
      if (offer.empty()) continue;
      const auto option = "--" + std::string(parameter(key).option);
      auto asked = line;
      asked.insert(asked.end(), {option, ""});
      std::string wanted;
      for (const auto& entry : offer) wanted += valueOf(key, entry.text) + "|";
      EXPECT_EQ(wordsIn(runProgram(asked).out), wanted) << report->command << option;
      // The second one: the first is often one that stands for all.
      const auto& chosen = offer[offer.size() > 1 ? 1 : 0];
      request.set(key, valueOf(key, chosen.text));
      line.insert(line.end(), {option, valueOf(key, chosen.text)});
      tried.insert(key);
    }
  }
  using Key = ParameterKey;
  EXPECT_EQ(tried, (std::set<Key>{Key::account, Key::dept, Key::person, Key::unit, Key::unitClass, Key::clerk,
                                  Key::projectClass, Key::project, Key::projectFrom, Key::projectTo, Key::accountFrom,
                                  Key::accountTo}));
  const auto groups = runProgram({"completion", "words", "--", "report", "10218", "--group", ""});
  EXPECT_EQ(wordsIn(groups.out), "dept|project|") << "another report has others under the same name";
  const auto clerks = runProgram({"completion", "words", "--", "report", "10210", "--ledger", ledger.address(),
                                  "--account", "1122", "--clerk", ""});
  EXPECT_EQ(wordsIn(clerks.out), "其它|王强|其它|") << "names on lines, not persons";
}

// Names that a shell would take for something else, each with the beginning that tells it from the others.
const std::vector<std::pair<std::string, std::string>> hostileNames = {
    {"qa", "qa$(touch x1)"},
    {"qb", "qb`touch x2`; touch x3 & touch x4 | touch x5 > x6"},
    {"qc", "qc 有  空格\u3000的 单位"},
    {"qd", "qd \"双\" '单' \\反 $HOME ${PATH}"},
    {"qe", "qe*?[a-z]{1,2}~ #注 !! !$ ^a^b"},
    {"qf", "qf\n第二行\n"},
    {"qg", "qg\r\x1b]0;标题\a\u009b2J\u202e倒"},
    {"qh", "qh:冒号=等号@位置,逗号"},
    {"-q", "-q --unit=$(touch x7)"},
    {"单位", "单位（集团）有限公司"},
    {"qi", "qi'"},
    {"qj", "qj\""},
    {"qk", "qk\\"},
    {"ql", "ql!"},
};

class CompletionAtTheKeyboard : public ::testing::TestWithParam<std::string> {
 protected:
  CompletionAtTheKeyboard() {
    fillSmallCompany(ledger_.keeper());
    std::int64_t id = 100;
    for (const auto& [typed, name] : hostileNames) {
      ledger_.keeper().execute(Sql("INSERT INTO Enter (lId, sEnterId, sEnterName) VALUES (?, 'U', ?)", id++, name));
    }
  }
  [[nodiscard]] std::string lineTo(const std::string& typed) const {
    return "tzassistant report 10204 --ledger '" + ledger_.address() + "' " + typed + "\t";
  }

  TestLedger ledger_{Engine::sqlite};
};

TEST_P(CompletionAtTheKeyboard, GivesBackEveryNameAndRunsNothing) {
  TypedShell shell(GetParam());
  for (const std::string quote : {"", "'", "\""}) {
    for (const auto& [typed, name] : hostileNames) {
      const auto arguments = shell.argumentsOf(lineTo("--unit " + quote + typed));
      ASSERT_EQ(arguments.back(), name) << quote << testing::PrintToString(arguments);
    }
  }
  EXPECT_EQ(shell.argumentsOf(lineTo("--unit=qa")).back(), "--unit=qa$(touch x1)");
  // The list of several names shows none of their control characters.
  const auto before = shell.screen().size();
  (void)shell.argumentsOf(lineTo("--unit q\t\t"));
  const auto shown = shell.screen().substr(before);
  for (const char* harm : {"\x1b]0;标题", "\u009b", "\u202e"}) EXPECT_EQ(shown.find(harm), std::string::npos);
  EXPECT_EQ(shell.leftBehind(), Words{});
}

INSTANTIATE_TEST_SUITE_P(In, CompletionAtTheKeyboard, ::testing::Values("bash", "zsh", "fish"),
                         [](const auto& shell) { return shell.param; });

TEST(Completion, ReadsALineAsBashDoes) {
  TestLedger ledger(Engine::sqlite);
  fillSmallCompany(ledger.keeper());
  TypedShell shell("bash");
  const auto typed = [&](const std::string& line) { return shell.argumentsOf("tzassistant " + line + "\t").back(); };
  const auto report = "report 10190 --ledger '" + ledger.address() + "'";
  EXPECT_EQ(typed("report 10190 --as=x"), "--as=xlsx");
  EXPECT_EQ(typed(report + " --dept '销售部' --per"), "--person");
  EXPECT_EQ(typed(report + " --dept \"销售部\" --person 张"), "张三");
  EXPECT_EQ(typed(report + " --dept=销售\\部 --person $'\\345\\274"), "张三") << "a character's first bytes";
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
  EXPECT_EQ(linesOf(fish.out), (Words{"csv", "json", "pdf", "text", "xlsx"}));
  const TempFolder folder;
  std::ofstream(folder.file("_tzassistant")) << runProgram({"completion", "zsh"}).out;
  const auto zsh = runCommand({"zsh", "-n", folder.file("_tzassistant")});
  EXPECT_EQ(zsh.status, 0) << zsh.err;
}

}  // namespace
}  // namespace tz::test
