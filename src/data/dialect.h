// What the databases write differently. Statements are otherwise common text.
#pragma once

#include <string>
#include <string_view>

#include "data/value.h"

namespace tz {

class Dialect {
 public:
  enum class Type { id, text, real, small, integer, date };

  Dialect() = default;
  Dialect(const Dialect&) = delete;
  Dialect& operator=(const Dialect&) = delete;
  virtual ~Dialect() = default;

  [[nodiscard]] virtual std::string_view typeName(Type type) const = 0;
  // The date in `column` moved by `days`, in the column's own form: DateAdd( dd, days, column ).
  [[nodiscard]] virtual Sql dateAdd(std::string_view column, int days) const = 0;
  // The query that the view systable stands for; it spells item tables as ProjClass does.
  [[nodiscard]] virtual std::string catalogueView() const = 0;
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

}  // namespace tz
