// What leaves the program says what it holds: every condition of every report stands above its table, warnings stand
// there too, and the name that is proposed for a file tells its subject.
#include <algorithm>
#include <gtest/gtest.h>

#include "core/catalogue/catalogue.h"
#include "core/data/create_ledger.h"
#include "core/reports/condition_texts.h"
#include "core/sample/sample_company.h"
#include "support/every_report.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class HeadingTest : public ::testing::Test {
 protected:
  HeadingTest() : place_(Engine::sqlite) {
    createLedger(place_.address(), [](Connection& connection) { fillSample(connection, {}); });
    reader_.emplace(place_.address());
  }

  ComputedReport computed(const Question& question) {
    auto outcome = reader_->ask(question);
    if (!std::holds_alternative<ComputedReport>(outcome)) throw std::runtime_error(answerText(outcome));
    return std::get<ComputedReport>(std::move(outcome));
  }
  Question questionOf(int command) {
    auto all = everyReport(*reader_);
    return *std::ranges::find_if(all, [&](const Question& question) { return question.report->command == command; });
  }
  std::vector<std::string> itemCodes(const std::string& classId) {
    std::vector<std::string> codes;
    const auto cursor = reader_->db().Current().query(Sql("SELECT FIELD0 FROM " + itemTable(classId) + " ORDER BY 1"));
    while (cursor->next()) codes.emplace_back(cursor->text(0));
    return codes;
  }

  std::string className(const std::string& classId) {
    return reader_->db().ProjClass_GetInfo(Sql("sItemId = ?", classId)).front().sName;
  }

  TestPlace place_;
  std::optional<Reader> reader_;
};

std::string headOf(const ComputedReport& report) {
  std::string text;
  for (const auto& line : headLines(report)) text += line.text + "\n";
  return text;
}

bool takes(const ReportDefinition& report, ParameterKey key) {
  const auto keys = parametersOf(report);
  return std::ranges::find(keys, key) != keys.end();
}

// Months stand in the period line, in a form of their own; a class stands there by its name.
bool standsAsGiven(ParameterKey key) {
  return key != ParameterKey::from && key != ParameterKey::to && key != ParameterKey::projectClass;
}

TEST_F(HeadingTest, EveryConditionOfEveryReportStandsAboveItsTable) {
  for (auto question : everyReport(*reader_)) {
    const auto& report = *question.report;
    SCOPED_TRACE(report.command);
    auto& request = question.request;
    if (takes(report, ParameterKey::analysis)) request.set(ParameterKey::analysis, "amount");
    const auto text = headOf(computed(question));
    for (const auto& [key, value] : request.values()) {
      if (!standsAsGiven(key)) continue;
      const auto& condition = parameter(key);
      const bool flag = condition.kind == Parameter::Kind::flag;
      const std::string shown = key == ParameterKey::analysis ? "金额分析" : flag ? std::string(condition.help) : value;
      EXPECT_NE(text.find(shown), std::string::npos) << condition.option << "\n" << text;
    }
    if (takes(report, ParameterKey::projectClass)) {
      EXPECT_NE(text.find(className(request.text(ParameterKey::projectClass))), std::string::npos) << text;
    }
  }
}

