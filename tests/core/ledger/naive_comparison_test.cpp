// The program's detail ledgers against the naive computation, on random ledgers.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "core/catalogue/catalogue.h"
#include "core/data/record_io.h"
#include "core/ledger/random_ledger.h"
#include "core/reports/report_definition.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using naive::Answer;
using naive::Question;

constexpr int logonMonth = 7;

void fillItems(Connection& keeper, const naive::Ledger& ledger) {
  for (const char* itemClass : naive::itemClasses) {
    const auto table = std::string("ProjItems") + itemClass;
    keeper.execute(Sql("DELETE FROM " + table));
    for (const auto& item : ledger.items) {
      if (item.classId != itemClass) continue;
      keeper.execute(
          Sql("INSERT INTO " + table + " (lId, FIELD0, FIELD1) VALUES (?, ?, ?)", item.id, item.code, item.name));
    }
  }
}

void fillLedger(Connection& keeper, const naive::Ledger& ledger) {
  Transaction transaction(keeper, Transaction::Purpose::writing);
  const auto replace = [&]<class Record>(const std::vector<Record>& records) {
    keeper.execute(Sql(std::string("DELETE FROM ") + Record::table));
    insertRecords(keeper, records);
  };
  const auto replaceAll = [&](const auto&... tables) { (replace(tables), ...); };
  replaceAll(ledger.accounts, ledger.currencies, ledger.depts, ledger.persons, ledger.unitClasses, ledger.units,
             ledger.classes, ledger.classesOfAccounts, ledger.balances, ledger.postedHeads, ledger.postedLines,
             ledger.unpostedHeads, ledger.unpostedLines);
  fillItems(keeper, ledger);
  transaction.commit();
}

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
      {ParameterKey::analysis, question.amountAnalysis ? "amount" : ""},
      {ParameterKey::unposted, question.unposted ? "1" : ""},
      {ParameterKey::format, question.format},
  };
  if (question.from != logonMonth) values[ParameterKey::from] = std::to_string(question.from);
  if (question.to != logonMonth) values[ParameterKey::to] = std::to_string(question.to);
  Request request;
  for (const auto key : parametersOf(*findReport(question.report))) {
    if (!values[key].empty()) request.set(key, values[key]);
  }
  return request;
}

// The keys of the report's JSON that the naive computation knows.
nlohmann::json jsonOf(const Answer& answer, const Question& question) {
  auto rows = nlohmann::json::array();
  for (const auto& row : answer.rows) {
    rows.push_back({{"cells", row.cells},
                    {"background", row.unposted ? nlohmann::json("#E0FFE0") : nlohmann::json()},
                    {"data", row.unposted ? 1 : 0}});
  }
  return {{"title", answer.title},
          {"subtitle", answer.subtitle},
          {"unit", answer.unit},
          {"format", answer.format},
          {"period", fmt::format("月份: 2006.{:02} - 2006.{:02}", question.from, question.to)},
          {"rows", rows},
          {"notices", answer.notices}};
}

// What came out, as a text: the refusal, the wrong use or the JSON.
std::string ask(CQnCwDB& db, const std::string& ledger, const Question& question) {
  Session session{.db = db, .ledger = ledger, .logon = {2006, logonMonth, 31}};
  try {
    return answerText(runReport(*findReport(question.report), requestOf(question), session));
  } catch (const WrongUse&) {
    return "wrong use";
  }
}

// Where both differ, for a person to look at; empty when they agree.
std::string difference(const std::string& program, const Answer& answer, const Question& question) {
  if (!answer.refusal.empty() || answer.wrongUse) {
    const auto expected = answer.wrongUse ? "wrong use" : answer.refusal;
    return program == expected ? "" : "expected " + expected + "\nprogram  " + program;
  }
  if (!program.starts_with('{')) return "expected a report\nprogram  " + program;
  const auto json = nlohmann::json::parse(program);
  const auto expected = jsonOf(answer, question);
  for (const auto& [key, value] : expected.items()) {
    if (key != "rows" && json.at(key) != value) {
      return key + "\nexpected " + value.dump() + "\nprogram  " + json.at(key).dump();
    }
  }
  const auto& rows = json.at("rows");
  const auto& expectedRows = expected.at("rows");
  for (std::size_t i = 0; i < std::max(rows.size(), expectedRows.size()); ++i) {
    const auto row = i < rows.size() ? rows[i].dump() : "none";
    const auto expectedRow = i < expectedRows.size() ? expectedRows[i].dump() : "none";
    if (row != expectedRow) return "row " + std::to_string(i) + "\nexpected " + expectedRow + "\nprogram  " + row;
  }
  return {};
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
    if (!answer.refusal.empty()) ++refusals;
    reports += answer.rows.empty() ? 0 : 1;
    rows += static_cast<int>(answer.rows.size());
    notices += static_cast<int>(answer.notices.size());
    for (const auto& row : answer.rows) unpostedRows += row.unposted ? 1 : 0;
  }
};
using ReachedByReport = std::map<int, Reached>;

// A sum of cents depends on the order in which it is formed, and only the month walk has a fixed one.
bool addsInFixedOrder(const naive::Report& report) { return report.groups.empty() && report.id != 10232; }

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
    fillLedger(place.keeper(), ledger);
    for (const auto& report : naive::allNaive()) {
      for (int i = 0; i < questionsPerReport; ++i) {
        const auto question = naive::randomQuestion(dice, ledger, report);
        if (differ.contains(report.id) || (cents && !addsInFixedOrder(report))) continue;
        const auto answer = naive::detailLedger(ledger, question);
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
    EXPECT_GT(reached.rows, 1000) << id;
    EXPECT_GT(reached.unpostedRows, 50) << id;
    EXPECT_GT(reached.notices, 5) << id;
    EXPECT_GT(reached.refusals, 5) << id;
  }
}

TEST(NaiveComparison, AgreesOnAServer) {
  for (const auto& [id, reached] : compareMany(Engine::postgres, 15)) EXPECT_GT(reached.reports, 3) << id;
}

// A new detail ledger needs its naive side.
TEST(NaiveComparison, KnowsEveryDetailLedger) {
  for (const auto* report : catalogue()) {
    const auto title = std::string(report->printTitle);
    const bool detail = title.ends_with("明细帐") || title.ends_with("多栏帐");
    EXPECT_EQ(naive::findNaive(report->command) != nullptr, detail) << report->command << " " << title;
  }
}

}  // namespace
}  // namespace tz::test
