// Every message of the condition dialogs, provoked on the command line.
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>

#include "core/catalogue/catalogue.h"
#include "support/refusal_cases.h"
#include "support/run_program.h"

namespace tz::test {
namespace {

// An empty field is an option left out.
std::vector<std::string> wordsOf(const RefusalCase& one, const TestLedger& ledger) {
  std::vector<std::string> words = {"report", std::to_string(one.command), "--ledger", ledger.address()};
  for (const auto& [key, value] : one.values) {
    if (!value.empty()) words.insert(words.end(), {"--" + std::string(parameter(key).option), std::string(value)});
  }
  return words;
}

// The months, the flags and the choices; and an account that the dialog offers, twice, where several can be picked.
void addOthers(const RefusalCase& one, TestLedger& ledger, std::vector<std::string>& words) {
  const auto& report = *findReport(one.command);
  for (const auto key : parametersOf(report)) {
    const auto& condition = parameter(key);
    const auto option = "--" + std::string(condition.option);
    if (condition.kind == Parameter::Kind::flag) words.push_back(option);
    if (condition.kind == Parameter::Kind::month) words.insert(words.end(), {option, "3"});
    if (condition.kind == Parameter::Kind::choice) {
      words.insert(words.end(), {option, std::string(condition.choices.front().value)});
    }
    if (!takesSeveral(report, key)) continue;
    const auto account = ledger.keeper().query(Sql("SELECT sCode FROM Code WHERE ") + Sql(report.dialog.accountWhere));
    if (!account->next()) continue;
    for (int time = 0; time < 2; ++time) words.insert(words.end(), {option, std::string(account->text(0))});
  }
}

void expectRefused(const RefusalCase& one, const std::vector<std::string>& words) {
  const auto run = runProgram(words);
  EXPECT_EQ(run.status, 1) << one.command << ' ' << one.text;
  const auto listed = one.listed.empty() ? "" : std::string(one.listed) + "\n";
  EXPECT_EQ(run.err, std::string(one.text) + "\n" + listed) << one.command;
  EXPECT_EQ(run.out, "");
}

TEST(Refusals, AreSaidOnTheCommandLine) {
  std::map<std::string_view, std::unique_ptr<TestLedger>> ledgers;
  for (const auto& one : refusalCases()) {
    auto& ledger = ledgers[one.change];
    if (ledger == nullptr) {
      ledger = std::make_unique<TestLedger>(Engine::sqlite);
      fillRefusalLedger(*ledger, one.change);
    }
    expectRefused(one, wordsOf(one, *ledger));
    // No other condition, and no list named once more, changes what is said first.
    auto all = wordsOf(one, *ledger);
    addOthers(one, *ledger, all);
    expectRefused(one, all);
  }
}

constexpr std::string_view notListed = "not listed";

// The texts that a report's dialog can refuse with.
std::set<std::string_view> possibleTexts(const ReportDefinition& report) {
  std::set<std::string_view> possible;
  if (asksForAccount(report.dialog)) possible.insert(report.dialog.noAccount.text);
  for (const auto& check : report.dialog.checks) possible.insert(check.message.text);
  if (!report.dialog.choices.empty()) possible.insert(notListed);
  return possible;
}

// The table provokes each message that a record can say, and none that its report cannot.
TEST(Refusals, AreAllInTheTable) {
  std::set<std::string_view> provoked;
  for (const auto& one : refusalCases()) {
    const auto text = one.unlisted ? notListed : one.text;
    provoked.insert(text);
    EXPECT_TRUE(possibleTexts(*findReport(one.command)).contains(text)) << one.command << ' ' << one.text;
  }
  std::set<std::string_view> possible;
  for (const auto* report : catalogue()) possible.merge(possibleTexts(*report));
  EXPECT_EQ(provoked, possible);
}

}  // namespace
}  // namespace tz::test