TEST_F(HeadingTest, RangesListsAndFormatsStandThereWhole) {
  auto ofProjects = questionOf(10219);
  const auto classId = reader_->db().ProjClass_GetInfo("sItemId <> '' ORDER BY lId").front().sItemId;
  const auto codes = itemCodes(classId);
  ofProjects.request.set(ParameterKey::projectClass, classId);
  ofProjects.request.set(ParameterKey::projectFrom, codes.front());
  ofProjects.request.set(ParameterKey::projectTo, codes.back());
  const auto ranged = computed(ofProjects);
  EXPECT_NE(headOf(ranged).find("项目范围: " + codes.front() + " 至 " + codes.back()), std::string::npos);
  EXPECT_TRUE(ranged.grid.notices.empty());
  EXPECT_NE(ranged.fileName.find(className(classId) + " " + codes.front() + "-" + codes.back()), std::string::npos)
      << ranged.fileName;

  ofProjects.request.set(ParameterKey::projectFrom, codes.back());
  ofProjects.request.set(ParameterKey::projectTo, codes.front());
  EXPECT_NE(headOf(computed(ofProjects)).find("※ 起始项目在终止项目之后。"), std::string::npos);

  auto ofUnit = questionOf(10204);
  const auto accounts = reader_->db().Code_GetInfo("sAssBook LIKE '%B%' ORDER BY sCode");
  ASSERT_GE(accounts.size(), 2U);
  ofUnit.request.set(ParameterKey::account, accounts[0].sCode + "\n" + accounts[1].sCode);
  const auto ofTwo = computed(ofUnit).fileName;
  EXPECT_NE(ofTwo.find(" " + accounts[0].sCode + "、" + accounts[1].sCode + " 2025"), std::string::npos) << ofTwo;
  ofUnit.request.clear(ParameterKey::account);
  EXPECT_NE(headOf(computed(ofUnit)).find("科目: 全部"), std::string::npos);
  ofUnit.request.set(ParameterKey::format, "外币式");
  const auto foreign = headOf(computed(ofUnit));
  EXPECT_NE(foreign.find("金额格式: 外币式"), std::string::npos);
  EXPECT_NE(foreign.find("※ 外币式沿用七栏表头"), std::string::npos);
}

TEST_F(HeadingTest, MonthsThatMisleadAreWarnedOf) {
  auto question = questionOf(10190);
  EXPECT_TRUE(computed(question).grid.notices.empty());
  question.request.set(ParameterKey::from, "3");
  EXPECT_NE(headOf(computed(question)).find("※ 本年累计自3月起累计。"), std::string::npos);
  question.request.set(ParameterKey::to, "2");
  EXPECT_NE(headOf(computed(question)).find("※ 起始月份在终止月份之后。"), std::string::npos);

  Session nextYear{.db = reader_->db(), .ledger = place_.address(), .logon = {2026, 1, 31}};
  const auto outcome = runReport(*question.report, question.request, nextYear);
  EXPECT_NE(headOf(std::get<ComputedReport>(outcome)).find("登录日期 2026-01-31 不在会计年度 2025 内"),
            std::string::npos);
}

TEST_F(HeadingTest, LinesLeftOutStandInTheTitle) {
  auto question = questionOf(10190);
  openLedger(place_.address(), Access::keeper)->execute("UPDATE RegMain SET dtBill = '2025-01-31' WHERE byPeroid > 6");
  question.request.set(ParameterKey::from, "2");
  const auto report = computed(question);
  ASSERT_FALSE(report.grid.notices.empty());
  EXPECT_EQ(report.grid.notices.front().weight, Notice::Weight::incomplete);
  EXPECT_TRUE(headOf(report).starts_with("三栏式明细帐（有分录未列示）\n※ 有")) << headOf(report);
}

TEST_F(HeadingTest, TheProposedNameTellsTheSubjectAndSuitsFileSystems) {
  const auto question = questionOf(10190);
  auto session = Session{.db = reader_->db(), .ledger = place_.address(), .logon = {2025, 11, 25}};
  auto conditions = std::get<Conditions>(validate(question.report->dialog, question.request, session));
  const auto name = [&] { return proposedFileName(*question.report, conditions, 2025); };
  conditions.account.sCode = "122101";
  conditions.account.sName = "职工借款";
  conditions.person.sName = "李明";
  conditions.from = 1;
  conditions.to = 3;
  EXPECT_EQ(name(), "三栏式明细帐 122101 职工借款 李明 2025.01-03");
  conditions.to = 1;
  EXPECT_EQ(name(), "三栏式明细帐 122101 职工借款 李明 2025.01");
  conditions.person.sName = "../O'Brien: \"*?<>|\\\n\u202E";
  EXPECT_EQ(name(), "三栏式明细帐 122101 职工借款 .._O'Brien_ _________ 2025.01");
  conditions.person.sName.clear();
  for (int i = 0; i < 100; ++i) conditions.person.sName += "李";
  EXPECT_LE(name().size(), 200U);
  EXPECT_TRUE(name().ends_with("李 2025.01")) << name();
}

}  // namespace
}  // namespace tz::test
