#include "core/data/item_tables.h"

#include "core/data/backends.h"
#include "core/data/schema.h"

namespace tz {

void makeItemTable(Connection& connection, std::string_view classId, const std::vector<ProjItemsInfo>& fields) {
  connection.execute(Sql(createTableText(itemTableSchema(classId, fields), connection.dialect())));
  if (connection.dialect().hasRoles()) grantPostgresReportWrites(connection);
}

void dropItemTable(Connection& connection, std::string_view classId) {
  connection.execute(Sql("DROP TABLE " + itemTable(classId)));
}

void addItemColumn(Connection& connection, const ProjItemsInfo& field) {
  const auto column = itemTableSchema(field.sItemId, {field}).columns.back();
  connection.execute(
      Sql("ALTER TABLE " + itemTable(field.sItemId) + " ADD COLUMN " + columnText(column, connection.dialect())));
}

void dropItemColumn(Connection& connection, std::string_view classId, int field) {
  connection.execute(Sql("ALTER TABLE " + itemTable(classId) + " DROP COLUMN FIELD" + std::to_string(field)));
}

std::vector<int> itemColumns(Connection& connection, std::string_view classId) {
  const auto cursor = connection.query(Sql("SELECT * FROM " + itemTable(classId) + " WHERE 1 = 0"));
  (void)cursor->next();
  std::vector<int> fields;
  for (int column = 0; column < cursor->columns(); ++column) {
    if (const auto field = itemField(cursor->columnName(column))) fields.push_back(*field);
  }
  return fields;
}

}  // namespace tz
