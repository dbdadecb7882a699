// The program's person detail ledger against the naive computation, on random ledgers.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "catalogue/catalogue.h"
#include "data/record_io.h"
#include "ledger/random_ledger.h"
#include "reports/report_definition.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

using naive::Answer;
using naive::Question;

constexpr int logonMonth = 7;

void fillLedger(Connection& keeper, const naive::Ledger& ledger) {
  Transaction transaction(keeper, Transaction::Purpose::writing);
  for (const char* table :
       {"Code", "Cyrency", "Dept", "Person", "AssAcc", "RegMain", "RegSub", "UnregMain", "UnregSub"}) {
    keeper.execute(Sql(std::string("DELETE FROM ") + table));
  }
  insertRecords(keeper, ledger.accounts);
  insertRecords(keeper, ledger.currencies);
  insertRecords(keeper, ledger.depts);
  insertRecords(keeper, ledger.persons);
  insertRecords(keeper, ledger.balances);
  insertRecords(keeper, ledger.postedHeads);
  insertRecords(keeper, ledger.postedLines);
  insertRecords(keeper, ledger.unpostedHeads);
  insertRecords(keeper, ledger.unpostedLines);
  transaction.commit();
}

Request requestOf(const Question& question) {
  Request request;
  request.set(ParameterKey::account, question.account);
  request.set(ParameterKey::dept, question.dept);
  request.set(ParameterKey::person, question.person);
  if (question.from != logonMonth) request.set(ParameterKey::from, std::to_string(question.from));
  if (question.to != logonMonth) request.set(ParameterKey::to, std::to_string(question.to));
  if (question.unposted) request.set(ParameterKey::unposted, "1");
  if (!question.format.empty()) request.set(ParameterKey::format, question.format);
  return request;
}

nlohmann::json jsonOf(const naive::Cell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return *number;
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  return nullptr;
}

std::string monthText(int month) { return (month < 10 ? "2006.0" : "2006.") + std::to_string(month); }

// The keys of the report's JSON that the naive computation knows.
nlohmann::json jsonOf(const Answer& answer, const Question& question) {
  auto rows = nlohmann::json::array();
  for (const auto& row : answer.rows) {
    auto cells = nlohmann::json::array();
    for (const auto& cell : row.cells) cells.push_back(jsonOf(cell));
    rows.push_back({{"cells", cells},
                    {"background", row.green ? nlohmann::json("#E0FFE0") : nlohmann::json()},
                    {"data", row.data}});
  }
  return {{"subtitle", answer.subtitle},
          {"unit", answer.unit},
          {"format", answer.format},
          {"period", "月份: " + monthText(question.from) + " - " + monthText(question.to)},
          {"rows", rows},
          {"notices", answer.notices}};
}

std::string printed(const ComputedReport& report) {
  std::string text;
  writeJson(report, [&](std::string_view piece) {
    text += piece;
    return true;
  });
  return text;
}

// What came out, as a text: the refusal, the wrong use or the JSON.
std::string ask(CQnCwDB& db, const std::string& ledger, const Question& question) {
  Session session{.db = db, .ledger = ledger, .logon = {2006, logonMonth, 31}};
  try {
    const auto outcome = runReport(*findReport(10190), requestOf(question), session);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) return "refused: " + refusal->text();
    return printed(std::get<ComputedReport>(outcome));
  } catch (const WrongUse&) {
    return "wrong use";
  }
}

// Where both differ, for a person to look at; empty when they agree.
std::string difference(const std::string& program, const Answer& answer, const Question& question) {
  if (!answer.refusal.empty() || answer.formatNotOffered) {
    const auto expected = answer.formatNotOffered ? "wrong use" : "refused: " + answer.refusal;
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
  return question.account + " / " + question.dept + " / " + question.person + " / " + std::to_string(question.from) +
         "-" + std::to_string(question.to) + (question.unposted ? " unposted " : " ") + question.format;
}

// How much the random ledgers really reach.
struct Reached {
  int reports = 0, rows = 0, unpostedRows = 0, notices = 0, refusals = 0;

  void count(const Answer& answer) {
    if (!answer.refusal.empty()) ++refusals;
    reports += answer.rows.empty() ? 0 : 1;
    rows += static_cast<int>(answer.rows.size());
    notices += static_cast<int>(answer.notices.size());
    for (const auto& row : answer.rows) unpostedRows += row.green ? 1 : 0;
  }
};

Reached compareMany(Engine engine, int seeds) {
  constexpr int questionsPerLedger = 15;
  TestLedger place(engine);
  CQnCwDB db(Access::read);
  db.Open(place.address());
  Reached reached;
  for (int seed = 1; seed <= seeds && !::testing::Test::HasFailure(); ++seed) {
    naive::Dice dice(static_cast<std::uint64_t>(seed));
    const auto ledger = naive::randomLedger(dice);
    fillLedger(place.keeper(), ledger);
    for (int i = 0; i < questionsPerLedger; ++i) {
      const auto question = naive::randomQuestion(dice, ledger);
      const auto answer = naive::threeColumnLedger(ledger, question);
      reached.count(answer);
      const auto found = difference(ask(db, place.address(), question), answer, question);
      if (!found.empty()) {
        ADD_FAILURE() << "seed " << seed << ", question " << i << ": " << spelled(question) << "\n" << found;
        break;
      }
    }
  }
  return reached;
}

TEST(NaiveComparison, AgreesOnAFile) {
  const auto reached = compareMany(Engine::sqlite, 300);
  EXPECT_GT(reached.reports, 1500);
  EXPECT_GT(reached.rows, 10000);
  EXPECT_GT(reached.unpostedRows, 500);
  EXPECT_GT(reached.notices, 150);
  EXPECT_GT(reached.refusals, 200);
}

TEST(NaiveComparison, AgreesOnAServer) {
  const auto reached = compareMany(Engine::postgres, 30);
  EXPECT_GT(reached.reports, 150);
}

}  // namespace
}  // namespace tz::test
