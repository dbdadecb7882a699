#include "core/sample/orders.h"

#include <fmt/format.h>

#include "core/data/record_io.h"
#include "core/data/schema.h"

namespace tz::sample {
namespace {

struct FieldRow {
  const char *title, *type;  // "5" settlement, "3" text, "4" date, "1" number
};
constexpr std::array orderFields = {FieldRow{"订单编号", "3"}, FieldRow{"订单名称", "3"}, FieldRow{"是否结算", "5"},
                                    FieldRow{"客户", "3"},     FieldRow{"交货日期", "4"}, FieldRow{"台数", "1"},
                                    FieldRow{"单价", "1"}};
constexpr std::array researchFields = {FieldRow{"项目编号", "3"}, FieldRow{"项目名称", "3"}, FieldRow{"是否结题", "5"},
                                       FieldRow{"负责人", "3"},   FieldRow{"立项日期", "4"}, FieldRow{"预算", "1"}};

std::vector<ProjItemsInfo> fieldsOf(ProjectClass projectClass, std::span<const FieldRow> rows, Id firstId) {
  std::vector<ProjItemsInfo> fields;
  for (const auto& row : rows) {
    const auto place = static_cast<int>(fields.size());
    fields.push_back({firstId + place, std::string(classId(projectClass)), place, row.title, row.type});
  }
  return fields;
}

std::unique_ptr<RowWriter> createItemTable(Connection& connection, ProjectClass projectClass,
                                           const std::vector<ProjItemsInfo>& fields) {
  insertRecords(connection, fields);
  const auto schema = itemTableSchema(classId(projectClass), fields);
  connection.execute(Sql(createTableText(schema, connection.dialect())));
  std::vector<std::string> columns;
  for (const auto& column : schema.columns) columns.push_back(column.name);
  return connection.insertInto(schema.name, columns);
}

struct OrderItem {
  Id id;
  std::string code, name, customer;
  int deliver, machines, price;
  bool settled;
};

void writeOrder(RowWriter& writer, const OrderItem& item, int year) {
  const int month = item.deliver > 12 ? item.deliver - 12 : item.deliver;
  writer.put(item.id);
  writer.put(std::string_view(item.code));
  writer.put(std::string_view(item.name));
  writer.put(item.settled ? 1.0 : 0.0);
  writer.put(std::string_view(item.customer));
  writer.put(std::string_view(fmt::format("{:04}-{:02}-20", item.deliver > 12 ? year + 1 : year, month)));
  writer.put(static_cast<double>(item.machines));
  writer.put(static_cast<double>(item.price));
  writer.endRow();
}

void writeOrders(Connection& connection, const Growth& growth, int year) {
  const auto writer = createItemTable(connection, ProjectClass::order, fieldsOf(ProjectClass::order, orderFields, 1));
  Id id = 0;
  for (const auto& row : orders) {
    const auto& customer = units[static_cast<std::size_t>(row.customer - firstUnit)];
    const OrderItem item{
        ++id,      std::string(row.code), std::string(row.name), std::string(customer.name), row.deliver, row.machines,
        row.price, row.collect <= 10};
    writeOrder(*writer, item, year);
  }
  for (std::int64_t place = 0; place < growth.orders; ++place) {
    const OrderItem item{Growth::order(place),
                         fmt::format("PL{:05}", place + 1),
                         fmt::format("批量订单{:05}", place + 1),
                         "",
                         static_cast<int>(place % 12) + 1,
                         10,
                         36'000,
                         false};
    writeOrder(*writer, item, year);
  }
  writer->finish();
}

void writeResearch(Connection& connection) {
  const auto writer = createItemTable(connection, ProjectClass::research,
                                      fieldsOf(ProjectClass::research, researchFields, orderFields.size() + 1));
  std::int64_t id = 0;
  for (const auto& row : researchProjects) {
    writer->put(++id);
    writer->put(row.code);
    writer->put(row.name);
    writer->put(row.settled ? 1.0 : 0.0);
    writer->put(row.leader);
    writer->put(row.begun);
    writer->put(static_cast<double>(row.budget));
    writer->endRow();
  }
  writer->finish();
}

}  // namespace

void writeProjects(Connection& connection, const Growth& growth, int year) {
  insertRecords(connection, std::vector<ProjClassInfo>{{1, "01", "生产订单"}, {2, "RD", "研发项目"}});
  writeOrders(connection, growth, year);
  writeResearch(connection);
}

}  // namespace tz::sample
