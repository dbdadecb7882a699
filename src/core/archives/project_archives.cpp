// Project classes with their fields, items and accounts. A class has a table of its own for its items.
#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "core/archives/archive.h"
#include "core/archives/archive_uses.h"
#include "core/data/item_tables.h"
#include "core/grid/figures.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;

constexpr int lastItemField = 99;
constexpr int longestClassId = 20;
constexpr int longestTitle = 30;
constexpr int longestFieldText = 100;
constexpr std::array typeNames = {FieldTypeName{"3", "文字"}, FieldTypeName{"1", "数"}, FieldTypeName{"4", "日期"},
                                  FieldTypeName{"5", "是否结算"}};

std::string textAt(const ArchiveRecord& record, std::size_t place) {
  return std::get<std::string>(record.values[place]);
}

int fieldNumber(const ArchiveRecord& record) { return static_cast<int>(record.id); }

// Each class begins with the two fields that every item has.
void makeClass(Connection& connection, const ArchiveRecord& record) {
  const auto classId = textAt(record, 0);
  const Id first = connection.newIds("ProjItems", 2);
  insertRecords(connection, std::vector<ProjItemsInfo>{{first, classId, 0, "项目编号", "3"},
                                                       {first + 1, classId, 1, "项目名称", "3"}});
  makeItemTable(connection, classId, {});
}

void removeClass(Connection& connection, const ArchiveRecord& record) {
  const auto classId = textAt(record, 0);
  connection.execute(Sql("DELETE FROM ProjItems WHERE sItemId = ?", classId));
  dropItemTable(connection, classId);
}

// The first number that no field and no column of the table has.
Id newFieldNumber(Connection& connection, const std::string& classId) {
  auto taken = itemColumns(connection, classId);
  const auto rows = connection.query(Sql("SELECT nField FROM ProjItems WHERE sItemId = ?", classId));
  while (rows->next()) taken.push_back(static_cast<int>(rows->integer(0)));
  int number = 2;
  while (std::ranges::find(taken, number) != taken.end()) ++number;
  return number;
}

void makeField(Connection& connection, const std::string& classId, const ArchiveRecord& record) {
  addItemColumn(connection, {record.lId, classId, fieldNumber(record), textAt(record, 0), textAt(record, 1)});
}

std::string fieldsAreFull(Connection& connection, const std::string& classId) {
  if (newFieldNumber(connection, classId) <= lastItemField) return "";
  return fmt::format("一个项目大类最多有 {} 个字段。", lastItemField + 1);
}

void removeField(Connection& connection, const std::string& classId, const ArchiveRecord& record) {
  const auto columns = itemColumns(connection, classId);
  const int number = fieldNumber(record);
  if (std::ranges::find(columns, number) != columns.end()) dropItemColumn(connection, classId, number);
}

std::string contentsOf(const CQnCwDB& db, const std::string& classId, const ArchiveRecord& record) {
  const auto columns = itemColumns(db.Current(), classId);
  const int number = fieldNumber(record);
  if (std::ranges::find(columns, number) == columns.end()) return "";
  const bool text = textAt(record, 1) == "3" || textAt(record, 1) == "4";
  const auto count = db.Current().query(
      Sql(fmt::format("SELECT count(*) FROM {} WHERE FIELD{} <> {}", itemTable(classId), number, text ? "''" : "0")));
  const auto items = count->next() ? count->integer(0) : 0;
  if (items == 0) return "";
  return fmt::format("有 {} 个项目填写了“{}”，删除字段以后这些内容不能恢复。",
                     figureText(static_cast<double>(items), ColumnKind::count), textAt(record, 0));
}

Kind kindOfType(std::string_view type) {
  if (type == "3") return Kind::text;
  if (type == "4") return Kind::date;
  return type == "5" ? Kind::settled : Kind::number;
}

ArchiveField itemFieldOf(const ProjItemsInfo& field) {
  constexpr int textWidth = 130;
  constexpr int otherWidth = 100;
  const auto kind = kindOfType(field.sType);
  return {.kind = kind,
          .column = fmt::format("FIELD{}", field.nField),
          .caption = field.sTitle.empty() ? fmt::format("字段 {}", field.nField) : field.sTitle,
          .longest = longestFieldText,
          .width = kind == Kind::text ? textWidth : otherWidth};
}

}  // namespace

