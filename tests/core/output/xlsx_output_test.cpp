#include "core/output/xlsx_output.h"

#include <gtest/gtest.h>
#include <limits>

#include "core/output/grid_reports.h"
#include "core/output/sheet_name.h"
#include "core/output/temporary_folder.h"
#include "core/output/xlsx_text.h"
#include "core/platform/sink.h"

namespace tz::test {
namespace {

std::string partOf(const std::string& file, const std::string& part) {
  return printedBy("unzip -p " + file + " " + part);
}

// A cell of a sheet, from its opening to its closing tag.
std::string cellOf(const std::string& sheet, const std::string& name) {
  const std::size_t start = sheet.find("<c r=\"" + name + "\"");
  if (start == std::string::npos) return "";
  const std::size_t end = std::min(sheet.find("</c>", start), sheet.find("/>", start));
  return sheet.substr(start, end - start);
}

bool holds(const std::string& text, const std::string& piece) { return text.find(piece) != std::string::npos; }

// The value of an attribute of the tag that starts at `tag`.
std::string attributeOf(const std::string& xml, std::size_t tag, const std::string& name) {
  const std::size_t start = xml.find(name + "=\"", tag) + name.size() + 2;
  return xml.substr(start, xml.find('"', start) - start);
}

// The number format that a cell is shown with, looked up in the styles of its book.
std::string formatOf(const std::string& cell, const std::string& styles) {
  std::size_t style = styles.find("<cellXfs");
  for (int i = std::stoi(attributeOf(cell, 0, "s")); i >= 0; --i) style = styles.find("<xf ", style + 1);
  const std::size_t format = styles.find("<numFmt numFmtId=\"" + attributeOf(styles, style, "numFmtId") + "\"");
  return format == std::string::npos ? "" : attributeOf(styles, format, "formatCode");
}

ComputedReport groupedReport() {
  ComputedReport report;
  report.title = "明细帐";
  report.subtitle = "科目：1133\n部门：销售部";
  report.highlightMeaning = "未记帐凭证";
  CTzGridControl::AddCol(report.grid, "日期", 70, ColumnKind::date);
  CTzGridControl::AddCol(report.grid, "科目", 60, ColumnKind::text);
  CTzGridControl::AddGroup(report.grid, "借方", 100, {ColumnKind::debitQuantity, ColumnKind::debitAmount});
  CTzGridControl::AddGroup(report.grid, "余额", 100, {ColumnKind::quantity, ColumnKind::price, ColumnKind::amount});
  addRow(report.grid, {Date{2006, 1, 5}, "0102", 12.5, 1234.5, 3.0, 0.3333, -4.0});
  const auto green = addRow(report.grid, {"2006.01.05", "=1+1", none, std::numeric_limits<double>::infinity()});
  report.grid.SetBackground(green, lightGreen);
  addRow(report.grid, {"合计\x01<&>"}, RowKind::total);
  report.grid.notices = {Notice{"有1条分录未列示"}};
  return report;
}

class XlsxOutput : public testing::Test {
 protected:
  const TemporaryFolder folder;
  const std::string file = folder / "report.xlsx";
};

TEST_F(XlsxOutput, CellsHaveTheirTypes) {
  ASSERT_TRUE(CGridToFile(groupedReport()).CreateFile(file, FileForm::xlsx));
  const std::string sheet = partOf(file, "xl/worksheets/sheet1.xml");
  const std::string styles = partOf(file, "xl/styles.xml");
  // Rows: title, two lines of subtitle, two of captions.
  const std::string date = cellOf(sheet, "A6");
  EXPECT_TRUE(holds(date, "<v>38722</v>")) << date;
  EXPECT_EQ(formatOf(date, styles), "yyyy.mm.dd");
  EXPECT_TRUE(holds(cellOf(sheet, "B6"), "t=\"inlineStr\"><is><t>0102")) << cellOf(sheet, "B6");
  EXPECT_TRUE(holds(cellOf(sheet, "D6"), "<v>1234.5</v>"));
  EXPECT_EQ(formatOf(cellOf(sheet, "D6"), styles), "#,##0.00;[Red]-#,##0.00");
  EXPECT_EQ(formatOf(cellOf(sheet, "C6"), styles), "#,##0.####;[Red]-#,##0.####");
  EXPECT_EQ(formatOf(cellOf(sheet, "E6"), styles), "#,##0;[Red]-#,##0");
  EXPECT_TRUE(holds(cellOf(sheet, "G6"), "<v>-4</v>"));
  // No date, no formula, no number: texts.
  EXPECT_TRUE(holds(cellOf(sheet, "A7"), "<t>2006.01.05"));
  EXPECT_TRUE(holds(cellOf(sheet, "B7"), "<t>=1+1"));
  EXPECT_TRUE(holds(cellOf(sheet, "D7"), "<t>∞"));
  EXPECT_TRUE(holds(cellOf(sheet, "A8"), "<t>合计_x0001_&lt;&amp;&gt;"));
  EXPECT_FALSE(holds(sheet, "<f>"));
  EXPECT_EQ(formatOf(cellOf(sheet, "B7"), styles), "");
  EXPECT_TRUE(holds(cellOf(sheet, "A10"), "有1条分录未列示"));
  EXPECT_TRUE(holds(styles, "rgb=\"FFE0FFE0\""));
  EXPECT_NE(cellOf(sheet, "C7"), "");  // the ground goes on below an empty cell
  EXPECT_EQ(cellOf(sheet, "C8"), "");
}

TEST_F(XlsxOutput, ADateColumnHoldsDatesTextsAndNumbers) {
  ComputedReport report;
  report.title = "表";
  report.grid.AddColumn({"日期", "", 70, ColumnKind::date});
  addRow(report.grid, {Date{2024, 2, 29}});
  addRow(report.grid, {"2024.02.29"}, RowKind::opening);
  addRow(report.grid, {12.5}, RowKind::subtotal);
  // Outside the calendar of spreadsheets.
  addRow(report.grid, {Date{1899, 12, 31}});
  addRow(report.grid, {Date{2023, 2, 29}});
  const auto green = addRow(report.grid, {Date{9999, 12, 31}});
  report.grid.SetBackground(green, lightGreen);
  ASSERT_TRUE(CGridToFile(report).CreateFile(file, FileForm::xlsx));
  const std::string sheet = partOf(file, "xl/worksheets/sheet1.xml");
  const std::string styles = partOf(file, "xl/styles.xml");
  EXPECT_TRUE(holds(cellOf(sheet, "A3"), "<v>45351</v>")) << cellOf(sheet, "A3");
  EXPECT_EQ(formatOf(cellOf(sheet, "A3"), styles), "yyyy.mm.dd");
  EXPECT_TRUE(holds(cellOf(sheet, "A4"), "<t>2024.02.29")) << cellOf(sheet, "A4");
  EXPECT_TRUE(holds(cellOf(sheet, "A5"), "<v>12.5</v>")) << cellOf(sheet, "A5");
  EXPECT_EQ(formatOf(cellOf(sheet, "A5"), styles), "#,##0.######;[Red]-#,##0.######");
  EXPECT_TRUE(holds(cellOf(sheet, "A6"), "<t>1899.12.31")) << cellOf(sheet, "A6");
  EXPECT_TRUE(holds(cellOf(sheet, "A7"), "<t>2023.02.29")) << cellOf(sheet, "A7");
  EXPECT_TRUE(holds(cellOf(sheet, "A8"), "<v>2958465</v>")) << cellOf(sheet, "A8");
  EXPECT_EQ(formatOf(cellOf(sheet, "A8"), styles), "yyyy.mm.dd");
}

TEST_F(XlsxOutput, TextsComeBackAsTheyWere) {
  const auto kept = [](std::string_view text) {
    std::string cell;
    xlsxTextInto(cell, text);
    return cell;
  };
  EXPECT_EQ(kept("a_x0041_b"), "a_x005F_x0041_b");
  EXPECT_EQ(kept("_x0041_x0042_"), "_x005F_x0041_x005F_x0042_");
  EXPECT_EQ(kept("_x0041\r"), "_x005F_x0041_x000D_");
  EXPECT_EQ(kept("\x1b[2J\t\n_x004_ _x00G1_ _X0041_ _"), "_x001B_[2J\t\n_x004_ _x00G1_ _X0041_ _");
  EXPECT_EQ(kept("a\xff\uFFFE"), "a\uFFFD_xFFFE_");
  // The limit counts UTF-16 units: a pair that would cross it stays out whole.
  std::string pairs;
  for (int i = 0; i < 20'000; ++i) pairs += "𠮷";
  EXPECT_EQ(kept(pairs), pairs.substr(0, 4 * 16'383));
  EXPECT_EQ(kept(std::string(32'766, 'a') + "𠮷").size(), 32'766U);
  EXPECT_EQ(kept(std::string(32'767, 'a') + "b").size(), 32'767U);

  ComputedReport report;
  report.grid.AddColumn({"名", "", 100, ColumnKind::text});
  addRow(report.grid, {("_x0041_" + pairs).c_str()});
  ASSERT_TRUE(CGridToFile(report).CreateFile(file, FileForm::xlsx));
  EXPECT_TRUE(holds(partOf(file, "xl/worksheets/sheet1.xml"), "<t>_x005F_x0041_𠮷"));
}

TEST_F(XlsxOutput, HeaderPageAndWidths) {
  ASSERT_TRUE(CGridToFile(groupedReport()).CreateFile(file, FileForm::xlsx));
  const std::string sheet = partOf(file, "xl/worksheets/sheet1.xml");
  EXPECT_TRUE(holds(sheet, "<pane ySplit=\"5\" topLeftCell=\"A6\" activePane=\"bottomLeft\" state=\"frozen\"/>"));
  EXPECT_TRUE(holds(sheet, "<mergeCell ref=\"A1:G1\"/>"));
  EXPECT_TRUE(holds(sheet, "<mergeCell ref=\"C4:D4\"/>"));
  EXPECT_TRUE(holds(sheet, "<mergeCell ref=\"E4:G4\"/>"));
  EXPECT_TRUE(holds(cellOf(sheet, "E4"), "余额"));
  EXPECT_TRUE(holds(cellOf(sheet, "F5"), "单价"));
  EXPECT_TRUE(holds(sheet, "fitToHeight=\"0\""));
  EXPECT_TRUE(holds(sheet, "&amp;C第 &amp;P 页 共 &amp;N 页"));
  EXPECT_TRUE(holds(partOf(file, "xl/workbook.xml"), "Print_Titles\" localSheetId=\"0\">'明细帐'!$4:$5"));
}

TEST_F(XlsxOutput, WarningsAndConditionsStandAboveTheTable) {
  ComputedReport report = groupedReport();
  report.conditions = {"项目范围: X1 至 X9"};
  report.grid.notices = {Notice{"有1条分录未列示", Notice::Weight::incomplete}};
  ASSERT_TRUE(CGridToFile(report).CreateFile(file, FileForm::xlsx));
  const std::string sheet = partOf(file, "xl/worksheets/sheet1.xml");
  EXPECT_TRUE(holds(cellOf(sheet, "A1"), "<t>明细帐（有分录未列示）"));
  EXPECT_TRUE(holds(cellOf(sheet, "A2"), "有1条分录未列示"));
  EXPECT_TRUE(holds(cellOf(sheet, "A5"), "项目范围: X1 至 X9"));
  EXPECT_TRUE(holds(cellOf(sheet, "A7"), "日期"));
  EXPECT_TRUE(holds(partOf(file, "xl/styles.xml"), "rgb=\"FFFFF0CC\""));
}

TEST(SheetName, IsWhatSpreadsheetsTake) {
  EXPECT_EQ(sheetName("三栏式明细帐", 1), "三栏式明细帐");
  EXPECT_EQ(sheetName("三栏式明细帐", 3), "三栏式明细帐 3");
  EXPECT_EQ(sheetName("'[a]:b*c?d/e\\f'", 1), "__a__b_c_d_e_f_");
  EXPECT_EQ(sheetName("", 1), "报表");
  EXPECT_EQ(sheetName(std::string(40, 'x'), 1), std::string(31, 'x'));
  EXPECT_EQ(sheetName(std::string(40, 'x'), 12), std::string(28, 'x') + " 12");
  EXPECT_EQ(sheetName(std::string(30, 'x') + "𠮷", 1), std::string(30, 'x')) << "that sign counts two";
  EXPECT_EQ(sheetName(std::string(30, 'x') + "'y", 1), std::string(30, 'x') + "_");
}

TEST_F(XlsxOutput, GoesOnInFurtherSheetsWithTheHeaderAgain) {
  ComputedReport report;
  report.title = "表";
  report.grid.AddColumn({"号", "", 60, ColumnKind::count});
  for (int row = 0; row < 25; ++row) addRow(report.grid, {static_cast<double>(row)});
  report.grid.notices = {Notice{"完"}};
  ASSERT_TRUE(writeXlsx(report, file, {.rowsPerSheet = 12, .progress = {}}));
  const std::string second = partOf(file, "xl/worksheets/sheet2.xml");
  const std::string third = partOf(file, "xl/worksheets/sheet3.xml");
  EXPECT_TRUE(holds(partOf(file, "xl/workbook.xml"), "<sheet name=\"表 3\""));
  EXPECT_TRUE(holds(cellOf(second, "A2"), "号"));
  EXPECT_TRUE(holds(cellOf(second, "A3"), "<v>10</v>"));
  EXPECT_TRUE(holds(cellOf(second, "A12"), "<v>19</v>"));
  EXPECT_EQ(cellOf(second, "A13"), "");
  EXPECT_TRUE(holds(cellOf(third, "A7"), "<v>24</v>"));
  EXPECT_TRUE(holds(cellOf(third, "A8"), "完"));
}

TEST_F(XlsxOutput, StoppedOrFailedItLeavesNoFile) {
  const ComputedReport report = groupedReport();
  const CGridToFile stopped(report, [](std::int64_t, std::int64_t) { return false; });
  EXPECT_FALSE(stopped.CreateFile(file, FileForm::xlsx));
  EXPECT_FALSE(stopped.CreateFile(file, FileForm::csv));
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_THROW(static_cast<void>(CGridToFile(report).CreateFile(folder / "no/report.xlsx", FileForm::xlsx)),
               OutputError);
  EXPECT_THROW(static_cast<void>(CGridToFile(report).CreateFile("/dev/full", FileForm::xlsx)), OutputError);
}

TEST_F(XlsxOutput, ReportsItsProgress) {
  ComputedReport report = groupedReport();
  report.grid.SetRows(10'000);
  std::vector<std::int64_t> seen;
  const CGridToFile writer(report, [&seen](std::int64_t done, std::int64_t of) {
    EXPECT_EQ(of, 10'000);
    seen.push_back(done);
    return true;
  });
  ASSERT_TRUE(writer.CreateFile(file, FileForm::xlsx));
  EXPECT_EQ(seen, (std::vector<std::int64_t>{0, 4096, 8192}));
}

}  // namespace
}  // namespace tz::test
