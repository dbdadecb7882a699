// A report brings its period and its colours with it: every output shows those of its record and no others.
#include "core/reports/period_form.h"

#include "core/output/grid_to_file.h"
#include "core/output/xlsx_output.h"
#include "support/made_report.h"
#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {
namespace {

class PeriodForms : public ::testing::Test {
 protected:
  PeriodForms() { db_.Open(ledger_.address()); }

  ComputedReport compute(const ReportDefinition& report, const Request& request = atMonthsEnd()) {
    Session session{.db = db_, .ledger = ledger_.address(), .logon = {2006, 3, 31}};
    return std::get<ComputedReport>(runReport(report, request, session));
  }
  template <class Write>
  static std::string written(const Write& write) {
    std::string text;
    write([&text](std::string_view piece) {
      text += piece;
      return true;
    });
    return text;
  }
  // Everything that leaves the program, as one text.
  std::string outputs(const ComputedReport& report) {
    const std::string file = folder_.file("report.xlsx");
    EXPECT_TRUE(CGridToFile(report).CreateFile(file, FileForm::xlsx));
    return written([&](const Sink& sink) { writeText(report, {}, sink); }) +
           written([&](const Sink& sink) { writeCsv(report, CsvCode::utf8, sink); }) +
           written([&](const Sink& sink) { writeJson(report, sink); }) +
           runCommand({"unzip", "-p", file, "xl/worksheets/sheet1.xml"}).out;
  }
  static int times(std::string_view text, std::string_view wanted) {
    int count = 0;
    for (auto at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1)) ++count;
    return count;
  }

  TestLedger ledger_{Engine::sqlite};
  CQnCwDB db_{Access::report};
  TempFolder folder_;
};

TEST_F(PeriodForms, ACutoffDateIsToldOnceInEachOutput) {
  const auto report = compute(madeReport());
  EXPECT_EQ(report.period, "截止日期: 2006-03-31");
  EXPECT_EQ(report.paintedPeriod, "截止 2006-03-31");
  EXPECT_EQ(report.printedPeriod, "2006 年，2006-03-31 止");
  EXPECT_EQ(report.fileName, "欠款一览表 2006-03-31");
  EXPECT_FALSE(report.format.has_value());
  EXPECT_TRUE(report.conditions.empty()) << report.conditions.front();
  const auto all = outputs(report);
  EXPECT_EQ(times(all, "截止日期: 2006-03-31"), 4) << all;
  EXPECT_EQ(times(all, "月份"), 0) << all;
}

TEST_F(PeriodForms, AReportWithoutAPeriodLeavesItOut) {
  auto definition = madeReport();
  definition.period = noPeriod;
  const auto report = compute(definition);
  EXPECT_EQ(report.period + report.paintedPeriod + report.printedPeriod, "");
  EXPECT_EQ(report.fileName, "欠款一览表");
  EXPECT_EQ(report.conditions, std::vector<std::string>{"截止日期: 2006-03-31"}) << "then the date is a condition";
  const auto all = outputs(report);
  EXPECT_EQ(times(all, "月份"), 0) << all;
  EXPECT_NE(all.find(R"("period": "")"), std::string::npos);
}

TEST_F(PeriodForms, MonthsHaveAFormForEachFace) {
  auto definition = madeReport();
  definition.period = monthsPeriod;
  Request request;
  request.set(ParameterKey::from, "2");
  const auto report = compute(definition, request);
  EXPECT_EQ(report.period, "月份: 2006.02 - 2006.03");
  EXPECT_EQ(report.paintedPeriod, "月份: 2006.2--2006.3");
  EXPECT_EQ(report.printedPeriod, report.paintedPeriod);
  EXPECT_EQ(report.fileName, "欠款一览表 2006.02-03");
  definition.period.printed = months::printedWide;
  EXPECT_EQ(compute(definition, request).printedPeriod, "月份：2006.2--2006.3");
}

TEST_F(PeriodForms, ColouredRowsMeanWhatTheRecordSays) {
  auto definition = madeReport();
  EXPECT_EQ(times(outputs(compute(definition)), "已过期"), 3) << "text, csv and xlsx; JSON has the colour";
  definition.colours.apply = [](const Conditions& conditions) { return conditions.unposted; };
  EXPECT_EQ(compute(definition).highlightMeaning, "");
  definition.colours = {};
  EXPECT_EQ(compute(definition).highlightMeaning, "");
}

}  // namespace
}  // namespace tz::test
