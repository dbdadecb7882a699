#include "core/data/postgres_dialect.h"

#include <algorithm>
#include <array>

#include "core/data/schema.h"

namespace tz {
namespace {

bool isOneOf(std::string_view type, const auto& types) { return std::ranges::find(types, type) != types.end(); }

bool isTextType(std::string_view type) {
  return isOneOf(type, std::array<std::string_view, 4>{"text", "varchar", "bpchar", "name"});
}
bool isNumberType(std::string_view type) {
  return isOneOf(type, std::array<std::string_view, 7>{"int2", "int4", "int8", "oid", "float4", "float8", "numeric"});
}

}  // namespace

std::string_view PostgresDialect::typeName(Type type) const {
  switch (type) {
    case Type::id:
      return "bigint";
    case Type::text:
      return "text COLLATE \"C\"";
    case Type::real:
      return "double precision";
    case Type::small:
      return "smallint";
    case Type::integer:
      return "integer";
    case Type::date:
      return "date";
  }
  return "";
}

Sql PostgresDialect::dateAdd(std::string_view column, int days) const {
  return Sql("(" + std::string(column) + " + CAST(? AS integer))", days);
}

std::string PostgresDialect::catalogueView() const {
  std::string names;
  for (const auto& table : ledgerTables()) names += (names.empty() ? "('" : "'), ('") + table.name;
  // The server keeps names in small letters; the spelling comes from the list and from ProjClass. Ledgers that are
  // spread over several servers have partitioned or foreign tables.
  return "SELECT 4 AS creator, coalesce(l.name, 'ProjItems' || c.sItemId) AS table_name "
         "FROM pg_catalog.pg_class t JOIN pg_catalog.pg_namespace n ON n.oid = t.relnamespace "
         "LEFT JOIN (VALUES " +
         names +
         "')) AS l (name) ON lower(l.name) = t.relname "
         "LEFT JOIN ProjClass c ON lower('ProjItems' || c.sItemId) COLLATE \"C\" = t.relname "
         "WHERE n.nspname = current_schema() AND t.relkind IN ('r', 'p', 'f', 'v', 'm') "
         "AND (l.name IS NOT NULL OR c.sItemId IS NOT NULL)";
}

// Of tables alone; whatever else bears a name shows that it is taken, with an empty definition. The numbers of types
// and collations are the server's own and the same everywhere.
std::string PostgresDialect::definitionsQuery(std::string_view list) const {
  return "SELECT CAST(n.nspname AS text), CAST(t.relname AS text), "
         "CASE WHEN t.relkind IN ('r', 'p') THEN array_to_string(ARRAY(SELECT concat(a.attname, ' ', a.atttypid, ' ', "
         "a.attcollation, ' ', a.attnotnull) FROM pg_catalog.pg_attribute a WHERE a.attrelid = t.oid AND a.attnum > 0 "
         "AND NOT a.attisdropped ORDER BY a.attnum), ', ') ELSE '' END "
         "FROM pg_catalog.pg_class t JOIN pg_catalog.pg_namespace n ON n.oid = t.relnamespace "
         "WHERE n.nspname = ANY (pg_catalog.current_schemas(false)) "
         "AND (t.relname IN (" +
         std::string(list) + ") OR t.relname LIKE 'projitems_%')";
}

std::string PostgresDialect::definition(const TableSchema& table) const {
  std::string text;
  for (const auto& column : table.columns) {
    if (!text.empty()) text += ", ";
    text += lowerCase(column.name);
    text += ' ';
    text += definedType(column.type);
    text += column.type == Type::text ? " 950 t" : " 0 t";
  }
  return text;
}

std::string_view PostgresDialect::definedType(Type type) const {
  switch (type) {
    case Type::id:
      return "20";
    case Type::text:
      return "25";
    case Type::real:
      return "701";
    case Type::small:
      return "21";
    case Type::integer:
      return "23";
    case Type::date:
      return "1082";
  }
  return "";
}

std::string_view PostgresDialect::storedType(Type type) const {
  switch (type) {
    case Type::id:
      return "int8";
    case Type::text:
      return "text";
    case Type::real:
      return "float8";
    case Type::small:
      return "int2";
    case Type::integer:
      return "int4";
    case Type::date:
      return "date";
  }
  return "";
}

// A domain counts as the type that it stands over. A database whose own order is that of bytes needs no collation.
std::string PostgresDialect::columnsQuery(std::string_view list) const {
  return "SELECT CAST(n.nspname AS text), CAST(t.relname AS text), CAST(a.attname AS text), CAST(y.typname AS text), "
         "CAST(a.attcollation IN (0, 950, 951) OR (a.attcollation = 100 AND (SELECT datcollate FROM "
         "pg_catalog.pg_database WHERE datname = current_database()) IN ('C', 'POSIX')) AS integer), "
         "CAST(NOT a.attnotnull AS integer), CAST(t.relkind IN ('r', 'p') AS integer), "
         "CAST(pg_catalog.pg_table_is_visible(t.oid) AS integer) "
         "FROM pg_catalog.pg_class t JOIN pg_catalog.pg_namespace n ON n.oid = t.relnamespace "
         "JOIN pg_catalog.pg_attribute a ON a.attrelid = t.oid AND a.attnum > 0 AND NOT a.attisdropped "
         "JOIN pg_catalog.pg_type d ON d.oid = a.atttypid "
         "JOIN pg_catalog.pg_type y ON y.oid = CASE WHEN d.typtype = 'd' THEN d.typbasetype ELSE d.oid END "
         "WHERE t.relkind IN ('r', 'p', 'f', 'v', 'm') AND n.nspname = ANY (pg_catalog.current_schemas(false)) "
         "AND t.relname IN (" +
         std::string(list) + ") ORDER BY t.relname, n.nspname, a.attnum";
}

Sql PostgresDialect::useSchema(const std::string& schema) const {
  return Sql("SELECT pg_catalog.set_config('search_path', pg_catalog.quote_ident(?), false)", schema);
}

Dialect::Fit PostgresDialect::fit(Type wanted, const StoredColumn& column) const {
  const auto& type = column.type;
  switch (wanted) {
    case Type::text:
      if (isTextType(type)) return Fit::own;
      return isNumberType(type) ? Fit::converted : Fit::useless;
    case Type::date:
      if (type == "date") return Fit::own;
      return isTextType(type) || type == "timestamp" || type == "timestamptz" ? Fit::converted : Fit::useless;
    case Type::real:
      if (isNumberType(type)) return Fit::own;
      return isTextType(type) ? Fit::converted : Fit::useless;
    default:
      if (isOneOf(type, std::array<std::string_view, 3>{"int2", "int4", "int8"})) return Fit::own;
      return isNumberType(type) || isTextType(type) || type == "bool" ? Fit::converted : Fit::useless;
  }
}

std::string PostgresDialect::inForm(Type wanted, const StoredColumn& column) const {
  const auto& name = column.name;
  const auto& type = column.type;
  const auto numberIn = [&](std::string_view target) {
    return "coalesce(CAST(nullif(btrim(" + name + "), '') AS " + std::string(target) + "), 0)";
  };
  switch (wanted) {
    case Type::text:
      if (isTextType(type) && type != "bpchar" && column.byteOrder) return name;
      return "CAST(" + name + " AS text) COLLATE \"C\"";
    case Type::date:
      return type == "timestamp" || type == "timestamptz" ? "CAST(" + name + " AS date)" : name;
    case Type::real:
      return isTextType(type) ? numberIn("double precision") : name;
    default:
      if (isTextType(type)) return numberIn("bigint");
      return type == "bool" ? "CAST(" + name + " AS integer)" : name;
  }
}

std::string PostgresDialect::viewInFront(const std::string& table, const std::string& columns) const {
  // The report role, which the session may take on later, reads it as well.
  return "DO $tz$ BEGIN CREATE TEMP VIEW " + table + " AS SELECT " + columns + " FROM " + table + "; GRANT SELECT ON " +
         table + " TO PUBLIC; END $tz$";
}

// ILIKE copies each text in small letters first.
Sql PostgresDialect::contains(std::string_view column, std::string_view text) const {
  std::string pattern = "%";
  bool letters = false;
  for (const char c : text) {
    if (c == '%' || c == '_' || c == '!') pattern += '!';
    pattern += c;
    letters = letters || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  }
  pattern += '%';
  return Sql(std::string(column) + (letters ? " ILIKE ? ESCAPE '!'" : " LIKE ? ESCAPE '!'"), pattern);
}

// Readers go on; whoever writes waits.
std::string PostgresDialect::holdTables(std::span<const std::string_view> tables) const {
  std::string text = "LOCK TABLE ";
  for (const auto& table : tables) {
    if (&table != tables.data()) text += ", ";
    text += table;
  }
  return text + " IN SHARE ROW EXCLUSIVE MODE";
}

}  // namespace tz
