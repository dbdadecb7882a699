#include "core/archives/archive_store.h"

#include <fmt/format.h>

#include "core/archives/archive_uses.h"

namespace tz {
namespace {

using Kind = ArchiveField::Kind;

Sql commonCondition(const Archive& archive) {
  Sql condition("lId > 0");
  for (const auto& [column, value] : archive.common) condition += Sql(" AND " + column + " = ?", value);
  return condition;
}

Sql selectRecords(const Archive& archive) {
  auto text = fmt::format("SELECT lId, {}", archive.idColumn);
  for (const auto& field : archive.fields) text += ", " + field.column;
  return Sql(fmt::format("{} FROM {} WHERE ", text, archive.table)) + commonCondition(archive);
}

Value valueAt(const Cursor& cursor, int column, const ArchiveField& field) {
  if (field.refers()) return cursor.integer(column);
  const auto kind = cursor.kind(column);
  if (field.isFigure() && kind != CellKind::text) return cursor.real(column);
  return cursor.anyText(column);
}

ArchiveRecord recordAt(const Cursor& cursor, const Archive& archive) {
  constexpr int firstField = 2;
  ArchiveRecord record{cursor.integer(0), cursor.integer(1), {}};
  record.values.reserve(archive.fields.size());
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    record.values.push_back(valueAt(cursor, firstField + static_cast<int>(place), archive.fields[place]));
  }
  return record;
}

std::optional<ArchiveRecord> readRecord(Connection& connection, const Archive& archive, Id lId) {
  const auto cursor = connection.query(selectRecords(archive) + Sql(" AND lId = ?", lId));
  return cursor->next() ? std::optional(recordAt(*cursor, archive)) : std::nullopt;
}

void insertRecord(Connection& connection, const Archive& archive, const ArchiveRecord& record) {
  std::string columns = "lId";
  Sql values("?", record.lId);
  const auto add = [&](const std::string& column, const Value& value) {
    columns += ", " + column;
    values += Sql(", ?", value);
  };
  if (archive.idColumn != "lId") add(archive.idColumn, Value(record.id));
  for (const auto& [column, value] : archive.common) add(column, Value(value));
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    add(archive.fields[place].column, record.values[place]);
  }
  connection.execute(Sql(fmt::format("INSERT INTO {} ({}) VALUES (", archive.table, columns)) + values + ")");
}

void updateRecord(Connection& connection, const Archive& archive, const ArchiveRecord& record) {
  Sql changes;
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    if (archive.fields[place].fixed) continue;
    changes += Sql((changes.empty() ? "" : ", ") + archive.fields[place].column + " = ?", record.values[place]);
  }
  connection.execute(Sql(fmt::format("UPDATE {} SET ", archive.table)) + changes + Sql(" WHERE lId = ?", record.lId));
}

Sql sameValue(const ArchiveField& field, const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (field.kind == Kind::classId && text != nullptr) return Sql("lower(" + field.column + ") = ?", lowerCase(*text));
  return Sql(field.column + " = ?", value);
}

// What may stand only once: a code as it is, the id of a class whatever its case.
std::optional<ArchiveRefusal> refuseTwice(Connection& connection, const Archive& archive,
                                          const ArchiveReferences& references, const ArchiveRecord& before,
                                          const ArchiveRecord& record) {
  for (std::size_t place = 0; place < archive.fields.size(); ++place) {
    const auto& field = archive.fields[place];
    const auto& value = record.values[place];
    const bool stays = place < before.values.size() && before.values[place] == value;
    if (!field.oncePerArchive() || stays) continue;
    const auto others = connection.query(selectRecords(archive) + " AND " + sameValue(field, value) +
                                         Sql(" AND lId <> ? ORDER BY lId LIMIT 1", record.lId));
    if (!others->next()) continue;
    const auto other = calledRecord(archive, recordAt(*others, archive), references);
    if (field.kind == Kind::account) return ArchiveRefusal{Refusal{fmt::format("{}已经在列。", other)}, place};
    const auto text = std::get<std::string>(value);
    return ArchiveRefusal{Refusal{fmt::format("{}“{}”已经用于{}。", field.caption, text, other)}, place};
  }
  return std::nullopt;
}

// The item table of a class that is no longer in the list of classes.
std::optional<ArchiveRefusal> refuseTable(Connection& connection, const Archive& archive, const ArchiveRecord& record) {
  if (!archive.has(Kind::classId)) return std::nullopt;
  const auto wanted = lowerCase(itemTable(std::get<std::string>(record.values.front())));
  const auto names = connection.query(Sql(connection.dialect().tableNames()));
  while (names->next()) {
    if (names->text(0) != wanted) continue;
    return ArchiveRefusal{Refusal{"帐套中已有这个编号的项目表，请换一个大类编号。"}, 0};
  }
  return std::nullopt;
}

ArchiveAnswer answerMeanwhile(const Archive& archive, const ArchiveReferences& references, const ArchiveRecord& read,
                              std::optional<ArchiveRecord> now) {
  const auto called = calledRecord(archive, read, references);
  auto text = now ? fmt::format("{}已被别人修改，没有写入。请看现在的内容，再决定是否修改。", called)
                  : fmt::format("{}已被别人删除，没有写入。", called);
  return {.refused = ArchiveRefusal{Refusal{std::move(text)}}, .now = std::move(now), .changedMeanwhile = true};
}

std::optional<ArchiveRefusal> refusalOf(std::string text) {
  if (text.empty()) return std::nullopt;
  return ArchiveRefusal{Refusal{std::move(text)}};
}

