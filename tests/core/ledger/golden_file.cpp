#include "core/ledger/golden_file.h"

#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tz::test {
namespace {

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// Cells without the blanks that align them.
std::string canonical(const std::string& line) {
  std::string text;
  std::istringstream cells(line);
  std::string cell;
  while (std::getline(cells, cell, '|')) text += (text.empty() ? "" : "|") + trimmed(cell) + " ";
  if (line.ends_with('|')) text += "| ";
  return text;
}

void addLine(std::string& text, const std::string& key, const std::string& cells) {
  text += canonical(key + " |" + cells) + '\n';
}

std::vector<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> all;
  for (std::string word; stream >> word;) all.push_back(word);
  return all;
}

std::string numberText(double number) {
  char buffer[400];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::fixed).ptr;
  return {std::begin(buffer), end};
}

std::string cellText(const nlohmann::json& cell) {
  if (cell.is_null()) return {};
  if (cell.is_number()) return numberText(cell.get<double>());
  const auto text = cell.get<std::string>();
  double figure = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), figure);
  const bool looksLikeOne = error == std::errc{} && end == text.data() + text.size();
  return looksLikeOne ? '"' + text + '"' : text;
}

// Each line of a text that may hold several is a line of its own; an empty text is none.
void addTexts(std::string& shown, const std::string& key, const nlohmann::json& text) {
  std::istringstream lines(text.get<std::string>());
  for (std::string line; std::getline(lines, line);) addLine(shown, key, line);
}

std::string rowKey(const nlohmann::json& row) {
  const auto& background = row.at("background");
  const auto data = row.at("data").get<int>();
  if (background.is_null() && data == 0) return {};
  if (background == "#E0FFE0" && data == 1) return "green";
  return "background " + background.dump() + " data " + std::to_string(data);
}

std::string joined(const nlohmann::json& list, std::string (*text)(const nlohmann::json&)) {
  std::string cells;
  for (const auto& entry : list) cells += (cells.empty() ? " " : " | ") + text(entry) + " ";
  return cells;
}

std::string captionText(const nlohmann::json& column) {
  const auto group = column.at("group").get<std::string>();
  return (group.empty() ? "" : group + ".") + column.at("caption").get<std::string>();
}

}  // namespace

GoldenFile readGoldenFile(const std::string& path) {
  std::ifstream stream(path);
  if (!stream) throw std::runtime_error("no golden file " + path);
  GoldenFile file;
  enum class Section { none, table, report } section = Section::none;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with('#')) continue;
    if (line.starts_with("[report")) {
      section = Section::report;
      const auto end = line.find(']');
      const auto id = trimmed(line.substr(7, end - 7));
      file.reports.push_back({id.empty() ? "10190" : id, words(line.substr(end + 1)), {}});
    } else if (line.starts_with('[')) {
      section = Section::table;
      file.tables.push_back({line.substr(1, line.find(']') - 1), {}});
    } else if (section == Section::table) {
      file.tables.back().rows += line + '\n';
    } else if (section == Section::report) {
      if (!trimmed(line).empty()) file.reports.back().expected += canonical(line) + '\n';
    } else if (!trimmed(line).empty()) {
      throw std::runtime_error(path + ": a line before the first section: " + line);
    }
  }
  return file;
}

std::string shownReport(const nlohmann::json& report) {
  std::string shown;
  addTexts(shown, "title", report.at("title"));
  addTexts(shown, "subtitle", report.at("subtitle"));
  addTexts(shown, "period", report.at("period"));
  addTexts(shown, "unit", report.at("unit"));
  addTexts(shown, "format", report.at("format"));
  addLine(shown, "columns", joined(report.at("columns"), captionText));
  for (const auto& row : report.at("rows")) addLine(shown, rowKey(row), joined(row.at("cells"), cellText));
  for (const auto& notice : report.at("notices")) addTexts(shown, "notice", notice);
  return shown;
}

}  // namespace tz::test
