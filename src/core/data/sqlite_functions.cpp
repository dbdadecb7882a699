#include "core/data/sqlite_functions.h"

#include <charconv>
#include <cmath>
#include <sqlite3.h>
#include <string>

#include "core/data/backends.h"

namespace tz {
namespace {

std::string_view textOf(sqlite3_value* value) {
  const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {data == nullptr ? "" : data, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void fail(sqlite3_context* context, const std::string& what) {
  sqlite3_result_error(context, what.c_str(), static_cast<int>(what.size()));
}

void number(sqlite3_context* context, int, sqlite3_value** cells) {
  auto* cell = *cells;
  switch (sqlite3_value_type(cell)) {
    case SQLITE_NULL:
      return sqlite3_result_int64(context, 0);
    case SQLITE_BLOB:
      return fail(context, "不是数：二进制数据");
    case SQLITE_TEXT:
      if (!isNumberText(textOf(cell))) return fail(context, "不是数：" + std::string(textOf(cell)));
      if (sqlite3_value_numeric_type(cell) == SQLITE_TEXT) return sqlite3_result_int64(context, 0);  // blanks
      [[fallthrough]];
    default:
      sqlite3_result_value(context, cell);
  }
}

void text(sqlite3_context* context, int, sqlite3_value** cells) {
  auto* cell = *cells;
  if (sqlite3_value_type(cell) == SQLITE_BLOB) return fail(context, "不是文字：二进制数据");
  if (sqlite3_value_type(cell) == SQLITE_FLOAT) {
    const auto written = shortestText(sqlite3_value_double(cell));
    return sqlite3_result_text(context, written.c_str(), static_cast<int>(written.size()), SQLITE_TRANSIENT);
  }
  const auto written = textOf(cell);
  sqlite3_result_text(context, written.data(), static_cast<int>(written.size()), SQLITE_TRANSIENT);
}

}  // namespace

bool isNumberText(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (text.empty()) return true;
  double figure = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), figure);
  return error == std::errc{} && end == text.data() + text.size() && std::isfinite(figure);
}

void addSqliteFunctions(sqlite3* db) {
  constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  sqlite3_create_function_v2(db, "tz_number", 1, flags, nullptr, number, nullptr, nullptr, nullptr);
  sqlite3_create_function_v2(db, "tz_text", 1, flags, nullptr, text, nullptr, nullptr, nullptr);
}

}  // namespace tz
