#include "data/ledger_check_rows.h"

#include <fmt/format.h>

#include "data/schema.h"

namespace tz::check {
namespace {

bool isNumber(std::string_view column) { return column[0] != 's' && !column.starts_with("dt"); }

bool sameName(std::string_view left, std::string_view right) {
  return std::ranges::equal(
      left, right, {}, [](unsigned char c) { return std::tolower(c); },
      [](unsigned char c) { return std::tolower(c); });
}

}  // namespace

std::string readCell(const Cursor& cursor, int column, std::string_view name, int& field) {
  const auto value = cursor.integer(column);
  const bool small = name.starts_with("by");
  const std::int64_t low = small ? 0 : std::numeric_limits<int>::min();
  const std::int64_t high = small ? 255 : std::numeric_limits<int>::max();
  field = value < low || value > high ? 0 : static_cast<int>(value);
  return value == field ? "" : fmt::format("{} = {} 超出范围", name, value);
}

std::string readCell(const Cursor& cursor, int column, std::string_view name, Id& field) {
  field = cursor.integer(column);
  return field >= 0 ? "" : fmt::format("{} = {} 不能为负数", name, field);
}

std::string readCell(const Cursor& cursor, int column, std::string_view name, double& field) {
  field = cursor.real(column);
  if (std::abs(field) <= largestFigure) return "";
  auto problem = fmt::format("{} = {} 不是可用的数", name, field);
  field = 0;
  return problem;
}

std::string readCell(const Cursor& cursor, int column, std::string_view, std::string& field) {
  field = cursor.text(column);
  return "";
}

std::string readCell(const Cursor& cursor, int column, std::string_view name, Date& field) {
  field = {};
  try {
    field = cursor.date(column);
  } catch (const DbError&) {
    return fmt::format("{} 不是日期：{}", name, cursor.anyText(column));
  }
  return field.year >= 1 && field.year <= 9999 ? "" : fmt::format("{} 不是日期", name);
}

Sql guardedSelect(Connection& connection, Report& report, std::string_view table,
                  const std::vector<std::string>& columns) {
  std::vector<std::string> present;
  {
    const auto cursor = connection.query(Sql("SELECT * FROM " + std::string(table) + " WHERE 1 = 0"));
    for (int column = 0; column < cursor->columns(); ++column) present.push_back(cursor->columnName(column));
  }
  std::string list, guard;
  bool complete = true;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto& column = columns[i];
    if (std::ranges::none_of(present, [&](const auto& name) { return sameName(name, column); })) {
      report.add(table, "", "缺少列 " + column);
      complete = false;
    }
    list += column + ", ";
    guard += fmt::format(" WHEN {0} IS NULL", column);
    if (isNumber(column)) guard += fmt::format(" OR {0} <> {0} + 0", column);
    guard += fmt::format(" THEN {}", i + 1);
  }
  if (!complete) return {};
  return Sql("SELECT " + list + "CASE" + guard + " ELSE 0 END FROM " + std::string(table));
}

}  // namespace tz::check
