#include "core/data/made_tables.h"

#include <algorithm>

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

// What an item table of this text would have to be; whether it is, the whole text tells.
TableSchema itemTableOf(std::string_view name, std::string_view text, const Dialect& dialect) {
  TableSchema schema{std::string(name), {}, {"lId"}};
  while (!text.empty()) {
    const auto column = takeWord(text);
    const auto type = takeWord(text);
    const auto types = {Dialect::Type::id, Dialect::Type::text, Dialect::Type::real};
    const auto* const found = std::ranges::find(types, type, [&](Dialect::Type one) { return dialect.typeName(one); });
    schema.columns.push_back({std::string(column), found == types.end() ? Dialect::Type::id : *found});
    const auto end = text.find(", ");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
  }
  return schema;
}

}  // namespace

std::optional<std::vector<StoredColumn>> columnsAsMade(std::string_view text, const Dialect& dialect) {
  constexpr std::string_view head = "CREATE TABLE ";
  if (text.starts_with("CREATE VIEW ")) {
    return text == catalogueViewText(dialect) ? std::optional(std::vector<StoredColumn>()) : std::nullopt;
  }
  const auto open = text.find(" (");
  if (!text.starts_with(head) || open == std::string_view::npos) return std::nullopt;
  const auto name = text.substr(head.size(), open - head.size());
  const auto known = std::ranges::find(ledgerTables(), name, &TableSchema::name);
  std::optional<TableSchema> items;
  if (known == ledgerTables().end()) items = itemTableOf(name, text.substr(open + 2), dialect);
  const auto& schema = items ? *items : *known;
  if (createTableText(schema, dialect) != text) return std::nullopt;
  std::vector<StoredColumn> columns;
  columns.reserve(schema.columns.size());
  for (const auto& column : schema.columns) {
    columns.push_back({lowerCase(column.name), lowerCase(dialect.typeName(column.type)), true, false});
  }
  return columns;
}

}  // namespace tz
