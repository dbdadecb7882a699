#include <array>
#include <cmath>
#include <string>

#include "grid/block_writer.h"
#include "grid/column_adder.h"
#include "grid/grid_to_file.h"
#include "grid/platform.h"
#include "grid/utf8.h"

namespace tz {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnd = "\r\n";
constexpr std::int64_t rowsPerProgress = 4096;

// Spreadsheets compute what begins like this; some take the wide forms as well.
bool looksLikeFormula(std::string_view text) {
  constexpr std::array<std::string_view, 10> beginnings{"=", "+", "-", "@", "\t", "\r", "＝", "＋", "－", "＠"};
  for (const std::string_view beginning : beginnings) {
    if (text.size() > beginning.size() && text.starts_with(beginning)) return true;
  }
  return false;
}

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

void appendHead(std::string& out, const ComputedReport& report) {
  for (const HeadLine& line : headLines(report)) appendLine(out, line.text);
  bool grouped = false;
  for (const GridColumn& column : report.grid.Columns()) grouped = grouped || !column.group.empty();
  const std::string mark = hasMarks(report) ? "," + std::string(markCaption) : "";
  if (grouped) appendCaptions(out, report.grid, &GridColumn::group, hasMarks(report) ? "," : "");
  appendCaptions(out, report.grid, &GridColumn::caption, mark);
}

void appendRow(std::string& out, const ComputedReport& report, std::int64_t row) {
  const CTzGrid& grid = report.grid;
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (column > 0) out += ',';
    if (grid.TypeAt(row, column) == CTzGrid::CellType::number) {
      const double number = grid.NumberAt(row, column);
      if (std::isfinite(number)) {
        appendExactFigure(out, number);
      } else {
        appendFigure(out, number, Figure::none);
      }
    } else {
      appendField(out, grid.TextAt(row, column));
    }
  }
  if (hasMarks(report)) {
    out += ',';
    if (grid.BackgroundAt(row) != noColour) appendField(out, report.highlightMeaning);
  }
  out += lineEnd;
}

bool writeRecords(const ComputedReport& report, BlockWriter& writer, const FileProgress& progress) {
  const CTzGrid& grid = report.grid;
  appendHead(writer.text, report);
  for (std::int64_t row = 0; row < grid.GetRows(); ++row) {
    if (progress && row % rowsPerProgress == 0 && !progress(row, grid.GetRows())) return false;
    appendRow(writer.text, report, row);
    if (!writer.HandOver()) return false;
  }
  for (const std::string& remark : remarks(grid)) appendLine(writer.text, remark);
  return writer.Finish();
}

}  // namespace

bool writeCsv(const ComputedReport& report, CsvCode code, const Sink& sink, const FileProgress& progress) {
  // Blocks end between records, so no character is cut.
  const Sink converting = [&sink](std::string_view text) { return sink(platform::toGb18030(text)); };
  BlockWriter writer(code == CsvCode::utf8 ? sink : converting);
  if (code == CsvCode::utf8) writer.text += byteOrderMark;
  return writeRecords(report, writer, progress);
}

}  // namespace tz