std::span<const FieldTypeName> fieldTypes() { return typeNames; }

std::string_view fieldTypeName(std::string_view type) {
  const auto* const found = std::ranges::find(typeNames, type, &FieldTypeName::type);
  return found == typeNames.end() ? typeNames[1].name : found->name;  // every other type is a number
}

Archive projectClassArchive() {
  return {
      .noun = "项目大类",
      .title = "项目大类",
      .table = "ProjClass",
      .fields =
          {
              {.kind = Kind::classId,
               .column = "sItemId",
               .caption = "大类编号",
               .longest = longestClassId,
               .width = 120,
               .fixed = true},
              {.kind = Kind::name, .column = "sName", .caption = "大类名称", .longest = 60, .width = 240},
          },
      .order = "lId",
      .code = 0,
      .name = 1,
      .tables = {"ProjClass", "ProjItems", "ProjCodes"},
      .uses = projectClassUses(),
      .added = makeClass,
      .removing = removeClass,
  };
}

Archive itemArchive(const CQnCwDB& db, const ProjClassInfo& projectClass) {
  const auto& classId = projectClass.sItemId;
  const auto columns = itemColumns(db.Current(), classId);
  Archive archive{
      .noun = "项目",
      .title = projectClass.sName,
      .table = itemTable(classId),
      .fields = {{.kind = Kind::code, .column = "FIELD0", .caption = "项目编号", .longest = 20, .width = 110},
                 {.kind = Kind::name, .column = "FIELD1", .caption = "项目名称", .longest = 100, .width = 220}},
      .order = "FIELD0, lId",
      .code = 0,
      .name = 1,
      .tables = {"ProjClass", "ProjItems", "ProjCodes"},
      .uses = itemUses(classId),
  };
  for (const auto& field : db.ProjItems_GetInfo(Sql("sItemId = ? ORDER BY nField", classId))) {
    if (field.nField < 0 || std::ranges::find(columns, field.nField) == columns.end()) continue;
    if (field.nField >= 2) {
      archive.fields.push_back(itemFieldOf(field));
    } else if (!field.sTitle.empty()) {
      archive.fields[static_cast<std::size_t>(field.nField)].caption = field.sTitle;
    }
  }
  return archive;
}

Archive classFieldArchive(const ProjClassInfo& projectClass) {
  const auto& classId = projectClass.sItemId;
  return {
      .noun = "字段",
      .title = fmt::format("{}的字段", projectClass.sName),
      .table = "ProjItems",
      .fields =
          {
              {.kind = Kind::name, .column = "sTitle", .caption = "字段名称", .longest = longestTitle, .width = 220},
              {.kind = Kind::fieldType, .column = "sType", .caption = "类型", .width = 140, .fixed = true},
          },
      .idColumn = "nField",
      .common = {{"sItemId", classId}},
      .order = "nField",
      .name = 0,
      .tables = {"ProjClass", "ProjItems", "ProjCodes"},
      .added = [classId](Connection& c, const ArchiveRecord& record) { makeField(c, classId, record); },
      .removing = [classId](Connection& c, const ArchiveRecord& record) { removeField(c, classId, record); },
      .newId = [classId](Connection& c, Id) { return newFieldNumber(c, classId); },
      .mayNotAdd = [classId](Connection& c) { return fieldsAreFull(c, classId); },
      .mayNotRemove =
          [](const ArchiveRecord& record) {
            return fieldNumber(record) < 2 ? "编号和名称是每个项目都有的，不能删除。" : "";
          },
      .loss = [classId](const CQnCwDB& db, const ArchiveRecord& record) { return contentsOf(db, classId, record); },
  };
}

Archive classAccountArchive(const ProjClassInfo& projectClass) {
  const auto& classId = projectClass.sItemId;
  return {
      .noun = "科目",
      .title = fmt::format("{}的科目", projectClass.sName),
      .table = "ProjCodes",
      .fields = {{.kind = Kind::account, .column = "lCodeId", .caption = "科目", .width = 360, .fixed = true}},
      .common = {{"sItemId", classId}},
      .order = "lId",
      .name = 0,
      .changes = false,
      .tables = {"ProjClass", "ProjItems", "ProjCodes"},
      .uses = classAccountUses(classId),
  };
}

}  // namespace tz
