// Records to and from rows, by the field lists of records.h.
#pragma once

#include <concepts>
#include <string>
#include <vector>

#include "core/data/connection.h"
#include "core/data/records.h"

namespace tz {

template <class Record>
std::vector<std::string> columnNames() {
  std::vector<std::string> names;
  const Record record;
  Record::columns(record, [&](const char* name, const auto&) { names.emplace_back(name); });
  return names;
}

template <class Record>
void readRow(const Cursor& cursor, Record& record) {
  int column = 0;
  Record::columns(record, [&](const char*, auto& field) {
    using Field = std::remove_reference_t<decltype(field)>;
    if constexpr (std::same_as<Field, std::string>) {
      field = cursor.text(column);
    } else if constexpr (std::same_as<Field, double>) {
      field = cursor.real(column);
    } else if constexpr (std::same_as<Field, Date>) {
      field = cursor.date(column);
    } else {
      field = static_cast<Field>(cursor.integer(column));
    }
    ++column;
  });
}

template <class Record>
void writeRow(RowWriter& writer, const Record& record) {
  Record::columns(record, [&](const char*, const auto& field) {
    if constexpr (std::integral<std::remove_cvref_t<decltype(field)>>) {
      writer.put(static_cast<std::int64_t>(field));
    } else {
      writer.put(field);
    }
  });
  writer.endRow();
}

// "SELECT every column FROM the record's table".
template <class Record>
Sql selectAll() {
  std::string text = "SELECT ";
  for (const auto& name : columnNames<Record>()) {
    text += name;
    text += ", ";
  }
  text.resize(text.size() - 2);
  return Sql(text + " FROM " + Record::table);
}

// The rows that meet `where`, which may end in an ORDER BY and may be empty.
template <class Record>
std::vector<Record> readRecords(Connection& connection, const Sql& where) {
  const auto sql = where.empty() ? selectAll<Record>() : selectAll<Record>() + " WHERE " + where;
  const auto cursor = connection.queryWhole(sql);
  std::vector<Record> records;
  while (cursor->next()) readRow(*cursor, records.emplace_back());
  return records;
}

template <class Record>
void insertRecords(Connection& connection, const std::vector<Record>& records) {
  const auto columns = columnNames<Record>();
  const auto writer = connection.insertInto(Record::table, columns);
  for (const auto& record : records) writeRow(*writer, record);
  writer->finish();
}

}  // namespace tz
