// Every message of the condition dialogs, provoked on the command line.
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>

#include "catalogue/catalogue.h"
#include "support/refusal_cases.h"
#include "support/run_program.h"

namespace tz::test {
namespace {

TEST(Refusals, AreSaidOnTheCommandLine) {
  std::map<std::string_view, std::unique_ptr<TestLedger>> ledgers;
  for (const auto& one : refusalCases()) {
    auto& ledger = ledgers[one.change];
    if (ledger == nullptr) {
      ledger = std::make_unique<TestLedger>(Engine::sqlite);
      fillRefusalLedger(*ledger);
      if (!one.change.empty()) ledger->keeper().execute(Sql(one.change));
    }
    std::vector<std::string> words = {"report", std::to_string(one.command), "--ledger", ledger->address()};
    for (const auto& [key, value] : one.values) {
      words.insert(words.end(), {"--" + std::string(parameter(key).option), std::string(value)});
    }
    const auto run = runProgram(words);
    EXPECT_EQ(run.status, 1) << one.command << ' ' << one.text;
    EXPECT_EQ(run.err, std::string(one.text) + "\n") << one.command;
    EXPECT_EQ(run.out, "");
  }
}

// The table names what the records can say, no more and no less.
TEST(Refusals, AreAllInTheTable) {
  for (const auto* report : catalogue()) {
    std::set<MessageId> possible;
    if (asksForAccount(*report->dialog)) possible.insert(report->dialog->noAccount);
    for (const auto& check : report->dialog->checks) possible.insert(check.message);
    std::set<MessageId> provoked;
    for (const auto& one : refusalCases()) {
      if (one.command == report->command) provoked.insert(one.message);
    }
    EXPECT_EQ(provoked, possible) << report->command;
  }
}

}  // namespace
}  // namespace tz::test
