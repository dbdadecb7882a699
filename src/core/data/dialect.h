// What the databases write differently. Statements are otherwise common text.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/data/value.h"

namespace tz {

struct TableSchema;

// A column as the database declares it.
struct StoredColumn {
  std::string name;        // in lower case, unless the server keeps capitals
  std::string type;        // in the database's own words, in lower case; empty where it names none
  bool byteOrder = false;  // texts are compared byte by byte, as the program compares them
  bool nullable = false;
};

class Dialect {
 public:
  enum class Type { id, text, real, small, integer, date };
  // How a stored column serves as a column of the ledger.
  enum class Fit {
    own,        // the type that the ledger asks for, or one that holds the same
    untold,     // no type is declared: each cell decides
    converted,  // another type, whose values can be turned into what is asked for
    useless,    // another type that is not read
  };

  Dialect() = default;
  Dialect(const Dialect&) = delete;
  Dialect& operator=(const Dialect&) = delete;
  virtual ~Dialect() = default;

  [[nodiscard]] virtual std::string_view typeName(Type type) const = 0;
  // The date in `column` moved by `days`, in the column's own form: DateAdd( dd, days, column ).
  [[nodiscard]] virtual Sql dateAdd(std::string_view column, int days) const = 0;
  // The query that the view systable stands for; it spells item tables as ProjClass does.
  [[nodiscard]] virtual std::string catalogueView() const = 0;
  // A query of what bears a name of the list ("'code', 'dept'", in lower case) or may be an item table: schema, name in
  // lower case, definition in a short form.
  [[nodiscard]] virtual std::string definitionsQuery(std::string_view list) const = 0;
  // That form of a table as the program makes it; its columns stand behind the last bracket, if there is one, each its
  // name, definedType() and more, parted by ", ".
  [[nodiscard]] virtual std::string definition(const TableSchema& table) const = 0;
  [[nodiscard]] virtual std::string_view definedType(Type type) const = 0;
  // The columns of the tables and views that the list names: schema, table, column, type, whether texts are compared
  // byte by byte, whether a cell may be NULL, whether the table can have indexes, whether the name alone stands for
  // this one.
  [[nodiscard]] virtual std::string columnsQuery(std::string_view list) const = 0;
  // What that query calls the type of a column that the program made.
  [[nodiscard]] virtual std::string_view storedType(Type type) const = 0;
  // The query that makes a schema the only one that the connection looks into; empty where there are none.
  [[nodiscard]] virtual Sql useSchema(const std::string& schema) const = 0;
  [[nodiscard]] virtual Fit fit(Type wanted, const StoredColumn& column) const = 0;
  // The column in the form that the ledger asks for, NULL as 0 or ''; a cell that cannot be turned into it fails.
  [[nodiscard]] virtual std::string inForm(Type wanted, const StoredColumn& column) const = 0;
  // A view of this connection alone that stands in front of the table of its name.
  [[nodiscard]] virtual std::string viewInFront(const std::string& table, const std::string& columns) const = 0;
  // The statement that lets the connection write, or keeps it from writing.
  [[nodiscard]] virtual std::string_view writing(bool allowed) const = 0;
  // What a connection needs that reads through views, which no index serves; empty where that is nothing.
  [[nodiscard]] virtual std::string_view planWithoutIndexes() const = 0;
  // Queries of the names of all tables and views, and of all indexes, in lower case.
  [[nodiscard]] virtual std::string_view tableNames() const = 0;
  [[nodiscard]] virtual std::string_view indexNames() const = 0;
  // Text behind CREATE TABLE ( … ).
  [[nodiscard]] virtual std::string_view tableSuffix() const = 0;
  // The version that a ledger names, 0 when it names none; and the statement that writes it.
  [[nodiscard]] virtual std::string_view versionQuery() const = 0;
  [[nodiscard]] virtual std::string versionStatement(int version) const = 0;
  // A query of what is broken in the stored file, "ok" when nothing is; empty where the server itself watches that.
  [[nodiscard]] virtual std::string_view structureQuery() const = 0;
  // Whether a column contains a text somewhere, whatever the case of ASCII letters; signs that patterns know mean
  // themselves.
  [[nodiscard]] virtual Sql contains(std::string_view column, std::string_view text) const = 0;
  // The statement that keeps others from changing these tables until the transaction ends; empty where a writing one
  // has all of them for itself.
  [[nodiscard]] virtual std::string holdTables(std::span<const std::string_view> tables) const = 0;
  // Whether logins have rights of their own, so that a new table has to be opened to the reports' role.
  [[nodiscard]] virtual bool hasRoles() const = 0;
  // A unique id of its own (SQLite: lines by lId alone) or together with its voucher (spread tables).
  [[nodiscard]] virtual bool linesKeyedByVoucher() const = 0;
};

// Equality with a project class id. Ids such as 01 stand unquoted in old texts; they are texts all the same and keep
// their zeros.
[[nodiscard]] Sql classIs(std::string_view classId);
// The item table of a class. The id must be letters and digits; anything else throws std::invalid_argument, so that no
// foreign text reaches a statement.
[[nodiscard]] std::string itemTable(std::string_view classId);
[[nodiscard]] bool isClassId(std::string_view classId);
// The n of an item table's column FIELDn: one or two digits without a zero in front, and nothing else.
[[nodiscard]] std::optional<int> itemField(std::string_view column);
[[nodiscard]] std::string lowerCase(std::string_view text);

}  // namespace tz
