#include "core/archives/archive_list.h"

#include <algorithm>

#include "core/grid/column_adder.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;

ColumnKind columnOf(const ArchiveField& field) {
  switch (field.kind) {
    case Kind::amount:
      return ColumnKind::amount;
    case Kind::number:
      return ColumnKind::rate;  // up to six decimals
    case Kind::date:
      return ColumnKind::date;
    default:
      return ColumnKind::text;
  }
}

void setCell(CTzGrid& grid, std::int64_t row, int column, const ArchiveField& field, const Value& value,
             const ArchiveReferences& references) {
  const auto* figure = std::get_if<double>(&value);
  if (figure != nullptr && field.kind != Kind::settled) {
    if (*figure != 0) grid.SetNumber(row, column, *figure);
    return;
  }
  if (field.kind == Kind::date) {
    const auto date = parseIsoDate(std::get<std::string>(value));
    if (date) {
      grid.SetDate(row, column, *date);
      return;
    }
  }
  grid.SetText(row, column, shownValue(field, value, references));
}

}  // namespace

std::string shownValue(const ArchiveField& field, const Value& value, const ArchiveReferences& references) {
  if (const auto* id = std::get_if<std::int64_t>(&value)) return std::string(references.NameOf(field.kind, *id));
  if (const auto* figure = std::get_if<double>(&value); figure != nullptr && field.kind == Kind::settled) {
    return *figure != 0 ? "是" : "否";
  }
  const auto text = inputText(field, value);
  return field.kind == Kind::fieldType ? std::string(fieldTypeName(text)) : text;
}

ComputedReport archiveList(const Archive& archive, const std::vector<ArchiveRecord>& records,
                           const ArchiveReferences& references) {
  ComputedReport report;
  report.title = archive.title;
  report.subject = archive.title;
  report.fileName = archive.title;
  for (const auto& field : archive.fields) {
    CTzGridControl::AddCol(report.grid, field.caption, field.width, columnOf(field));
  }
  report.grid.SetRows(static_cast<std::int64_t>(records.size()));
  std::int64_t row = 0;
  for (const auto& record : records) {
    for (std::size_t place = 0; place < archive.fields.size(); ++place) {
      setCell(report.grid, row, static_cast<int>(place), archive.fields[place], record.values[place], references);
    }
    ++row;
  }
  return report;
}

void sortRecords(std::vector<ArchiveRecord>& records, const Archive& archive, const ArchiveReferences& references,
                 std::size_t field, bool downwards) {
  const auto& by = archive.fields[field];
  // Ids are compared by the names that they stand for.
  const auto less = [&](const ArchiveRecord& left, const ArchiveRecord& right) {
    const auto& one = left.values[field];
    const auto& other = right.values[field];
    if (by.refers()) {
      return references.NameOf(by.kind, std::get<std::int64_t>(one)) <
             references.NameOf(by.kind, std::get<std::int64_t>(other));
    }
    return one < other;
  };
  std::ranges::stable_sort(records, [&](const ArchiveRecord& one, const ArchiveRecord& other) {
    return downwards ? less(other, one) : less(one, other);
  });
}

}  // namespace tz
