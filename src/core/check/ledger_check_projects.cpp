// The project classes, their fields and their item tables.
#include <fmt/format.h>

#include "core/check/ledger_check_facts.h"
#include "core/data/schema.h"

namespace tz::check {
namespace {

constexpr int lastField = 99;
constexpr std::string_view tablePrefix = "projitems";

using Fields = std::map<std::string, std::vector<ProjItemsInfo>>;  // by class

void checkClasses(Connection& connection, Report& report, Facts& facts) {
  Seen rows, names;
  readTable<ProjClassInfo>(connection, report, [&](const ProjClassInfo& projectClass) {
    const auto record = byId(projectClass.lId);
    if (rows.twice(projectClass.lId)) report.add(projectClass.table, record, "lId 重复");
    if (!isClassId(projectClass.sItemId)) {
      report.add(projectClass.table, record,
                 fmt::format("项目大类编号 “{}” 只能由字母和数字组成", projectClass.sItemId));
      return;
    }
    // Two classes whose ids differ in case alone would share one table.
    if (names.twice(lowerCase(projectClass.sItemId))) report.add(projectClass.table, record, "项目大类编号重复");
    facts.items[projectClass.sItemId];
  });
}

Fields checkFields(Connection& connection, Report& report, const Facts& facts) {
  Fields fields;
  Seen rows, numbers;
  readTable<ProjItemsInfo>(connection, report, [&](const ProjItemsInfo& field) {
    const auto record = byId(field.lId);
    if (rows.twice(field.lId)) report.add(field.table, record, "lId 重复");
    if (field.nField < 0 || field.nField > lastField) {
      report.add(field.table, record, fmt::format("nField = {} 不在 0 至 {} 之间", field.nField, lastField));
    } else if (!facts.items.contains(field.sItemId)) {
      report.add(field.table, record, fmt::format("项目大类 {} 不存在", field.sItemId));
    } else if (numbers.twice(fmt::format("{} {}", field.sItemId, field.nField))) {
      report.add(field.table, record, fmt::format("项目大类 {} 的字段 {} 重复", field.sItemId, field.nField));
    } else {
      fields[field.sItemId].push_back(field);
    }
  });
  return fields;
}

// A name that begins like a field's and is none is taken for one by people, and by nobody else.
void checkColumnNames(Report& report, const std::string& table) {
  for (const auto& column : report.tables().tables.at(lowerCase(table))) {
    const auto name = lowerCase(column.name);
    if (name.starts_with("field") && (!itemField(name) || name != column.name)) {
      report.add(table, "", fmt::format("列 {} 不是字段：FIELD 之后须为 0 至 {} 的数", column.name, lastField));
    }
  }
}

// One item: its cells, and its id.
class ItemRow {
 public:
  ItemRow(const Cursor& cursor, const std::vector<ReadColumn>& columns) : cursor_(cursor), columns_(columns) {}

  Id id = 0;
  std::string name;

  // What is wrong with the cell at a place; the id comes first.
  std::string read(std::size_t place) {
    const auto& column = columns_[place];
    const int number = static_cast<int>(place);
    const auto kind = cursor_.kind(number);
    auto problem = wrongKind(kind, column);
    if (!problem.empty() || kind == CellKind::other) return problem;
    if (place == 0) {
      problem = readCell(cursor_, number, column.name, id);
      return problem.empty() && id == 0 ? "lId 须大于 0" : problem;
    }
    if (column.name != "FIELD0" && column.name != "FIELD1") return "";
    const auto text = cursor_.anyText(number);
    if (column.name == "FIELD1") name = text;
    if (!text.empty()) return "";
    return column.name + (column.name == "FIELD0" ? " 为空，项目没有编号" : " 为空，项目没有名称");
  }

 private:
  const Cursor& cursor_;
  const std::vector<ReadColumn>& columns_;
};

// The item table of a class: its columns and cells, and its ids into the facts.
void checkItems(Connection& connection, Report& report, const std::string& classId,
                const std::vector<ProjItemsInfo>& fields, std::unordered_set<Id>& items) {
  const auto table = itemTable(classId);
  checkColumnNames(report, table);
  const auto columns = readColumns(connection, report, itemTableSchema(classId, fields)).there;
  if (columns.empty() || columns.front().name != "lId") return;
  Namesakes names;
  const auto cursor = connection.query(selectOf(table, columns));
  while (cursor->next()) {
    ItemRow item(*cursor, columns);
    for (std::size_t place = 0; place < columns.size(); ++place) {
      if (const auto problem = item.read(place); !problem.empty()) report.add(table, byId(item.id), problem);
    }
    if (!items.insert(item.id).second) report.add(table, byId(item.id), "lId 重复");
    names.add(item.name, item.id);
  }
  names.report(report, table);
}

void checkTablesWithoutClass(Report& report, const Facts& facts) {
  std::set<std::string> known;
  for (const auto& [classId, items] : facts.items) known.insert(lowerCase(itemTable(classId)));
  for (const auto& [table, columns] : report.tables().tables) {
    if (!table.starts_with(tablePrefix) || table.size() == tablePrefix.size() || known.contains(table)) continue;
    const auto classId = table.substr(tablePrefix.size());
    report.add("ProjItems" + classId, "", fmt::format("没有项目大类 {}", classId));
  }
}

}  // namespace

void checkProjects(Connection& connection, Report& report, Facts& facts) {
  checkClasses(connection, report, facts);
  auto fields = checkFields(connection, report, facts);
  for (auto& [classId, items] : facts.items) {
    if (report.tables().has(itemTable(classId))) {
      checkItems(connection, report, classId, fields[classId], items);
    } else {
      report.add(ProjClassInfo::table, "", fmt::format("项目大类 {} 没有项目表 {}", classId, itemTable(classId)));
    }
  }
  checkTablesWithoutClass(report, facts);
}

}  // namespace tz::check
