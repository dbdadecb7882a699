#include "core/data/schema.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <concepts>
#include <set>

namespace tz {
namespace {

template <class Record>
TableSchema schemaOf(std::vector<std::string> uniques) {
  TableSchema schema{Record::table, {}, std::move(uniques)};
  const Record record;
  Record::columns(record, [&](const char* name, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    using Type = Dialect::Type;
    Type type = Type::id;
    if constexpr (std::same_as<Field, std::string>) {
      type = Type::text;
    } else if constexpr (std::same_as<Field, double>) {
      type = Type::real;
    } else if constexpr (std::same_as<Field, Date>) {
      type = Type::date;
    } else if constexpr (std::same_as<Field, int>) {
      type = name[0] == 'n' ? Type::integer : Type::small;
    }
    schema.columns.push_back({name, type});
  });
  return schema;
}

std::vector<std::string> uniquesOf(std::string_view table) {
  if (table == "Code") return {"lId", "sCode"};
  if (table == "Dept") return {"lId", "lDeptId"};
  if (table == "AssAcc") return {"lId", "lCodeId, lDeptId, lPersonId, lEnterId, lItemId, sItemId, byPeroid"};
  if (table == "RegMain" || table == "UnregMain") return {"lTieId"};
  if (table == "ProjClass") return {"lId", "sItemId"};
  if (table == "ProjItems") return {"lId", "sItemId, nField"};
  if (table == "ProjCodes") return {"lId", "lCodeId, sItemId"};
  if (table == "Plan") return {"lId", "lCodeId, lDeptId, lItemId, sItemId, byPeroid"};
  if (table == "Cyrency" || table == "ExchgFix") return {"lId", "byExchId"};
  if (table == "ExchgFlt") return {"lId", "byExchId, dtDate"};
  if (table == "zOperator") return {"lId", "sName"};
  if (table == "zRight") return {"lOperatorId, nRight"};
  return {"lId"};
}

std::string_view defaultOf(Dialect::Type type) {
  switch (type) {
    case Dialect::Type::text:
      return " DEFAULT ''";
    case Dialect::Type::date:
      return "";
    default:
      return " DEFAULT 0";
  }
}

void appendColumn(std::string& text, const ColumnSchema& column, const Dialect& dialect) {
  text += column.name;
  text += ' ';
  text += dialect.typeName(column.type);
  text += " NOT NULL";
  text += defaultOf(column.type);
}

// The orders in which detail ledgers read lines, each with the lines that have its dimension at all.
struct LineOrder {
  std::string_view name;
  std::string_view lines;
  std::string_view posted;         // empty: no posted lines are read so
  std::string_view unposted = {};  // where these are ordered otherwise
};
constexpr std::array lineOrders = {
    LineOrder{"PersonAccount", "lPersonId <> 0", "lDeptId, lPersonId, lCodeId, dtDate, lId, lTieId"},
    LineOrder{"Unit", "lEnterId <> 0", "lEnterId, dtDate, lTieId, lId, lCodeId"},
    LineOrder{"UnitDate", "lEnterId <> 0", "", "lEnterId, dtDate, lId, lTieId, lCodeId"},
    LineOrder{"UnitAccount", "lEnterId <> 0", "lEnterId, lCodeId, lTieId, lId"},
    LineOrder{"UnitDept", "lEnterId <> 0", "lDeptId, lEnterId, dtDate, lTieId, lId, lCodeId"},
    LineOrder{"UnitClerk", "lEnterId <> 0", "sName, lEnterId, dtDate, lTieId, lId, lCodeId"},
    LineOrder{"UnitItem", "lEnterId <> 0", "sItemId, lItemId, lEnterId, dtDate, lTieId, lId, lCodeId"},
    LineOrder{"Dept", "lDeptId <> 0", "lDeptId, lTieId, lId, lCodeId", "lDeptId, dtDate, lTieId, lId, lCodeId"},
    LineOrder{"DeptDate", "lDeptId <> 0", "lDeptId, dtDate, lTieId, lId, lCodeId",
              "lDeptId, dtDate, lId, lTieId, lCodeId"},
    LineOrder{"DeptAccount", "lDeptId <> 0", "lDeptId, lCodeId, lTieId, lId", "lDeptId, lCodeId, dtDate, lTieId, lId"},
    LineOrder{"Item", "lItemId <> 0", "sItemId, lItemId, lTieId, lId, lCodeId",
              "sItemId, lItemId, dtDate, lId, lTieId, lCodeId"},
    LineOrder{"ItemDept", "lItemId <> 0", "sItemId, lDeptId, lItemId, lTieId, lId, lCodeId",
              "sItemId, lDeptId, lItemId, dtDate, lId, lTieId, lCodeId"},
};

}  // namespace

const std::vector<TableSchema>& ledgerTables() {
  static const auto tables = [] {
    std::vector<TableSchema> all;
    forEachRecord([&]<class Record>() { all.push_back(schemaOf<Record>(uniquesOf(Record::table))); });
    return all;
  }();
  return tables;
}

const TableSchema& tableOf(std::string_view name) {
  return *std::ranges::find(ledgerTables(), name, &TableSchema::name);
}

std::vector<IndexSchema> ledgerIndexes(const Dialect& dialect) {
  // An index serves a report's order without a sort: the dimension first, then what the report orders by, continued by
  // line id, voucher, account. Those of a dimension that few lines have leave the others out.
  static const auto common = [] {
    std::vector<IndexSchema> all = {
        {"RegSub_Person", "RegSub", "lDeptId, lPersonId, dtDate, lId, lTieId, lCodeId"},
        {"UnregSub_Person", "UnregSub", "lDeptId, lPersonId, dtDate, lId, lTieId, lCodeId"},
        {"AssAcc_Person", "AssAcc", "lDeptId, lPersonId, byPeroid, lId, lCodeId"},
        {"AssAcc_Unit", "AssAcc", "lEnterId, byPeroid, lId, lCodeId", "lEnterId <> 0"},
        {"AssAcc_Item", "AssAcc", "sItemId, lItemId, byPeroid, lId, lCodeId", "lItemId <> 0"},
        {"RegMain_Bill", "RegMain", "dtBill"},
        {"RegMain_Order", "RegMain", "byPeroid, sWord, nNumber, lTieId"},
        {"UnregMain_Order", "UnregMain", "byPeroid, sWord, nNumber, lTieId"},
    };
    for (const auto& order : lineOrders) {
      for (const std::string table : {"RegSub", "UnregSub"}) {
        const auto& columns = table == "RegSub" || order.unposted.empty() ? order.posted : order.unposted;
        if (columns.empty()) continue;
        all.push_back({table + "_" + std::string(order.name), table, std::string(columns), std::string(order.lines)});
      }
    }
    return all;
  }();
  auto indexes = common;
  if (dialect.linesKeyedByVoucher()) return indexes;
  for (const std::string table : {"RegSub", "UnregSub"}) indexes.push_back({table + "_Voucher", table, "lTieId, lId"});
  return indexes;
}

TableSchema itemTableSchema(std::string_view classId, const std::vector<ProjItemsInfo>& fields) {
  TableSchema schema{itemTable(classId), {{"lId", Dialect::Type::id}}, {"lId"}};
  schema.columns.push_back({"FIELD0", Dialect::Type::text});
  schema.columns.push_back({"FIELD1", Dialect::Type::text});
  for (const auto& field : fields) {
    if (field.nField < 2) continue;
    const bool text = field.sType == "3" || field.sType == "4";
    schema.columns.push_back(
        {"FIELD" + std::to_string(field.nField), text ? Dialect::Type::text : Dialect::Type::real});
  }
  return schema;
}

std::string columnText(const ColumnSchema& column, const Dialect& dialect) {
  std::string text;
  appendColumn(text, column, dialect);
  return text;
}

std::string createTableText(const TableSchema& table, const Dialect& dialect) {
  static const std::vector<std::string> voucherAndLine = {"lTieId, lId"};
  const bool line = table.name == "RegSub" || table.name == "UnregSub";
  const auto& uniques = line && dialect.linesKeyedByVoucher() ? voucherAndLine : table.uniques;
  constexpr std::size_t usualLength = 1024;
  std::string text;
  text.reserve(usualLength);
  text += "CREATE TABLE ";
  text += table.name;
  text += " (";
  for (const auto& column : table.columns) {
    // A single id as primary key must be exactly INTEGER PRIMARY KEY to be the row's own id in SQLite.
    if (column.name == uniques.front()) {
      text += column.name;
      text += ' ';
      text += dialect.typeName(column.type);
      text += " NOT NULL PRIMARY KEY";
    } else {
      appendColumn(text, column, dialect);
    }
    text += ", ";
  }
  for (const auto& unique : uniques) {
    if (&unique == &uniques.front() && unique.find(',') == std::string::npos) continue;
    text += &unique == &uniques.front() ? "PRIMARY KEY (" : "UNIQUE (";
    text += unique;
    text += "), ";
  }
  text.resize(text.size() - 2);
  text += ')';
  text += dialect.tableSuffix();
  return text;
}

void createTables(Connection& connection) {
  const auto& dialect = connection.dialect();
  for (const auto& table : ledgerTables()) connection.execute(Sql(createTableText(table, dialect)));
  createCatalogueView(connection);
  connection.execute(Sql(dialect.versionStatement(ledgerVersion)));
}

void createCatalogueView(Connection& connection) {
  connection.execute(Sql("CREATE VIEW systable AS " + connection.dialect().catalogueView()));
}

void createTable(Connection& connection, std::string_view name) {
  connection.execute(Sql(createTableText(tableOf(name), connection.dialect())));
}

bool hasAllIndexes(Connection& connection) {
  std::set<std::string> there;
  const auto names = connection.query(Sql(connection.dialect().indexNames()));
  while (names->next()) there.emplace(names->text(0));
  return std::ranges::all_of(ledgerIndexes(connection.dialect()), [&](const IndexSchema& index) {
    std::string folded = index.name;
    std::ranges::transform(folded, folded.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return there.contains(folded);
  });
}

void createIndexes(Connection& connection) {
  for (const auto& index : ledgerIndexes(connection.dialect())) {
    std::string text = "CREATE INDEX IF NOT EXISTS " + index.name + " ON " + index.table + " (" + index.columns + ")";
    if (!index.rows.empty()) text += " WHERE " + index.rows;
    connection.execute(Sql(text));
  }
}

}  // namespace tz
