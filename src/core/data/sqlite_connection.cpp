// The SQLite backend: one file holds one ledger.
#include "core/data/sqlite_connection.h"

#include <cassert>
#include <cmath>
#include <sqlite3.h>

#include "core/data/backends.h"
#include "core/data/sqlite_access.h"
#include "core/data/sqlite_dialect.h"
#include "core/data/sqlite_errors.h"
#include "core/data/sqlite_functions.h"

namespace tz {
namespace {

[[noreturn]] void fail(sqlite3* db) { throw sqliteError(sqlite3_extended_errcode(db), sqlite3_errmsg(db)); }

using Statement = std::unique_ptr<sqlite3_stmt, decltype([](sqlite3_stmt* s) { sqlite3_finalize(s); })>;

Statement prepare(sqlite3* db, const std::string& text) {
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(db, text.data(), static_cast<int>(text.size()), &raw, nullptr) != SQLITE_OK) fail(db);
  return Statement(raw);
}

void bindValue(sqlite3* db, sqlite3_stmt* statement, int place, const Value& value) {
  int result = SQLITE_OK;
  if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    result = sqlite3_bind_int64(statement, place, *integer);
  } else if (const auto* real = std::get_if<double>(&value)) {
    result = sqlite3_bind_double(statement, place, *real);
  } else if (const auto* date = std::get_if<Date>(&value)) {
    result = sqlite3_bind_text(statement, place, isoText(*date).c_str(), -1, SQLITE_TRANSIENT);
  } else {
    const auto& text = std::get<std::string>(value);
    result = sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }
  if (result != SQLITE_OK) fail(db);
}

Statement prepareBound(sqlite3* db, const Sql& sql) {
  auto statement = prepare(db, sql.numbered());
  int place = 0;
  for (const auto& value : sql.values()) bindValue(db, statement.get(), ++place, value);
  return statement;
}

class SqliteCursor final : public Cursor {
 public:
  // Of a ledger that is read as it stands, rows outside a transaction are made sure of one by one.
  SqliteCursor(sqlite3* db, Statement statement, std::shared_ptr<const StandingLedger> standing, bool inTransaction)
      : db_(db), statement_(std::move(statement)), standing_(std::move(standing)), eachRow_(!inTransaction) {}

  bool next() override {
    const int result = sqlite3_step(statement_.get());
    const bool failed = result != SQLITE_ROW && result != SQLITE_DONE;
    if (standing_ != nullptr && (eachRow_ || failed)) standing_->requireUnchanged();
    if (failed) fail(db_);
    return result == SQLITE_ROW;
  }
  int columns() const override { return sqlite3_column_count(statement_.get()); }
  std::string columnName(int column) const override { return sqlite3_column_name(statement_.get(), column); }
  CellKind kind(int column) const override {
    switch (sqlite3_value_type(cell(column))) {
      case SQLITE_NULL:
        return CellKind::null;
      case SQLITE_INTEGER:
        return CellKind::integer;
      case SQLITE_FLOAT:
        return CellKind::real;
      case SQLITE_TEXT:
        return CellKind::text;
      default:
        return CellKind::other;
    }
  }
  std::int64_t integer(int column) const override {
    auto* value = cell(column);
    if (sqlite3_value_type(value) >= SQLITE_TEXT) requireNumber(column);
    return sqlite3_value_int64(value);
  }
  double real(int column) const override {
    auto* value = cell(column);
    if (sqlite3_value_type(value) >= SQLITE_TEXT) requireNumber(column);
    const double figure = sqlite3_value_double(value);
    if (!std::isfinite(figure)) throw DbError(DbError::Kind::otherType, columnName(column) + " 不是数：无穷大");
    return figure;
  }
  std::string_view text(int column) const override {
    auto* value = cell(column);
    const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (data == nullptr) return {};
    return {data, static_cast<std::size_t>(sqlite3_value_bytes(value))};
  }
  Date date(int column) const override {
    const auto value = text(column);
    if (value.empty()) return {};
    const auto date = parseIsoDate(value);
    if (!date && standing_ != nullptr) standing_->requireUnchanged();
    if (!date) throw DbError(DbError::Kind::otherType, columnName(column) + " 不是日期：" + std::string(value));
    return *date;
  }
  std::string anyText(int column) const override {
    if (kind(column) == CellKind::real) return shortestText(sqlite3_value_double(cell(column)));
    return std::string(text(column));
  }

 private:
  // Looked up once for its type and value. It is not guarded against other threads; a connection belongs to one.
  [[nodiscard]] sqlite3_value* cell(int column) const { return sqlite3_column_value(statement_.get(), column); }
  // SQLite takes as much of a text as looks like a number; half a number is none.
  void requireNumber(int column) const {
    if (sqlite3_value_type(cell(column)) == SQLITE_NULL) return;
    const auto value = text(column);
    if (!isNumberText(value)) {
      throw DbError(DbError::Kind::otherType, columnName(column) + " 不是数：" + std::string(value));
    }
  }

  sqlite3* db_;
  Statement statement_;
  std::shared_ptr<const StandingLedger> standing_;
  bool eachRow_;
};

class SqliteWriter final : public RowWriter {
 public:
  SqliteWriter(sqlite3* db, Statement statement) : db_(db), statement_(std::move(statement)) {}
  void put(std::int64_t value) override { sqlite3_bind_int64(statement_.get(), ++place_, value); }
  void put(double value) override { sqlite3_bind_double(statement_.get(), ++place_, value); }
  void put(std::string_view value) override {
    sqlite3_bind_text(statement_.get(), ++place_, value.data() == nullptr ? "" : value.data(),
                      static_cast<int>(value.size()), SQLITE_TRANSIENT);
  }
  void put(Date value) override { put(std::string_view(isoText(value))); }
  void endRow() override {
    assert(place_ == sqlite3_bind_parameter_count(statement_.get()));
    place_ = 0;
    if (sqlite3_step(statement_.get()) != SQLITE_DONE) fail(db_);
    sqlite3_reset(statement_.get());
  }
  void finish() override {}

