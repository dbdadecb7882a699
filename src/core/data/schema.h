// The tables, unique rules, indexes and the catalogue view of a ledger, and the statements that make them. Tables and
// unique rules are the ledger contract; indexes are the program's own.
#pragma once

#include <string>
#include <vector>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz {

// Written into every new ledger; one that names a larger version is not opened. Ledgers made elsewhere may name none.
inline constexpr int ledgerVersion = 1;

struct ColumnSchema {
  std::string name;
  Dialect::Type type;
};

struct TableSchema {
  std::string name;
  std::vector<ColumnSchema> columns;
  std::vector<std::string> uniques;  // column lists; the first one is the primary key
};

struct IndexSchema {
  std::string name;
  std::string table;
  std::string columns;
  std::string rows = {};  // the rows that it holds, as a condition; empty: all
};

[[nodiscard]] const std::vector<TableSchema>& ledgerTables();
[[nodiscard]] const TableSchema& tableOf(std::string_view name);
[[nodiscard]] std::vector<IndexSchema> ledgerIndexes(const Dialect& dialect);
// The item table of a class, one column per field besides lId; the fields' types decide the columns' types.
[[nodiscard]] TableSchema itemTableSchema(std::string_view classId, const std::vector<ProjItemsInfo>& fields);

// A column as CREATE TABLE and ADD COLUMN write it.
[[nodiscard]] std::string columnText(const ColumnSchema& column, const Dialect& dialect);
[[nodiscard]] std::string createTableText(const TableSchema& table, const Dialect& dialect);

// All tables and the catalogue view; indexes come last, when the contents are in. Both belong inside one transaction.
void createTables(Connection& connection);
void createTable(Connection& connection, std::string_view name);
void createCatalogueView(Connection& connection);
void createIndexes(Connection& connection);
// Whether every index of the program is there, whoever made the ledger.
[[nodiscard]] bool hasAllIndexes(Connection& connection);

}  // namespace tz
