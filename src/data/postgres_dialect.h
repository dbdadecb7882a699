// PostgreSQL's ways of writing what the databases write differently.
#pragma once

#include "data/dialect.h"

namespace tz {

class PostgresDialect final : public Dialect {
 public:
  [[nodiscard]] std::string_view typeName(Type type) const override;
  [[nodiscard]] Sql dateAdd(std::string_view column, int days) const override;
  [[nodiscard]] std::string catalogueView() const override;
  [[nodiscard]] std::string_view tableNames() const override {
    return "SELECT CAST(relname AS text) FROM pg_catalog.pg_class WHERE relkind IN ('r', 'p', 'f', 'v', 'm') "
           "AND pg_catalog.pg_table_is_visible(oid)";
  }
  [[nodiscard]] std::string_view indexNames() const override {
    return "SELECT CAST(indexname AS text) FROM pg_catalog.pg_indexes WHERE schemaname = current_schema()";
  }
  [[nodiscard]] std::string_view tableSuffix() const override { return ""; }
  [[nodiscard]] bool linesKeyedByVoucher() const override { return true; }
};

}  // namespace tz
