#include "core/check/ledger_check_rows.h"

#include <concepts>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace tz::check {

std::string figureText(std::int64_t millionths) {
  const double figure = static_cast<double>(millionths) / 1e6;
  return slack(millionths) == 0 ? fmt::format("{}", figure) : fmt::format("{:.16g}", figure);
}

void Namesakes::report(Report& report, std::string_view table) const {
  for (const auto& [name, ids] : ids_) {
    if (ids.size() < 2 || name.empty()) continue;  // an id that is there twice is told elsewhere
    report.hint(table, fmt::format("lId={}", fmt::join(ids, "、")), fmt::format("名称都是 “{}”", name));
  }
}

namespace {

template <class Number>
std::string readNumber(const Cursor& cursor, int column, std::string_view name, Number& field) {
  field = 0;
  try {
    if constexpr (std::same_as<Number, double>) {
      field = cursor.real(column);
    } else {
      field = cursor.integer(column);
    }
  } catch (const DbError&) {
    return fmt::format("{} 不是数：{}", name, cursor.anyText(column));
  }
  return "";
}

}  // namespace

std::string readCell(const Cursor& cursor, int column, std::string_view name, int& field) {
  field = 0;
  std::int64_t value = 0;
  if (auto problem = readNumber(cursor, column, name, value); !problem.empty()) return problem;
  const bool small = name.starts_with("by");
  const std::int64_t low = small ? 0 : std::numeric_limits<int>::min();
  const std::int64_t high = small ? 255 : std::numeric_limits<int>::max();
  field = value < low || value > high ? 0 : static_cast<int>(value);
  return value == field ? "" : fmt::format("{} = {} 超出范围", name, value);
}

std::string readCell(const Cursor& cursor, int column, std::string_view name, Id& field) {
  if (auto problem = readNumber(cursor, column, name, field); !problem.empty()) return problem;
  return field >= 0 ? "" : fmt::format("{} = {} 不能为负数", name, field);
}

std::string readCell(const Cursor& cursor, int column, std::string_view name, double& field) {
  if (auto problem = readNumber(cursor, column, name, field); !problem.empty()) return problem;
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
  constexpr int firstYear = 1900;
  field = {};
  try {
    field = cursor.date(column);
  } catch (const DbError&) {
    return fmt::format("{} 不是日期：{}", name, cursor.anyText(column));
  }
  if (field.empty()) return fmt::format("{} 为空", name);
  return field.year >= firstYear ? "" : fmt::format("{} 不合理：{}", name, isoText(field));
}

ReadColumns readColumns(Connection& connection, Report& report, const TableSchema& wanted) {
  ReadColumns columns;
  const auto table = report.tables().tables.find(lowerCase(wanted.name));
  columns.complete = table != report.tables().tables.end();
  if (!columns.complete) return columns;
  for (const auto& [name, type] : wanted.columns) {
    const auto stored = std::ranges::find(table->second, lowerCase(name), &StoredColumn::name);
    if (stored == table->second.end()) {
      report.add(wanted.name, "", "缺少列 " + name);
      columns.complete = false;
      continue;
    }
    const auto fit = connection.dialect().fit(type, *stored);
    if (fit == Dialect::Fit::converted || fit == Dialect::Fit::useless) {
      report.add(wanted.name, "", fmt::format("列 {} 的类型是 {}", name, stored->type));
    }
    columns.there.push_back({name, type, fit});
  }
  return columns;
}

std::string wrongKind(CellKind kind, const ReadColumn& column) {
  using Type = Dialect::Type;
  if (kind == CellKind::null) return column.name + " 为空";
  // A column of another type has been told as a whole.
  if (column.fit == Dialect::Fit::converted || column.fit == Dialect::Fit::useless) return "";
  if (kind == CellKind::other) return column.name + " 是二进制数据";
  const bool number = kind == CellKind::integer || (kind == CellKind::real && column.wanted == Type::real);
  const bool date = kind == CellKind::date || kind == CellKind::text;
  const bool right = column.wanted == Type::text ? kind == CellKind::text : column.wanted == Type::date ? date : number;
  return right ? "" : column.name + " 的类型不符";
}

Sql selectOf(std::string_view table, const std::vector<ReadColumn>& columns) {
  std::string list;
  for (const auto& column : columns) list += (list.empty() ? "" : ", ") + column.name;
  return Sql("SELECT " + list + " FROM " + std::string(table));
}

}  // namespace tz::check
