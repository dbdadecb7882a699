#include <cmath>
#include <string>

#include "core/grid/figures.h"
#include "core/grid/utf8.h"
#include "core/output/block_writer.h"
#include "core/output/report_output.h"

namespace tz {
namespace {

void appendEscaped(std::string& out, char32_t character) {
  constexpr std::string_view hexDigits = "0123456789abcdef";
  switch (character) {
    case '"':
      out += "\\\"";
      return;
    case '\\':
      out += "\\\\";
      return;
    case '\n':
      out += "\\n";
      return;
    case '\r':
      out += "\\r";
      return;
    case '\t':
      out += "\\t";
      return;
    default:
      break;
  }
  if (character < 0x20) {
    out += "\\u00";
    out += hexDigits[character >> 4];
    out += hexDigits[character & 0xF];
  } else {
    appendCharacter(out, character);
  }
}

void appendText(std::string& out, std::string_view text) {
  out += '"';
  for (std::size_t place = 0; place < text.size();) {
    const char byte = text[place];
    if (byte >= ' ' && byte != '"' && byte != '\\') {
      out += byte;
      ++place;
    } else {
      appendEscaped(out, nextCharacter(text, place));
    }
  }
  out += '"';
}

// Whole numbers with ".0", so that readers keep them as figures.
void appendNumber(std::string& out, double number) {
  if (!std::isfinite(number)) {
    out += "null";
    return;
  }
  const std::size_t start = out.size();
  appendExactFigure(out, number);
  if (out.find_first_of(".e", start) == std::string::npos) out += ".0";
}

void appendMember(std::string& out, std::string_view key, std::string_view text) {
  appendText(out, key);
  out += ": ";
  appendText(out, text);
}

void appendTexts(std::string& out, const std::vector<std::string>& texts) {
  out += '[';
  const char* separator = "";
  for (const std::string& text : texts) {
    out += separator;
    appendText(out, text);
    separator = ", ";
  }
  out += ']';
}

void appendBackground(std::string& out, Rgb colour) {
  constexpr std::string_view hexDigits = "0123456789ABCDEF";
  if (colour == noColour) {
    out += "null";
    return;
  }
  out += "\"#";
  for (int shift = 20; shift >= 0; shift -= 4) out += hexDigits[colour >> shift & 0xF];
  out += '"';
}

void appendCell(std::string& out, const CTzGrid& grid, std::int64_t row, int column) {
  const std::string_view text = grid.TextAt(row, column);
  const auto type = grid.TypeAt(row, column);
  if (type == CTzGrid::CellType::number) {
    appendNumber(out, grid.NumberAt(row, column));
  } else if (type == CTzGrid::CellType::date) {
    out += '"';
    appendDate(out, grid.DateAt(row, column), grid.Columns()[static_cast<std::size_t>(column)].kind);
    out += '"';
  } else if (text.empty()) {
    out += "null";
  } else {
    appendText(out, text);
  }
}

void appendJsonHead(std::string& out, const ComputedReport& report) {
  out += "{\"report\": " + std::to_string(report.report) + ", \"window\": " + std::to_string(report.window) + ", ";
  appendMember(out, "title", report.title);
  out += ", ";
  appendMember(out, "subtitle", report.subtitle);
  out += ", ";
  appendMember(out, "period", report.period);
  out += ",\n ";
  appendMember(out, "unit", report.unit);
  out += ", ";
  appendMember(out, "format", report.format ? formatName(*report.format) : std::string_view());
  out += ",\n \"conditions\": ";
  appendTexts(out, report.conditions);
  out += ",\n \"columns\": [";
  const char* separator = "";
  for (const GridColumn& column : report.grid.Columns()) {
    out += separator;
    out += "\n  {";
    appendMember(out, "caption", column.caption);
    out += ", ";
    appendMember(out, "group", column.group);
    out += ", \"width\": " + std::to_string(column.width) + "}";
    separator = ",";
  }
  out += "],\n \"rows\": [";
}

void appendJsonRow(std::string& out, const ComputedReport& report, std::int64_t row) {
  const CTzGrid& grid = report.grid;
  out += row == 0 ? "\n  {\"cells\": [" : ",\n  {\"cells\": [";
  for (int column = 0; column < grid.GetCols(); ++column) {
    if (column > 0) out += ", ";
    appendCell(out, grid, row, column);
  }
  out += "], \"background\": ";
  appendBackground(out, grid.BackgroundAt(row));
  out += ", \"data\": " + std::to_string(grid.RowDataAt(row));
  if (report.namesLines) {
    const auto line = report.subjects.line(row);
    out += ", \"line\": " + (line ? std::to_string(line->line) : "null");
  }
  out += '}';
}

}  // namespace

bool writeJson(const ComputedReport& report, const Sink& sink) {
  BlockWriter writer(sink);
  appendJsonHead(writer.text, report);
  for (std::int64_t row = 0; row < report.grid.GetRows(); ++row) {
    appendJsonRow(writer.text, report, row);
    if (!writer.HandOver()) return false;
  }
  writer.text += "],\n \"notices\": ";
  std::vector<std::string> notices;
  for (const Notice& notice : report.grid.notices) notices.push_back(notice.text);
  appendTexts(writer.text, notices);
  writer.text += "}\n";
  return writer.Finish();
}

}  // namespace tz
