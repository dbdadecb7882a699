// Every report with every condition that it takes, through the parsed command line: what the program prints is what the
// computation gives for the same conditions.
#include <algorithm>
#include <gtest/gtest.h>

#include "cli/small_company.h"
#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/reports/offers.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"

namespace tz::test {
namespace {

// The sample company's first name of each kind, and a value of each other kind.
std::string firstValue(const ReportDefinition& report, ParameterKey key, Reader& reader) {
  const auto first = [&](const std::string& select) {
    const auto cursor = reader.db().Current().query(Sql(select));
    return cursor->next() ? std::string(cursor->text(0)) : std::string();
  };
  switch (key) {
    case ParameterKey::account:
      return first("SELECT sCode FROM Code WHERE " + std::string(report.dialog.accountWhere) + " ORDER BY sCode");
    case ParameterKey::dept:
      return "销售部";
    case ParameterKey::unitClass:
      return first("SELECT sName FROM EnterClass WHERE lId > 0 ORDER BY lId");
    case ParameterKey::clerk:
      return "其它";
    case ParameterKey::format:
      return "金额式";
    default:
      break;
  }
  const auto& condition = parameter(key);
  if (condition.kind == Parameter::Kind::choice) return std::string(condition.choices.back().value);
  if (condition.kind == Parameter::Kind::amount) return "0";
  if (condition.kind == Parameter::Kind::date) return "2025-06-30";
  return {};
}

// All accounts that the dialog offers, where several can be picked.
std::string everyAccount(const ReportDefinition& report, Reader& reader) {
  std::string all;
  for (const auto& entry : offered(report.dialog, ParameterKey::account, {}, reader.db())) {
    const auto code = CGetData::GetCode_Separator(entry.text);
    if (!code.empty()) all += (all.empty() ? "" : "\n") + code;
  }
  return all;
}

// Adds what the question leaves out; a value that the report refuses is taken back.
void addEveryCondition(Question& question, Reader& reader) {
  for (const auto key : parametersOf(*question.report)) {
    const bool several = takesSeveral(*question.report, key);
    if (question.request.flag(key) && !several) continue;
    const auto value = several ? everyAccount(*question.report, reader) : firstValue(*question.report, key, reader);
    if (value.empty()) continue;
    const auto before = question.request;
    question.request.set(key, value);
    try {
      if (!std::holds_alternative<ComputedReport>(reader.ask(question))) question.request = before;
    } catch (const WrongUse&) {
      question.request = before;
    }
  }
}

std::vector<std::string> wordsOf(const Question& question, const std::string& ledger) {
  std::vector<std::string> words = {"report", std::to_string(question.report->command), "--ledger", ledger, "--as",
                                    "json"};
  for (const auto& [key, value] : question.request.values()) {
    const auto option = "--" + std::string(parameter(key).option);
    if (parameter(key).kind == Parameter::Kind::flag) {
      words.push_back(option);
      continue;
    }
    if (!takesSeveral(*question.report, key)) {
      words.insert(words.end(), {option, value});
      continue;
    }
    for (const auto& one : question.request.list(key)) words.insert(words.end(), {option, one});
  }
  return words;
}

TEST(EveryCondition, ReachesTheReportFromTheCommandLine) {
  const TestPlace place(Engine::sqlite);
  createLedger(place.address(), [](Connection& connection) { fillSample(connection, {}); });
  Reader reader(place.address());
  for (auto question : everyReport(reader)) {
    SCOPED_TRACE(question.report->command);
    addEveryCondition(question, reader);
    const auto words = wordsOf(question, place.address());
    const auto run = runProgram(words);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out == answerText(reader.ask(question)));
    for (const auto key : parametersOf(*question.report)) {
      if (!takesSeveral(*question.report, key)) continue;
      EXPECT_GT(std::ranges::count(words, "--" + std::string(parameter(key).option)), 1) << "named twice";
    }
  }
}

}  // namespace
}  // namespace tz::test
