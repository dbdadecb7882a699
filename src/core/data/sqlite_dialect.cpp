#include "core/data/sqlite_dialect.h"

#include "core/data/schema.h"

namespace tz {
namespace {

enum class Affinity { integer, text, none, real, numeric };

// SQLite's own rules of what a declared type makes of the values in its column.
Affinity affinityOf(std::string_view type) {
  const auto has = [&](std::string_view word) { return type.find(word) != std::string_view::npos; };
  if (has("int")) return Affinity::integer;
  if (has("char") || has("clob") || has("text")) return Affinity::text;
  if (type.empty() || type == "any" || has("blob")) return Affinity::none;
  if (has("real") || has("floa") || has("doub")) return Affinity::real;
  return Affinity::numeric;
}

bool isNumber(Dialect::Type type) { return type != Dialect::Type::text && type != Dialect::Type::date; }

}  // namespace

std::string_view SqliteDialect::typeName(Type type) const {
  switch (type) {
    case Type::text:
    case Type::date:
      return "TEXT";
    case Type::real:
      return "REAL";
    default:
      return "INTEGER";
  }
}

Sql SqliteDialect::dateAdd(std::string_view column, int days) const {
  return Sql("date(" + std::string(column) + ", ? || ' days')", std::to_string(days));
}

std::string SqliteDialect::catalogueView() const {
  return "SELECT 4 AS creator, coalesce('ProjItems' || c.sItemId, t.name) AS table_name FROM sqlite_master t "
         "LEFT JOIN ProjClass c ON lower('ProjItems' || c.sItemId) = lower(t.name) WHERE t.type = 'table'";
}

std::string SqliteDialect::columnsQuery(std::string_view list) const {
  return "SELECT 'main', lower(t.name), lower(c.name), lower(c.type), lower(coalesce(t.sql, '')) NOT LIKE '%collate%', "
         "c.\"notnull\" = 0, t.type = 'table', 1 FROM sqlite_master t, pragma_table_xinfo(t.name) c WHERE t.type IN "
         "('table', 'view') "
         "AND lower(t.name) IN (" +
         std::string(list) + ")";
}

std::string SqliteDialect::definition(const TableSchema& table) const { return createTableText(table, *this); }

std::string_view SqliteDialect::storedType(Type type) const {
  switch (type) {
    case Type::text:
    case Type::date:
      return "text";
    case Type::real:
      return "real";
    default:
      return "integer";
  }
}

Dialect::Fit SqliteDialect::fit(Type wanted, const StoredColumn& column) const {
  const auto affinity = affinityOf(column.type);
  if (affinity == Affinity::none) return Fit::untold;
  if (wanted == Type::text) return affinity == Affinity::text ? Fit::own : Fit::converted;
  if (wanted == Type::date) {
    return affinity == Affinity::text || affinity == Affinity::numeric ? Fit::own : Fit::converted;
  }
  if (affinity == Affinity::text) return Fit::converted;
  return affinity == Affinity::real && wanted != Type::real ? Fit::converted : Fit::own;
}

std::string SqliteDialect::inForm(Type wanted, const StoredColumn& column) const {
  const auto affinity = affinityOf(column.type);
  const bool texts = affinity == Affinity::text || affinity == Affinity::none;
  if (isNumber(wanted)) return texts ? "tz_number(" + column.name + ")" : column.name;
  // A date that is no text fails when it is read.
  if (wanted == Type::date || (affinity == Affinity::text && column.byteOrder)) return column.name;
  return "tz_text(" + column.name + ")";
}

// Without the limit, converted ids would be joined row by row; with it, the view is read once and indexed on the way.
std::string SqliteDialect::viewInFront(const std::string& table, const std::string& columns) const {
  const bool ids = columns.find("tz_number(") != std::string::npos || columns.find("coalesce(") != std::string::npos;
  return "CREATE TEMP VIEW " + table + " AS SELECT " + columns + " FROM main." + table + (ids ? " LIMIT -1" : "");
}

// LIKE tells capital letters from small ones on these connections, and lower() would copy each text.
Sql SqliteDialect::contains(std::string_view column, std::string_view text) const {
  std::string pattern = "*";
  for (const char c : text) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool meant = c == '*' || c == '?' || c == '[';
    if (letter || meant) pattern += '[';
    pattern += c;
    constexpr char otherCase = 'a' - 'A';
    if (letter) pattern += static_cast<char>(c ^ otherCase);
    if (letter || meant) pattern += ']';
  }
  pattern += '*';
  return Sql(std::string(column) + " GLOB ?", pattern);
}

}  // namespace tz
