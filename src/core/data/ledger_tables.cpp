#include "core/data/ledger_tables.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <set>

#include "core/data/made_tables.h"
#include "core/data/schema.h"

namespace tz {
namespace {

constexpr std::string_view catalogue = "systable";
constexpr std::string_view itemPrefix = "projitems";

struct Found {
  std::string schema;
  std::vector<StoredColumn> columns;
  bool indexable = false;
  bool visible = false;  // what the name alone stands for
  bool asMade = false;
};
using FoundTables = std::multimap<std::string, Found>;

// In lower case.
const std::set<std::string, std::less<>>& contractNames() {
  static const auto names = [] {
    std::set<std::string, std::less<>> all = {std::string(catalogue)};
    for (const auto& table : ledgerTables()) all.insert(lowerCase(table.name));
    return all;
  }();
  return names;
}

bool isItemTable(std::string_view name) {
  return name.starts_with(itemPrefix) && isClassId(name.substr(itemPrefix.size()));
}

std::string quotedList(const std::set<std::string, std::less<>>& names) {
  return fmt::format("'{}'", fmt::join(names, "', '"));
}

void readColumns(Connection& connection, const std::set<std::string, std::less<>>& names, FoundTables& tables) {
  const auto rows = connection.query(Sql(connection.dialect().columnsQuery(quotedList(names))));
  while (rows->next()) {
    const std::string schema(rows->text(0));
    const std::string name(rows->text(1));
    auto [place, end] = tables.equal_range(name);
    while (place != end && place->second.schema != schema) ++place;
    if (place == end) place = tables.emplace(name, Found{schema, {}, rows->integer(6) != 0, rows->integer(7) != 0});
    place->second.columns.push_back(
        {std::string(rows->text(2)), std::string(rows->text(3)), rows->integer(4) != 0, rows->integer(5) != 0});
  }
}

FoundTables readTables(Connection& connection) {
  const auto& dialect = connection.dialect();
  FoundTables tables;
  std::set<std::string, std::less<>> all;
  std::set<std::string, std::less<>> others;
  std::set<std::string> schemas;
  const auto rows = connection.query(Sql(dialect.definitionsQuery(quotedList(contractNames()))));
  while (rows->next()) {
    const auto name = rows->text(1);
    if (!contractNames().contains(name) && !isItemTable(name)) continue;
    schemas.emplace(rows->text(0));
    all.emplace(name);
    auto columns = columnsAsMade(name, rows->text(2), dialect);
    if (name == catalogue) columns.emplace();  // it is there or it is not
    if (columns) {
      tables.emplace(name, Found{std::string(rows->text(0)), std::move(*columns), true, true, true});
    } else {
      others.emplace(name);
    }
  }
  // Where several schemas have such names, what each name stands for is found out in full.
  if (schemas.size() > 1) {
    tables.clear();
    others = all;
  }
  if (!others.empty()) readColumns(connection, others, tables);
  return tables;
}

// How many of the contract's tables each schema holds; the one with the most is the ledger, of several the one in
// front.
std::string ledgerSchema(const FoundTables& tables, std::map<std::string, int>& counts) {
  std::map<std::string, int> visible;
  for (const auto& table : ledgerTables()) {
    const auto [first, last] = tables.equal_range(lowerCase(table.name));
    for (auto one = first; one != last; ++one) {
      ++counts[one->second.schema];
      visible[one->second.schema] += one->second.visible ? 1 : 0;
    }
  }
  const auto most = std::ranges::max_element(
      counts, {}, [&](const auto& schema) { return std::pair(schema.second, visible[schema.first]); });
  return most == counts.end() ? "" : most->first;
}

using Types = std::map<std::string, Dialect::Type>;

// Of the columns of each table, all by their names in lower case.
const std::map<std::string, Types>& typesOfTables() {
  static const auto all = [] {
    std::map<std::string, Types> tables;
    for (const auto& table : ledgerTables()) {
      auto& types = tables[lowerCase(table.name)];
      for (const auto& column : table.columns) types.emplace(lowerCase(column.name), column.type);
    }
    return tables;
  }();
  return all;
}

// The type that the ledger asks of a column; nothing where it asks for none.
std::optional<Dialect::Type> wantedType(const std::string& table, const std::string& column) {
  const auto known = typesOfTables().find(table);
  if (known == typesOfTables().end()) {
    if (column == "lid") return Dialect::Type::id;
    const auto field = itemField(column);
    return field == 0 || field == 1 ? std::optional(Dialect::Type::text) : std::nullopt;
  }
  const auto found = known->second.find(column);
  return found == known->second.end() ? std::nullopt : std::optional(found->second);
}

// Whether any of these columns holds NULL, which comparisons with 0 or '' miss and which databases sort differently.
bool holdsNull(Connection& connection, const std::string& table, const std::vector<std::string>& columns) {
  std::string any;
  for (const auto& column : columns) any += (any.empty() ? "" : " OR ") + column + " IS NULL";
  return !any.empty() && connection.query(Sql("SELECT 1 FROM " + table + " WHERE " + any + " LIMIT 1"))->next();
}

struct FormedColumn {
  std::string name, form;
  std::string ifNull;  // what stands for NULL in a column that is in its form but for that
};

std::vector<FormedColumn> formedColumns(const Dialect& dialect, const std::string& table,
                                        const std::vector<StoredColumn>& columns) {
  std::vector<FormedColumn> formed;
  for (const auto& column : columns) {
    const auto wanted = wantedType(table, column.name);
    // A name with capitals, which a server keeps for those who quote it, is another column.
    if ((!wanted && !itemField(column.name)) || column.name != lowerCase(column.name)) continue;
    auto& one = formed.emplace_back(FormedColumn{column.name, column.name, ""});
    if (!wanted) continue;
    if (dialect.fit(*wanted, column) == Dialect::Fit::useless) {
      throw DbError(DbError::Kind::otherType, table + "." + column.name + " 的类型不能读：" + column.type);
    }
    one.form = dialect.inForm(*wanted, column);
    const bool plain = one.form == column.name && column.nullable && *wanted != Dialect::Type::date;
    if (plain) one.ifNull = *wanted == Dialect::Type::text ? "''" : "0";
  }
  return formed;
}

// The columns of a table in the ledger's form; empty where they have it already.
std::string columnsInForm(Connection& connection, const std::string& table, const std::vector<StoredColumn>& columns) {
  auto formed = formedColumns(connection.dialect(), table, columns);
  std::vector<std::string> nullable;
  for (const auto& one : formed) {
    if (!one.ifNull.empty()) nullable.push_back(one.name);
  }
  const bool nulls = holdsNull(connection, table, nullable);
  std::string list;
  bool differs = false;
  for (auto& [name, form, ifNull] : formed) {
    if (nulls && !ifNull.empty()) form = fmt::format("coalesce({}, {})", name, ifNull);
    differs = differs || form != name;
    list += fmt::format("{}{} AS {}", list.empty() ? "" : ", ", form, name);
  }
  return differs ? list : "";
}

bool hasOwnTypes(const Dialect& dialect, const std::string& name, const Found& table) {
  return std::ranges::all_of(table.columns, [&](const StoredColumn& column) {
    const auto wanted = wantedType(name, column.name);
    return !wanted || dialect.fit(*wanted, column) == Dialect::Fit::own;
  });
}

}  // namespace

LedgerTables settleLedgerTables(Connection& connection) {
  const auto& dialect = connection.dialect();
  auto found = readTables(connection);
  std::map<std::string, int> counts;
  LedgerTables ledger;
  ledger.schema = ledgerSchema(found, counts);
  for (auto& [name, table] : found) {
    if (table.schema != ledger.schema) continue;
    if (!table.visible) {
      throw DbError(DbError::Kind::shadowed, "帐套在模式 " + ledger.schema + " 中，而搜索路径上在它之前另有表 " + name);
    }
    if (!table.asMade && name != catalogue) {
      ledger.others.push_back(name);
      ledger.indexable = ledger.indexable && table.indexable && hasOwnTypes(dialect, name, table);
    }
    ledger.tables.emplace(name, std::move(table.columns));
  }
  for (const auto& [schema, count] : counts) {
    const bool whole = count + 1 >= static_cast<int>(ledgerTables().size());  // a ledger made elsewhere has no mark log
    if (whole && schema != ledger.schema) {
      throw DbError(DbError::Kind::shadowed,
                    "模式 " + ledger.schema + "、" + schema + " 中各有一个帐套，须写明是哪一个");
    }
  }
  if (const auto use = dialect.useSchema(ledger.schema); !use.empty() && !ledger.schema.empty()) {
    (void)connection.query(use)->next();
  }
  return ledger;
}

void bringIntoForm(Connection& connection, const LedgerTables& ledger, Access access) {
  const auto& dialect = connection.dialect();
  std::vector<std::string> views;
  for (const auto& table : ledger.others) {
    if (const auto list = columnsInForm(connection, table, ledger.tables.at(table)); !list.empty()) {
      views.push_back(dialect.viewInFront(table, list));
    }
  }
  if (!views.empty()) {
    connection.execute(Sql(dialect.writing(true)));
    for (const auto& view : views) connection.execute(Sql(view));
    if (access == Access::read) connection.execute(Sql(dialect.writing(false)));
  }
  const bool indexed = views.empty() && ledger.indexable;
  if (const auto plan = dialect.planWithoutIndexes(); !indexed && !plan.empty())
    (void)connection.query(Sql(plan))->next();
}

}  // namespace tz
