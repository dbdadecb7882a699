// The program's reports of accounts against the naive computation, on random ledgers.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/ledger/random_ledger.h"
#include "core/reports/report_definition.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using naive::Answer;
using naive::Question;

constexpr int logonMonth = 7;

// The conditions that the report takes; one that is empty is left out.
Request requestOf(const Question& question) {
  std::string accounts;
  for (const auto& code : question.accounts) accounts += (accounts.empty() ? "" : "\n") + code;
  std::map<ParameterKey, std::string> values = {
      {ParameterKey::account, accounts},
      {ParameterKey::dept, question.dept},
      {ParameterKey::person, question.person},
      {ParameterKey::unit, question.unit},
      {ParameterKey::unitClass, question.unitClass},
      {ParameterKey::clerk, question.clerk},
      {ParameterKey::projectClass, question.projectClass},
      {ParameterKey::project, question.project},
      {ParameterKey::projectFrom, question.projectFrom},
      {ParameterKey::projectTo, question.projectTo},
      {ParameterKey::accountFrom, question.accountFrom},
      {ParameterKey::accountTo, question.accountTo},
      {ParameterKey::analysis, question.amountAnalysis ? "amount" : ""},
      {ParameterKey::unposted, question.unposted ? "1" : ""},
      {ParameterKey::format, question.format},
      {ParameterKey::minimum, question.least == 0 ? "" : fmt::format("{}", question.least)},
      {ParameterKey::maximum, question.most == 0 ? "" : fmt::format("{}", question.most)},
      {ParameterKey::side, question.side},
      {ParameterKey::creditLimit, question.limits ? "1" : ""},
      {ParameterKey::unitGrouping, question.turned ? "project" : ""},
      {ParameterKey::deptGrouping, question.turned ? "project" : ""},
      {ParameterKey::hideDetails, question.hideDetails ? "1" : ""},
      {ParameterKey::hideZero, question.hideZeros ? "1" : ""},
  };
  if (question.from != logonMonth) values[ParameterKey::from] = std::to_string(question.from);
  if (question.to != logonMonth) values[ParameterKey::to] = std::to_string(question.to);
  Request request;
  for (const auto key : parametersOf(*findReport(question.report))) {
    if (!values[key].empty()) request.set(key, values[key]);
  }
  return request;
}

// What came out: a report, the condition that was refused, or wrong use.
struct Outcome {
  std::optional<ComputedReport> report;
  std::string otherwise;
};

std::string refusalText(std::optional<ParameterKey> about) {
  return "refused: " + (about ? std::string(parameter(*about).option) : "for itself");
}

Outcome ask(CQnCwDB& db, const std::string& ledger, const Question& question) {
  Session session{.db = db, .ledger = ledger, .logon = {2006, logonMonth, 31}};
  try {
    auto outcome = runReport(*findReport(question.report), requestOf(question), session);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return {{}, refusalText(refusal->about)};
    return {std::get<ComputedReport>(std::move(outcome)), ""};
  } catch (const WrongUse&) {
    return {{}, "wrong use"};
  }
}

std::string shown(const std::string& what, const std::string& expected, const std::string& program) {
  if (expected == program) return {};
  return what + "\nexpected " + expected + "\nprogram  " + program;
}

// A row with its kind; which words a caption has is not the naive computation's, but it has some.
std::string rowText(RowKind kind, bool unposted, nlohmann::json cells, std::optional<std::size_t> captionAt) {
  if (captionAt && cells.at(*captionAt).is_string()) cells.at(*captionAt) = "caption";
  return fmt::format("{} {} {}", static_cast<int>(kind), unposted ? "unposted" : "posted", cells.dump());
}

std::string noticesDiffer(const ComputedReport& report, const Answer& answer) {
  const auto& notices = report.grid.notices;
  if (notices.size() != answer.notices.size()) {
    return shown("notices", std::to_string(answer.notices.size()), std::to_string(notices.size()));
  }
  for (std::size_t i = 0; i < notices.size(); ++i) {
    const auto number = answer.notices[i] == 0 ? "" : std::to_string(answer.notices[i]);
    if (notices[i].text.find(number) == std::string::npos) return shown("notice", number, notices[i].text);
  }
  return {};
}

std::string rowsDiffer(const ComputedReport& report, const nlohmann::json& rows, const Answer& answer) {
  for (std::size_t i = 0; i < std::max(rows.size(), answer.rows.size()); ++i) {
    std::string expected = "none";
    std::string program = "none";
    std::optional<std::size_t> captionAt;
    if (i < answer.rows.size()) {
      const auto& row = answer.rows[i];
      if (row.hasCaption()) captionAt = row.captionAt;
      expected = rowText(row.kind, row.unposted, row.cells, std::nullopt);
    }
    if (i < rows.size()) {
      const bool unposted = rows[i].at("background") == "#E0FFE0";
      EXPECT_EQ(rows[i].at("data"), unposted ? 1 : 0);
      program = rowText(report.grid.RowKindAt(static_cast<std::int64_t>(i)), unposted, rows[i].at("cells"), captionAt);
    }
    if (expected != program) return shown("row " + std::to_string(i), expected, program);
  }
  return {};
}

