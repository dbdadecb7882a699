#include "core/data/made_tables.h"

#include <algorithm>
#include <array>

#include "core/data/schema.h"

namespace tz {
namespace {

// The word before the next blank, taken off the front.
std::string_view takeWord(std::string_view& text) {
  const auto end = std::min(text.find(' '), text.size());
  const auto word = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

// What an item table of this definition would have to be; whether it is, the whole text tells.
TableSchema itemTableOf(std::string_view definition, const Dialect& dialect) {
  constexpr std::array types = {Dialect::Type::id, Dialect::Type::text, Dialect::Type::real};
  TableSchema schema;
  schema.uniques = {"lId"};
  if (const auto open = definition.find(" ("); open != std::string_view::npos) {
    auto head = definition.substr(0, open);
    schema.name = head.substr(head.rfind(' ') + 1);
    definition.remove_prefix(open + 2);
  }
  while (!definition.empty()) {
    const auto column = takeWord(definition);
    const auto type = takeWord(definition);
    const auto found = std::ranges::find(types, type, [&](Dialect::Type one) { return dialect.definedType(one); });
    schema.columns.push_back({std::string(column), found == types.end() ? Dialect::Type::id : *found});
    const auto end = definition.find(", ");
    definition.remove_prefix(end == std::string_view::npos ? definition.size() : end + 2);
  }
  return schema;
}

// Of every table of the contract, by their names in lower case.
const TableSchema* contractTable(std::string_view name) {
  const auto isIt = [&](const TableSchema& table) {
    return table.name.size() == name.size() && lowerCase(table.name) == name;
  };
  const auto found = std::ranges::find_if(ledgerTables(), isIt);
  return found == ledgerTables().end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::vector<StoredColumn>> columnsAsMade(std::string_view name, std::string_view definition,
                                                       const Dialect& dialect) {
  std::optional<TableSchema> items;
  const auto* schema = contractTable(name);
  if (schema == nullptr) schema = &items.emplace(itemTableOf(definition, dialect));
  if (dialect.definition(*schema) != definition) return std::nullopt;
  std::vector<StoredColumn> columns;
  columns.reserve(schema->columns.size());
  for (const auto& column : schema->columns) {
    columns.push_back({lowerCase(column.name), std::string(dialect.storedType(column.type)), true, false});
  }
  return columns;
}

}  // namespace tz
