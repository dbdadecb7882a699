// A directory of the archives as data: departments, persons, units and their classes, project classes with their
// fields, items and accounts. Lists, forms, checks and statements are all made from this one record, so that no
// directory has a window or a statement of its own.
//
// Values are typed as the columns are: ids, figures, texts.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/data/qncw_db.h"
#include "core/reports/messages.h"

namespace tz {

struct ArchiveField {
  enum class Kind {
    code,  // wanted, without blanks, each once
    name,  // wanted
    text,
    amount,  // of money, not negative; 0 is none
    number,
    date,        // a text "YYYY-MM-DD", may be empty
    settled,     // 1 or 0
    classId,     // wanted, letters and digits, each once whatever their case
    fieldType,   // of a class's field: "1", "3", "4", "5"
    department,  // wanted
    unitClass,   // 0 for none
    account,     // wanted, each once
  };

  Kind kind = Kind::text;
  std::string column;
  std::string caption;
  int longest = 0;     // characters of a text
  int width = 100;     // pixels of its column at 100 %
  bool fixed = false;  // given when the record is made and never changed

  // Whether the value is the id of a record of another archive.
  [[nodiscard]] bool refers() const { return kind >= Kind::department; }
  [[nodiscard]] bool isFigure() const { return kind == Kind::amount || kind == Kind::number || kind == Kind::settled; }
  [[nodiscard]] bool oncePerArchive() const {
    return kind == Kind::code || kind == Kind::classId || kind == Kind::account;
  }
};

struct ArchiveRecord {
  Id lId = 0;                 // 0: not in the ledger yet
  Id id = 0;                  // what lines carry
  std::vector<Value> values;  // one for each field

  bool operator==(const ArchiveRecord&) const = default;
};

// Somewhere a record may be used.
struct ArchiveUse {
  std::string counted;                                   // "条分录"
  std::function<Sql(const ArchiveRecord& record)> rows;  // what follows FROM
};

struct Archive {
  std::string noun;   // "部门"
  std::string title;  // "部门目录"
  std::string table;
  std::vector<ArchiveField> fields;
  std::string idColumn = "lId";  // what lines carry
  // What all its records have in common: the class of fields and accounts.
  std::vector<std::pair<std::string, std::string>> common = {};
  std::string order;                                  // of the list as it opens, after ORDER BY
  std::optional<std::size_t> code, name, group = {};  // places of these fields; a group parts the list
  bool changes = true;                                // records are not only added and removed
  std::vector<std::string_view> tables = {};          // that a keeper needs
  std::vector<ArchiveUse> uses = {};

  // What else is written in the same transaction; what forbids it without looking at other tables.
  std::function<void(Connection&, const ArchiveRecord&)> added = {}, removing = {};
  // What lines will carry of a new record, where that is not its lId.
  std::function<Id(Connection&, Id lId)> newId = {};
  std::function<std::string(Connection&)> mayNotAdd = {};
  std::function<std::string(const ArchiveRecord&)> mayNotRemove = {};
  // What is lost with a record, to be asked about; empty for nothing.
  std::function<std::string(const CQnCwDB&, const ArchiveRecord&)> loss = {};

  [[nodiscard]] bool has(ArchiveField::Kind kind) const {
    return std::ranges::any_of(fields, [kind](const ArchiveField& field) { return field.kind == kind; });
  }
};

// A command of the navigator.
struct ArchiveDirectory {
  enum class Kind { persons, projects, units, departments };
  Kind kind;
  int command;
  int right;
  std::string_view title;
  std::string_view rightName;
};
[[nodiscard]] std::span<const ArchiveDirectory> archiveDirectories();
// Null for a command that is none.
[[nodiscard]] const ArchiveDirectory* findArchiveDirectory(int command);

[[nodiscard]] Archive departmentArchive();
[[nodiscard]] Archive personArchive();
[[nodiscard]] Archive unitArchive();
[[nodiscard]] Archive unitClassArchive();
[[nodiscard]] Archive projectClassArchive();
// The items of a class, with those of its fields that the table has.
[[nodiscard]] Archive itemArchive(const CQnCwDB& db, const ProjClassInfo& projectClass);
[[nodiscard]] Archive classFieldArchive(const ProjClassInfo& projectClass);
[[nodiscard]] Archive classAccountArchive(const ProjClassInfo& projectClass);

// The types that a field of a class may have, each with its name.
struct FieldTypeName {
  std::string_view type, name;
};
[[nodiscard]] std::span<const FieldTypeName> fieldTypes();
[[nodiscard]] std::string_view fieldTypeName(std::string_view type);

}  // namespace tz