// Where both differ, for a person to look at; empty when they agree.
std::string difference(const Outcome& outcome, const Answer& answer, const Question& question) {
  const std::string refused = answer.refused ? refusalText(answer.refused) : answer.wrongUse ? "wrong use" : "";
  if (!outcome.report || !refused.empty()) return shown("outcome", refused, outcome.otherwise);
  const auto& report = *outcome.report;
  const auto json = nlohmann::json::parse(jsonText(report));
  const auto period = fmt::format("2006.{:02} - 2006.{:02}", question.from, question.to);
  auto found = shown("format", answer.format, json.at("format"));
  if (found.empty()) found = shown("unit", answer.unit, json.at("unit"));
  if (found.empty() && !json.at("period").get<std::string>().ends_with(period)) found = "period " + report.period;
  if (found.empty()) found = noticesDiffer(report, answer);
  return found.empty() ? rowsDiffer(report, json.at("rows"), answer) : found;
}

std::string spelled(const Question& question) {
  std::string text = "report " + std::to_string(question.report);
  const auto request = requestOf(question);
  for (const auto& [key, value] : request.values()) {
    text += " --" + std::string(parameter(key).option) + " " + value;
  }
  return text;
}

// How much the random ledgers really reach, by report.
struct Reached {
  int reports = 0, rows = 0, unpostedRows = 0, notices = 0, refusals = 0;

  void count(const Answer& answer) {
    if (answer.refused) ++refusals;
    reports += answer.rows.empty() ? 0 : 1;
    rows += static_cast<int>(answer.rows.size());
    notices += static_cast<int>(answer.notices.size());
    for (const auto& row : answer.rows) unpostedRows += row.unposted ? 1 : 0;
  }
};
using ReachedByReport = std::map<int, Reached>;

// A sum of cents depends on the order in which it is formed, and only the month walk has a fixed one.
bool addsInFixedOrder(const naive::Report& report) {
  return report.family == naive::Family::detail && report.groups.empty() && !report.fromYearsStart;
}

ReachedByReport compareMany(Engine engine, int seeds) {
  constexpr int questionsPerReport = 2;
  TestLedger place(engine);
  for (const char* itemClass : naive::itemClasses) place.makeItemTable(itemClass);
  CQnCwDB db(Access::read);
  db.Open(place.address());
  ReachedByReport reached;
  std::set<int> differ;  // shown once each
  for (int seed = 1; seed <= seeds; ++seed) {
    naive::Dice dice(static_cast<std::uint64_t>(seed));
    const bool cents = seed % 3 == 0;
    const auto ledger = naive::randomLedger(dice, cents ? naive::Amounts::cents : naive::Amounts::sixtyFourths);
    naive::writeLedger(place.keeper(), ledger);
    for (const auto& report : naive::allNaive()) {
      for (int i = 0; i < questionsPerReport; ++i) {
        const auto question = naive::randomQuestion(dice, ledger, report);
        if (differ.contains(report.id) || (cents && !addsInFixedOrder(report))) continue;
        const auto answer = naive::answerTo(ledger, question);
        reached[report.id].count(answer);
        const auto found = difference(ask(db, place.address(), question), answer, question);
        if (found.empty()) continue;
        ADD_FAILURE() << "seed " << seed << ": " << spelled(question) << "\n" << found;
        differ.insert(report.id);
      }
    }
  }
  return reached;
}

TEST(NaiveComparison, AgreesOnAFile) {
  for (const auto& [id, reached] : compareMany(Engine::sqlite, 300)) {
    EXPECT_GT(reached.reports, 100) << id;
    const auto& facts = *naive::findNaive(id);
    const bool lines = facts.family == naive::Family::detail;
    EXPECT_GT(reached.rows, lines ? 1000 : 300) << id;
    EXPECT_GT(reached.unpostedRows, lines ? 50 : -1) << id;
    EXPECT_GT(reached.notices, lines ? 5 : facts.months ? 1 : -1) << id;
    EXPECT_GT(reached.refusals, 5) << id;
  }
}

TEST(NaiveComparison, AgreesOnAServer) {
  for (const auto& [id, reached] : compareMany(Engine::postgres, 15)) EXPECT_GT(reached.reports, 3) << id;
}

// What is known here without the program stands for reports that are there. A report of which nothing is known is
// tested by its golden file alone; that is said, not refused.
TEST(NaiveComparison, KnowsReportsOfTheCatalogue) {
  for (const auto& facts : naive::allNaive()) {
    const auto* report = findReport(facts.id);
    ASSERT_NE(report, nullptr) << facts.id;
    EXPECT_EQ(report->right, facts.right) << facts.id;
  }
  for (const auto* report : catalogue()) {
    if (naive::findNaive(report->command) != nullptr) continue;
    std::cout << "no independent facts for report " << report->command << ": its golden file alone\n";
  }
}

}  // namespace
}  // namespace tz::test