// Runs the steps of one change until one refuses; the answer is theirs.
ArchiveAnswer inOneChange(LedgerKeeper& keeper, const std::function<void(Connection&, ArchiveAnswer&)>& steps) {
  ArchiveAnswer answer;
  (void)keeper.change([&]() -> std::optional<Refusal> {
    answer = {};
    steps(keeper.connection(), answer);
    return answer.refused ? std::optional(answer.refused->refusal) : std::nullopt;
  });
  return answer;
}

}  // namespace

std::vector<ArchiveRecord> readArchive(const CQnCwDB& db, const Archive& archive) {
  std::vector<ArchiveRecord> records;
  const auto cursor = db.Current().query(selectRecords(archive) + Sql(" ORDER BY " + archive.order));
  while (cursor->next()) records.push_back(recordAt(*cursor, archive));
  return records;
}

std::string calledRecord(const Archive& archive, const ArchiveRecord& record, const ArchiveReferences& references) {
  const auto place = archive.name.value_or(0);
  const auto& value = record.values[place];
  const auto* id = std::get_if<std::int64_t>(&value);
  const auto name = id == nullptr ? inputText(archive.fields[place], value)
                                  : std::string(references.NameOf(archive.fields[place].kind, *id));
  return fmt::format("{}“{}”", archive.noun, name);
}

ArchiveAnswer addRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveInput& input) {
  return inOneChange(keeper, [&](Connection& connection, ArchiveAnswer& answer) {
    const ArchiveReferences references(keeper.db(), archive);
    auto values = readInput(archive, references, input);
    if (auto* refused = std::get_if<ArchiveRefusal>(&values)) {
      answer.refused = std::move(*refused);
      return;
    }
    ArchiveRecord record{.values = std::get<std::vector<Value>>(std::move(values))};
    answer.refused = refuseTwice(connection, archive, references, {}, record);
    if (!answer.refused) answer.refused = refuseTable(connection, archive, record);
    if (!answer.refused && archive.mayNotAdd) answer.refused = refusalOf(archive.mayNotAdd(connection));
    if (answer.refused) return;
    record.lId = connection.newIds(archive.table, 1);
    record.id = archive.newId ? archive.newId(connection, record.lId) : record.lId;
    insertRecord(connection, archive, record);
    if (archive.added) archive.added(connection, record);
    answer.now = std::move(record);
  });
}

ArchiveAnswer changeRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveRecord& read,
                           const ArchiveInput& input) {
  return inOneChange(keeper, [&](Connection& connection, ArchiveAnswer& answer) {
    const ArchiveReferences references(keeper.db(), archive);
    auto values = readInput(archive, references, input);
    if (auto* refused = std::get_if<ArchiveRefusal>(&values)) {
      answer.refused = std::move(*refused);
      return;
    }
    auto now = readRecord(connection, archive, read.lId);
    if (now != std::optional(read)) {
      answer = answerMeanwhile(archive, references, read, std::move(now));
      return;
    }
    ArchiveRecord record{read.lId, read.id, std::get<std::vector<Value>>(std::move(values))};
    for (std::size_t place = 0; place < archive.fields.size(); ++place) {
      if (archive.fields[place].fixed) record.values[place] = read.values[place];
    }
    answer.refused = refuseTwice(connection, archive, references, read, record);
    if (answer.refused) return;
    if (record != read) updateRecord(connection, archive, record);
    answer.now = std::move(record);
  });
}

ArchiveAnswer removeRecord(LedgerKeeper& keeper, const Archive& archive, const ArchiveRecord& read) {
  return inOneChange(keeper, [&](Connection& connection, ArchiveAnswer& answer) {
    const ArchiveReferences references(keeper.db(), archive);
    auto now = readRecord(connection, archive, read.lId);
    if (now != std::optional(read)) {
      answer = answerMeanwhile(archive, references, read, std::move(now));
      return;
    }
    if (archive.mayNotRemove) answer.refused = refusalOf(archive.mayNotRemove(read));
    const auto uses = answer.refused ? std::string() : usesOf(connection, archive, read);
    if (!uses.empty()) {
      const auto called = calledRecord(archive, read, references);
      answer.refused = refusalOf(fmt::format("{}已用于 {}，不能删除。", called, uses));
    }
    if (answer.refused) return;
    if (archive.removing) archive.removing(connection, read);
    connection.execute(Sql(fmt::format("DELETE FROM {} WHERE lId = ?", archive.table), read.lId));
  });
}

std::string doubtAbout(const CQnCwDB& db, const Archive& archive, const ArchiveRecord& read,
                       const ArchiveInput& input) {
  if (!archive.name || archive.fields[*archive.name].refers()) return "";
  const auto name = trimmedText(input[*archive.name].text);
  if (name.empty() || (!read.values.empty() && read.values[*archive.name] == Value(name))) return "";
  const auto others = db.Current().query(selectRecords(archive) +
                                         Sql(fmt::format(" AND {} = ?", archive.fields[*archive.name].column), name) +
                                         Sql(" AND lId <> ? LIMIT 1", read.lId));
  if (!others->next()) return "";
  const auto record = recordAt(*others, archive);
  const auto code = archive.code ? fmt::format("（{}）", inputText(archive.fields[*archive.code],  //
                                                                   record.values[*archive.code]))
                                 : std::string();
  return fmt::format("已有同名的{}“{}”{}，按名称查询时只能查到其中一个。仍要写入吗？", archive.noun, name, code);
}

}  // namespace tz
