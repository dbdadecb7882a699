#include <cmath>
#include <gtest/gtest.h>

#include "core/output/grid_reports.h"
#include "core/output/grid_to_file.h"
#include "core/output/temporary_folder.h"

namespace tz::test {
namespace {

std::string asCsv(const ComputedReport& report, CsvCode code = CsvCode::utf8) {
  std::string text;
  EXPECT_TRUE(writeCsv(report, code, into(text)));
  return text;
}

TEST(CsvOutput, WholeReport) {
  ComputedReport report;
  report.title = "明细帐";
  report.subtitle = "科目：1133\n部门：销售部, 二部";
  report.period = "月份: 2006.01 - 2006.02";
  CTzGridControl::AddCol(report.grid, "摘要", 120, ColumnKind::text);
  CTzGridControl::AddGroup(report.grid, "借方", 100, {ColumnKind::debitQuantity, ColumnKind::debitAmount});
  addRow(report.grid, {"预借", 12.5, 1234567.125});
  addRow(report.grid, {none, 0.1 + 0.2, -1000.0});
  addRow(report.grid, {"合计", std::nan("")}, RowKind::total);
  report.conditions = {"项目范围: X1 至 X9", "包含未记帐凭证"};
  report.highlightMeaning = "未记帐凭证";
  report.grid.SetBackground(1, lightGreen);
  report.grid.notices = {Notice{"有1条分录未列示", Notice::Weight::incomplete},
                         Notice{"本年累计自2月起累计。", Notice::Weight::warning}, Notice{"本单只列已两清分录"}};
  EXPECT_EQ(asCsv(report),
            "\xEF\xBB\xBF"
            "明细帐（有分录未列示）\r\n"
            "※ 有1条分录未列示\r\n"
            "※ 本年累计自2月起累计。\r\n"
            "科目：1133\r\n"
            "\"部门：销售部, 二部\"\r\n"
            "月份: 2006.01 - 2006.02\r\n"
            "项目范围: X1 至 X9\r\n"
            "包含未记帐凭证\r\n"
            ",借方,借方,\r\n"
            "摘要,数量,金额,标记\r\n"
            "预借,12.5,1234567.125,\r\n"
            ",0.30000000000000004,-1000,未记帐凭证\r\n"
            "合计,—,,\r\n"
            "本单只列已两清分录\r\n");
}

TEST(CsvOutput, TextsAreQuotedAndNeverFormulas) {
  const auto written = [](const char* cell) {
    ComputedReport report;
    report.grid.AddColumn({"摘要", "", 100, ColumnKind::text});
    addRow(report.grid, {cell});
    const std::string text = asCsv(report);
    const std::size_t start = text.find("\r\n") + 2;
    return text.substr(start, text.size() - start - 2);
  };
  EXPECT_EQ(written("O'Brien'; DROP TABLE Plan --"), "O'Brien'; DROP TABLE Plan --");
  EXPECT_EQ(written("3\" 管, 黑"), "\"3\"\" 管, 黑\"");
  EXPECT_EQ(written("上\n下"), "\"上\n下\"");
  EXPECT_EQ(written("=HYPERLINK(\"x\",1)"), "\"'=HYPERLINK(\"\"x\"\",1)\"");
  EXPECT_EQ(written("+1"), "'+1");
  EXPECT_EQ(written("-2+3"), "'-2+3");
  EXPECT_EQ(written("@SUM(A1)"), "'@SUM(A1)");
  EXPECT_EQ(written("\t=1"), "'\t=1");
  EXPECT_EQ(written("＝1+1"), "'＝1+1");
  EXPECT_EQ(written("-"), "-");
  // What spreadsheets leave out before the sign changes nothing.
  for (const char* before :
       {" ", "\u00A0", "\u3000 ", "\u2003", "\uFEFF", "\u200F", "\u202E\u2066", "\u061C", "\x1f", "\x0b"}) {
    for (const char* sign : {"=", "+", "-", "@", "＝", "＋", "－", "＠", "﹢"}) {
      const std::string text = std::string(before) + sign + "A1";
      EXPECT_EQ(written(text.c_str()), "'" + text);
    }
  }
  EXPECT_EQ(written("\n=1"), "\"'\n=1\"");
  EXPECT_EQ(written("\uFEFF\n=1"), "\"'\uFEFF\n=1\"");
  EXPECT_EQ(written("\u3000甲=1"), "\u3000甲=1");
  EXPECT_EQ(written("a\xff z"), "a\uFFFD z");
}

TEST(CsvOutput, Gb18030HoldsEveryCharacter) {
  ComputedReport report;
  report.grid.AddColumn({"辅助", "", 100, ColumnKind::text});
  addRow(report.grid, {"𠮷\u00e9한"});
  const std::string text = asCsv(report, CsvCode::gb18030);
  EXPECT_EQ(text.substr(0, 6), "\xB8\xA8\xD6\xFA\r\n");
  const TemporaryFolder folder;
  writeContents(folder / "gb.csv", text);
  EXPECT_EQ(printedBy("iconv -f GB18030 -t UTF-8 " + folder / "gb.csv"), "辅助\r\n𠮷\u00e9한\r\n");
}

// Codes that the editions of the standard read differently: the sign is the same for every decoder, and where its code
// point is not, the file says so.
TEST(CsvOutput, Gb18030SaysWhichSignsAreReadDifferently) {
  const TemporaryFolder folder;
  const auto readBy = [&](const std::string& cell, const std::string& decoder) {
    ComputedReport report;
    report.grid.AddColumn({"名", "", 100, ColumnKind::text});
    addRow(report.grid, {cell.c_str()});
    writeContents(folder / "gb.csv", asCsv(report, CsvCode::gb18030));
    const std::string text = printedBy(decoder + " " + folder / "gb.csv");
    return text.substr(text.find('\n') + 1);
  };
  const std::string library = "iconv -f GB18030 -t UTF-8";
  const std::string python =
      "python3 -c 'import sys; sys.stdout.buffer.write(open(sys.argv[1], \"rb\").read().decode(\"gb18030\").encode())'";
  const std::string everywhere = "\u4E00\U00020087\U00020089\U000200CC\U000215D7\U0002298F\U000241FE\uE000\uF8FF";
  for (const auto& decoder : {library, python}) EXPECT_EQ(readBy(everywhere, decoder), everywhere + "\r\n");
  // A private code point of an older program, and the public one that has its code now.
  for (const std::string sign : {"\uE78D", "\uFE10"}) {
    EXPECT_EQ(readBy(sign, library).substr(0, 5), "\uFE10\r\n");
    EXPECT_EQ(readBy(sign, python).substr(0, 5), "\uE78D\r\n");
  }
  const std::string noticed = readBy("甲\uE864乙", library);
  EXPECT_EQ(noticed.substr(0, 9), "甲\u9FBB乙") << noticed;
  EXPECT_NE(noticed.find("U+E864"), std::string::npos) << noticed;
}

TEST(CsvOutput, BlocksOfALongReportFitTogether) {
  ComputedReport report;
  report.grid.AddColumn({"号", "", 100, ColumnKind::text});
  std::string expected = "号\r\n";
  for (int row = 0; row < 30'000; ++row) {
    const std::string text = "凭证" + std::to_string(row);
    addRow(report.grid, {text.c_str()});
    expected += text + "\r\n";
  }
  const TemporaryFolder folder;
  ASSERT_TRUE(CGridToFile(report).CreateFile(folder / "gb.csv", FileForm::csvGb18030));
  EXPECT_EQ(printedBy("iconv -f GB18030 -t UTF-8 " + folder / "gb.csv"), expected);
}

}  // namespace
}  // namespace tz::test
