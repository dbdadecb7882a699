// The tables of an open ledger as the database declares them, and the views that give columns of another type the
// ledger's own form. A ledger made elsewhere may keep codes as numbers, numbers as texts, dates with a time, or texts
// in another order; whoever reads it sees none of that.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/data/connection.h"

namespace tz {

struct LedgerTables {
  std::string schema;                                       // all of them stand in it
  std::map<std::string, std::vector<StoredColumn>> tables;  // by name, in lower case; item tables of classes as well
  std::vector<std::string> others;                          // those that do not stand as the program makes them
  bool indexable = true;                                    // all are tables, with columns of the ledger's own types

  [[nodiscard]] bool has(std::string_view table) const { return tables.contains(lowerCase(table)); }
};

// Reads them and binds the connection to their schema. Throws DbError where it is open which schema is meant: a table
// of another one stands in front of the ledger's, or there are two whole ledgers.
[[nodiscard]] LedgerTables settleLedgerTables(Connection& connection);

// Puts a view of this connection in front of each table that has a column of another type. Throws DbError where a type
// cannot be read, or where the database allows no such views.
void bringIntoForm(Connection& connection, const LedgerTables& ledger, Access access);

}  // namespace tz
