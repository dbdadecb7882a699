// SQLite's ways of writing what the databases write differently.
#pragma once

#include "core/data/dialect.h"

namespace tz {

class SqliteDialect final : public Dialect {
 public:
  [[nodiscard]] std::string_view typeName(Type type) const override;
  [[nodiscard]] Sql dateAdd(std::string_view column, int days) const override;
  [[nodiscard]] std::string catalogueView() const override;
  [[nodiscard]] std::string definitionsQuery(std::string_view /*list*/) const override {
    return "SELECT 'main', lower(name), sql FROM sqlite_master WHERE type IN ('table', 'view')";
  }
  [[nodiscard]] std::string definition(const TableSchema& table) const override;
  [[nodiscard]] std::string_view definedType(Type type) const override { return typeName(type); }
  [[nodiscard]] std::string columnsQuery(std::string_view list) const override;
  [[nodiscard]] std::string_view storedType(Type type) const override;
  [[nodiscard]] Sql useSchema(const std::string& /*schema*/) const override { return {}; }
  [[nodiscard]] Fit fit(Type wanted, const StoredColumn& column) const override;
  [[nodiscard]] std::string inForm(Type wanted, const StoredColumn& column) const override;
  [[nodiscard]] std::string viewInFront(const std::string& table, const std::string& columns) const override;
  [[nodiscard]] std::string_view writing(bool allowed) const override {
    return allowed ? "PRAGMA query_only = OFF" : "PRAGMA query_only = ON";
  }
  [[nodiscard]] std::string_view planWithoutIndexes() const override { return ""; }
  [[nodiscard]] std::string_view tableNames() const override {
    return "SELECT lower(name) FROM sqlite_master WHERE type IN ('table', 'view')";
  }
  [[nodiscard]] std::string_view indexNames() const override {
    return "SELECT lower(name) FROM sqlite_master WHERE type = 'index'";
  }
  [[nodiscard]] std::string_view tableSuffix() const override { return " STRICT"; }
  [[nodiscard]] std::string_view versionQuery() const override { return "PRAGMA user_version"; }
  [[nodiscard]] std::string versionStatement(int version) const override {
    return "PRAGMA user_version = " + std::to_string(version);
  }
  [[nodiscard]] std::string_view structureQuery() const override { return "PRAGMA integrity_check(20)"; }
  [[nodiscard]] Sql contains(std::string_view column, std::string_view text) const override;
  [[nodiscard]] std::string holdTables(std::span<const std::string_view> /*tables*/) const override { return ""; }
  [[nodiscard]] bool hasRoles() const override { return false; }
  [[nodiscard]] bool linesKeyedByVoucher() const override { return false; }
};

}  // namespace tz