 private:
  sqlite3* db_;
  Statement statement_;
  int place_ = 0;
};

}  // namespace

SqliteConnection::SqliteConnection(sqlite3* db) : db_(db) {
  if (db_ != nullptr) sqlite3_busy_handler(db_, waitForLock, this);
}

SqliteConnection::~SqliteConnection() { sqlite3_close_v2(db_); }

std::unique_ptr<Cursor> SqliteConnection::query(const Sql& sql) {
  reopenIfChanged();
  try {
    return std::make_unique<SqliteCursor>(db_, prepareBound(db_, sql), standing_, inTransaction());
  } catch (const DbError&) {
    if (standing_ != nullptr) standing_->requireUnchanged();
    throw;
  }
}

std::int64_t SqliteConnection::execute(const Sql& sql) {
  const auto statement = prepareBound(db_, sql);
  int result = SQLITE_ROW;
  while (result == SQLITE_ROW) result = sqlite3_step(statement.get());
  if (result != SQLITE_DONE) fail(db_);
  return sqlite3_changes64(db_);
}

std::unique_ptr<RowWriter> SqliteConnection::insertInto(std::string_view table, std::span<const std::string> columns) {
  std::string text = "INSERT INTO " + std::string(table) + " (";
  std::string marks;
  for (const auto& column : columns) {
    text += (&column == columns.data() ? "" : ", ") + column;
    marks += &column == columns.data() ? "?" : ", ?";
  }
  return std::make_unique<SqliteWriter>(db_, prepare(db_, text + ") VALUES (" + marks + ")"));
}

// A writing transaction has the file for itself from its beginning.
std::int64_t SqliteConnection::newIds(std::string_view table, std::int64_t /*count*/) {
  assert(inTransaction());
  const auto last = query(Sql("SELECT coalesce(max(lId), 0) FROM " + std::string(table)));
  last->next();
  return last->integer(0) + 1;
}

const Dialect& SqliteConnection::dialect() const {
  static const SqliteDialect dialect;
  return dialect;
}

// A file that was deleted, moved or replaced is no longer the ledger, though it can still be read.
bool SqliteConnection::alive() {
  int moved = 0;
  sqlite3_file_control(db_, nullptr, SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved == 0;
}

int SqliteConnection::waitForLock(void* self, int attempt) {
  constexpr int milliseconds = 20, longest = 5000;
  const auto* connection = static_cast<SqliteConnection*>(self);
  if (connection->cancelled_ != nullptr && connection->cancelled_(connection->context_)) return 0;
  if (attempt * milliseconds >= longest) return 0;
  sqlite3_sleep(attempt == 0 ? 1 : milliseconds);
  return 1;
}

void SqliteConnection::setCancelCheck(bool (*cancelled)(void*), void* context) {
  cancelled_ = cancelled;
  context_ = context;
  installCancelCheck();
}

void SqliteConnection::installCancelCheck() {
  constexpr int stepsBetweenChecks = 10'000;
  const auto check = [](void* self) {
    const auto* connection = static_cast<SqliteConnection*>(self);
    return connection->cancelled_(connection->context_) ? 1 : 0;
  };
  sqlite3_progress_handler(db_, cancelled_ == nullptr ? 0 : stepsBetweenChecks, check, this);
}

void SqliteConnection::run(const char* text) {
  if (sqlite3_exec(db_, text, nullptr, nullptr, nullptr) != SQLITE_OK) fail(db_);
}

void SqliteConnection::readAsItStands(std::shared_ptr<const StandingLedger> standing, Opener reopen) {
  standing_ = std::move(standing);
  reopen_ = std::move(reopen);
}

// Cursors that are still open keep what they read from; they find out for themselves that it changed.
void SqliteConnection::reopenIfChanged() {
  if (standing_ == nullptr || inTransaction() || standing_->stands()) return;
  const auto anew = reopen_();
  std::swap(db_, anew->db_);
  standing_ = anew->standing_;
  installCancelCheck();
  if (prepare_) prepare_(*this);
}

void SqliteConnection::close() {
  const int result = sqlite3_close(db_);
  if (result != SQLITE_OK) throw sqliteError(result, sqlite3_errstr(result));
  db_ = nullptr;
}

bool SqliteConnection::inTransaction() const { return sqlite3_get_autocommit(db_) == 0; }

void SqliteConnection::begin(bool writing) {
  reopenIfChanged();
  run(writing ? "BEGIN IMMEDIATE" : "BEGIN");
}

void SqliteConnection::commit() {
  if (standing_ != nullptr) standing_->requireUnchanged();
  run("COMMIT");
}

void SqliteConnection::rollback() noexcept {
  if (inTransaction()) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteConnection::prepareWhenReopened(std::function<void(Connection&)> prepare) { prepare_ = std::move(prepare); }

void restrictSqlite(Connection& connection, Access access) {
  restrictSqliteHandle(dynamic_cast<SqliteConnection&>(connection).handle(), access);
}

void afterReopening(Connection& connection, std::function<void(Connection&)> prepare) {
  dynamic_cast<SqliteConnection&>(connection).prepareWhenReopened(std::move(prepare));
}

}  // namespace tz
