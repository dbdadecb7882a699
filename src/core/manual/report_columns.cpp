#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <set>

#include "core/manual/markdown.h"
#include "core/manual/report_page.h"

namespace tz::manual {
namespace {

// The caption that groups have in common.
const std::string& mainCaption(const GridColumn& column) {
  return column.group.empty() ? column.caption : column.group;
}

// The format that shows most has every column that any has.
std::vector<GridColumn> allColumns(const ReportDefinition& report) {
  std::vector<GridColumn> most;
  for (const auto format : possibleFormats(report)) {
    auto columns = columnsOf(report, format);
    if (columns.size() > most.size()) most = std::move(columns);
  }
  return most;
}

std::string meaningsTable(const ReportDefinition& report) {
  auto text = tableHead({"栏目", "含义"});
  std::set<std::string> told;
  for (const auto& column : allColumns(report)) {
    if (!told.insert(mainCaption(column)).second) continue;
    text += tableRow({plain(mainCaption(column)), plain(meaningOf(report, column))});
  }
  return text;
}

// "期初余额（数量、外币、金额）" where a group has several.
std::string sequence(const std::vector<GridColumn>& columns) {
  std::string text;
  for (auto column = columns.begin(); column != columns.end();) {
    text.append(text.empty() ? "" : "、").append(plain(mainCaption(*column)));
    if (column->group.empty()) {
      ++column;
      continue;
    }
    const auto end = std::find_if(column, columns.end(), [&](const auto& one) { return one.group != column->group; });
    std::vector<std::string> parts;
    std::transform(column, end, std::back_inserter(parts), [](const GridColumn& one) { return one.caption; });
    text += fmt::format("（{}）", fmt::join(parts, "、"));
    column = end;
  }
  return text;
}

std::string formatsTable(const ReportDefinition& report) {
  auto text = tableHead({"金额格式", "栏目依次是"});
  for (const auto format : possibleFormats(report)) {
    text += tableRow({std::string(formatName(format)), sequence(columnsOf(report, format))});
  }
  return text;
}

// What the parts of groups hold, each kind once.
std::string partsList(const ReportDefinition& report) {
  std::string text;
  std::set<std::string> told;
  for (const auto& column : allColumns(report)) {
    if (column.group.empty() || !told.insert(column.caption).second) continue;
    fmt::format_to(std::back_inserter(text), "- {}：{}\n", column.caption, meaningOfPart(column.kind));
  }
  return text;
}

}  // namespace

std::string_view meaningOfPart(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::quantity:
    case ColumnKind::debitQuantity:
    case ColumnKind::creditQuantity:
      return "按科目的计量单位，写在表的上方。";
    case ColumnKind::foreign:
    case ColumnKind::debitForeign:
    case ColumnKind::creditForeign:
      return "按科目的币种，写在表的上方。";
    case ColumnKind::price:
      return "余额的金额 ÷ 数量；除不出来时沿用上一行的。";
    case ColumnKind::rate:
      return "余额的金额 ÷ 外币，科目规定反过来记的按外币 ÷ 金额；除不出来时沿用上一行的。";
    case ColumnKind::amount:
    case ColumnKind::debitAmount:
    case ColumnKind::creditAmount:
      return "本位币金额。";
    default:
      return {};
  }
}

std::string_view meaningOf(const ReportDefinition& report, const GridColumn& column) {
  const auto found = std::ranges::find(report.columnMeanings, mainCaption(column), &ColumnMeaning::caption);
  return found == report.columnMeanings.end() ? std::string_view() : found->meaning;
}

std::vector<AmountFormat> possibleFormats(const ReportDefinition& report) {
  if (report.formats == nullptr) return {AmountFormat::amount};
  Conditions conditions;
  conditions.amounts.unit = "unit";
  conditions.amounts.currency = "currency";
  for (const auto& traits : amountFormats) {
    if (traits.amounts) conditions.amounts.formats.push_back(traits.format);
  }
  return report.formats(conditions);
}

std::vector<GridColumn> columnsOf(const ReportDefinition& report, AmountFormat format) {
  Conditions conditions;
  conditions.format = format;
  const auto taken = parametersOf(report);
  if (std::ranges::find(taken, ParameterKey::creditLimit) != taken.end()) {
    conditions.request.set(ParameterKey::creditLimit, "1");
  }
  CTzGrid grid;
  if (report.columns != nullptr) report.columns(report, conditions, grid);
  return grid.Columns();
}

std::string composeColumns(const ReportDefinition& report) {
  auto text = "## 栏目\n\n" + meaningsTable(report) + "\n";
  if (report.formats == nullptr) return text;
  return text + "各种金额格式的栏目：\n\n" + formatsTable(report) + "\n分栏的数：\n\n" + partsList(report) + "\n";
}

}  // namespace tz::manual
