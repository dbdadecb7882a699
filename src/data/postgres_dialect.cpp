#include "data/postgres_dialect.h"

#include "data/schema.h"

namespace tz {

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
         "LEFT JOIN ProjClass c ON lower('ProjItems' || c.sItemId) = t.relname "
         "WHERE n.nspname = current_schema() AND t.relkind IN ('r', 'p', 'f') "
         "AND (l.name IS NOT NULL OR c.sItemId IS NOT NULL)";
}

}  // namespace tz
