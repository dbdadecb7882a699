// PostgreSQL's ways of writing what the databases write differently.
#pragma once

#include "core/data/dialect.h"

namespace tz {

class PostgresDialect final : public Dialect {
 public:
  [[nodiscard]] std::string_view typeName(Type type) const override;
  [[nodiscard]] Sql dateAdd(std::string_view column, int days) const override;
  [[nodiscard]] std::string catalogueView() const override;
  [[nodiscard]] std::string definitionsQuery(std::string_view list) const override;
  [[nodiscard]] std::string definition(const TableSchema& table) const override;
  [[nodiscard]] std::string_view definedType(Type type) const override;
  [[nodiscard]] std::string columnsQuery(std::string_view list) const override;
  [[nodiscard]] std::string_view storedType(Type type) const override;
  [[nodiscard]] Sql useSchema(const std::string& schema) const override;
  [[nodiscard]] Fit fit(Type wanted, const StoredColumn& column) const override;
  [[nodiscard]] std::string inForm(Type wanted, const StoredColumn& column) const override;
  [[nodiscard]] std::string viewInFront(const std::string& table, const std::string& columns) const override;
  [[nodiscard]] std::string_view writing(bool allowed) const override {
    return allowed ? "SET default_transaction_read_only = off" : "SET default_transaction_read_only = on";
  }
  [[nodiscard]] std::string_view planWithoutIndexes() const override {
    return "SELECT set_config('enable_sort', 'on', false), set_config('enable_nestloop', 'off', false)";
  }
  [[nodiscard]] std::string_view tableNames() const override {
    return "SELECT CAST(relname AS text) FROM pg_catalog.pg_class WHERE relkind IN ('r', 'p', 'f', 'v', 'm') "
           "AND pg_catalog.pg_table_is_visible(oid)";
  }
  [[nodiscard]] std::string_view indexNames() const override {
    return "SELECT CAST(indexname AS text) FROM pg_catalog.pg_indexes WHERE schemaname = current_schema()";
  }
  [[nodiscard]] std::string_view tableSuffix() const override { return ""; }
  // The comment on the catalogue view: every ledger has that view, and a dump keeps it.
  [[nodiscard]] std::string_view versionQuery() const override {
    return "SELECT substring(description FROM '^ledger version ([0-9]{1,9})$') FROM pg_catalog.pg_description WHERE "
           "objoid = to_regclass('systable') AND classoid = 'pg_catalog.pg_class'::regclass AND objsubid = 0";
  }
  [[nodiscard]] std::string versionStatement(int version) const override {
    return "COMMENT ON VIEW systable IS 'ledger version " + std::to_string(version) + "'";
  }
  [[nodiscard]] std::string_view structureQuery() const override { return ""; }
  [[nodiscard]] Sql contains(std::string_view column, std::string_view text) const override;
  [[nodiscard]] std::string holdTables(std::span<const std::string_view> tables) const override;
  [[nodiscard]] bool hasRoles() const override { return true; }
  [[nodiscard]] bool linesKeyedByVoucher() const override { return true; }
};

}  // namespace tz
