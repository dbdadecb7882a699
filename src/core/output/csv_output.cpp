#include <cmath>
#include <fmt/format.h>
#include <string>

#include "core/grid/figures.h"
#include "core/grid/utf8.h"
#include "core/output/block_writer.h"
#include "core/output/formula_guard.h"
#include "core/output/gb18030.h"
#include "core/output/grid_to_file.h"

namespace tz {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnd = "\r\n";
constexpr std::int64_t rowsPerProgress = 4096;

void appendField(std::string& out, std::string_view text) {
  const bool guarded = looksLikeFormula(text);
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    if (guarded) out += '\'';
    appendUtf8(out, text);
    return;
  }
  out += guarded ? "\"'" : "\"";
  for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
    appendUtf8(out, text.substr(0, quote + 1));
    out += '"';
    text.remove_prefix(quote + 1);
  }
  appendUtf8(out, text);
  out += '"';
}

void appendLine(std::string& out, std::string_view text) {
  appendField(out, text);
  out += lineEnd;
}

void appendCaptions(std::string& out, const CTzGrid& grid, std::string GridColumn::*level, std::string_view mark) {
  const char* separator = "";
  for (const GridColumn& column : grid.Columns()) {
    out += separator;
    appendField(out, column.*level);
    separator = ",";
  }
  out += mark;
  out += lineEnd;
}

// Whether a column behind the others says what a colour says elsewhere.
bool hasMarks(const ComputedReport& report) { return !report.highlightMeaning.empty(); }

void appendCsvHead(std::string& out, const ComputedReport& report) {
  for (const HeadLine& line : headLines(report)) appendLine(out, line.text);
  bool grouped = false;
  for (const GridColumn& column : report.grid.Columns()) grouped = grouped || !column.group.empty();
  const std::string mark = hasMarks(report) ? "," + std::string(markCaption) : "";
  if (grouped) appendCaptions(out, report.grid, &GridColumn::group, hasMarks(report) ? "," : "");
  appendCaptions(out, report.grid, &GridColumn::caption, mark);
}

void appendCsvNumber(std::string& out, double number) {
  if (std::isfinite(number)) {
    appendExactFigure(out, number);
  } else {
    appendFigure(out, number, ColumnKind::text);
  }
}

void appendCsvCell(std::string& out, const CTzGrid& grid, std::int64_t row, int column) {
  switch (grid.TypeAt(row, column)) {
    case CTzGrid::CellType::empty:
      break;
    case CTzGrid::CellType::text:
      appendField(out, grid.TextAt(row, column));
      break;
    case CTzGrid::CellType::number:
      appendCsvNumber(out, grid.NumberAt(row, column));
      break;
    case CTzGrid::CellType::date:
      appendDate(out, grid.DateAt(row, column), grid.Columns()[static_cast<std::size_t>(column)].kind);
      break;
  }
}

void appendRow(std::string& out, const ComputedReport& report, std::int64_t row) {
  const CTzGrid& grid = report.grid;
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (column > 0) out += ',';
    appendCsvCell(out, grid, row, column);
  }
  if (hasMarks(report)) {
    out += ',';
    if (grid.BackgroundAt(row) != noColour) appendField(out, report.highlightMeaning);
  }
  out += lineEnd;
}

bool writeRecords(const ComputedReport& report, BlockWriter& writer, const FileProgress& progress) {
  const CTzGrid& grid = report.grid;
  appendCsvHead(writer.text, report);
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (progress && row % rowsPerProgress == 0 && !progress(row, grid.GetRows())) return false;
    appendRow(writer.text, report, row);
    if (!writer.HandOver()) return false;
  }
  for (const std::string& remark : remarks(grid)) appendLine(writer.text, remark);
  return writer.Finish();
}

// What a reader of the file must know about signs that programs read differently.
std::string ambiguityNotice(const std::set<char32_t>& ambiguous) {
  std::string signs;
  for (const char32_t character : ambiguous) {
    if (!signs.empty()) signs += "、";
    appendCharacter(signs, character);
    signs += fmt::format("（U+{:04X}）", static_cast<std::uint32_t>(character));
  }
  return "GB18030 的各版本对下列字符的码位规定不同，有的程序读回的码位会不一样：" + signs + "。要一字不差，请用 UTF-8";
}

bool writeGb18030(const ComputedReport& report, const Sink& sink, const FileProgress& progress) {
  Gb18030Converter converter;
  // Blocks end between records, so no character is cut.
  const Sink converting = [&](std::string_view text) { return sink(converter.Convert(text)); };
  BlockWriter writer(converting);
  if (!writeRecords(report, writer, progress)) return false;
  if (converter.Ambiguous().empty()) return true;
  std::string notice;
  appendLine(notice, ambiguityNotice(converter.Ambiguous()));
  return converting(notice);
}

}  // namespace

bool writeCsv(const ComputedReport& report, CsvCode code, const Sink& sink, const FileProgress& progress) {
  if (code == CsvCode::gb18030) return writeGb18030(report, sink, progress);
  BlockWriter writer(sink);
  writer.text += byteOrderMark;
  return writeRecords(report, writer, progress);
}

}  // namespace tz
