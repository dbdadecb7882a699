// The SQLite backend: one file holds one ledger.
#include <array>
#include <cassert>
#include <charconv>
#include <filesystem>
#include <sqlite3.h>

#include "data/backends.h"
#include "data/report_writes.h"
#include "data/sqlite_errors.h"

namespace tz {
namespace {

class SqliteDialect final : public Dialect {
 public:
  std::string_view typeName(Type type) const override {
    switch (type) {
      case Type::text:
      case Type::date:
        return "TEXT";
      case Type::real:
        return "REAL";
      default:
        return "INTEGER";
    }
  }
  Sql dateAdd(std::string_view column, int days) const override {
    return Sql("date(" + std::string(column) + ", ? || ' days')", std::to_string(days));
  }
  std::string catalogueView() const override {
    return "SELECT 4 AS creator, coalesce('ProjItems' || c.sItemId, t.name) AS table_name FROM sqlite_master t "
           "LEFT JOIN ProjClass c ON lower('ProjItems' || c.sItemId) = lower(t.name) WHERE t.type = 'table'";
  }
  std::string_view tableNames() const override {
    return "SELECT lower(name) FROM sqlite_master WHERE type IN ('table', 'view')";
  }
  std::string_view indexNames() const override { return "SELECT lower(name) FROM sqlite_master WHERE type = 'index'"; }
  std::string_view tableSuffix() const override { return " STRICT"; }
  std::string_view versionQuery() const override { return "PRAGMA user_version"; }
  std::string versionStatement(int version) const override {
    return "PRAGMA user_version = " + std::to_string(version);
  }
  std::string_view structureQuery() const override { return "PRAGMA integrity_check(20)"; }
  bool linesKeyedByVoucher() const override { return false; }
};

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
  SqliteCursor(sqlite3* db, Statement statement) : db_(db), statement_(std::move(statement)) {}

  bool next() override {
    switch (sqlite3_step(statement_.get())) {
      case SQLITE_ROW:
        return true;
      case SQLITE_DONE:
        return false;
      default:
        fail(db_);
    }
  }
  int columns() const override { return sqlite3_column_count(statement_.get()); }
  std::string columnName(int column) const override { return sqlite3_column_name(statement_.get(), column); }
  std::int64_t integer(int column) const override { return sqlite3_column_int64(statement_.get(), column); }
  double real(int column) const override { return sqlite3_column_double(statement_.get(), column); }
  std::string_view text(int column) const override {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (data == nullptr) return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
  }
  Date date(int column) const override {
    const auto value = text(column);
    if (value.empty()) return {};
    const auto date = parseIsoDate(value);
    if (!date) throw DbError(DbError::Kind::damaged, "not a date: " + std::string(value));
    return *date;
  }
  std::string anyText(int column) const override {
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_FLOAT) return shortestText(real(column));
    return std::string(text(column));
  }

 private:
  sqlite3* db_;
  Statement statement_;
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

bool names(const char* name, std::string_view wanted) {
  return name != nullptr && sqlite3_stricmp(name, std::string(wanted).c_str()) == 0;
}

// A report writes only what report_writes.h lists; reading and transactions are always allowed.
int authorizeReport(void*, int action, const char* first, const char* second, const char*, const char*) {
  const auto permitted = [&](ReportWrite::Action wanted) {
    for (const auto& write : reportWrites) {
      if (write.action == wanted && names(first, write.table) && (write.column.empty() || names(second, write.column)))
        return SQLITE_OK;
    }
    return SQLITE_DENY;
  };
  switch (action) {
    case SQLITE_INSERT:
      return permitted(ReportWrite::Action::insert);
    case SQLITE_UPDATE:
      return permitted(ReportWrite::Action::update);
    case SQLITE_DELETE:
      return permitted(ReportWrite::Action::remove);
    case SQLITE_READ:
    case SQLITE_SELECT:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

class SqliteConnection final : public Connection {
 public:
  explicit SqliteConnection(sqlite3* db) : db_(db) {}
  ~SqliteConnection() override { sqlite3_close_v2(db_); }

  std::unique_ptr<Cursor> query(const Sql& sql) override {
    return std::make_unique<SqliteCursor>(db_, prepareBound(db_, sql));
  }
  std::int64_t execute(const Sql& sql) override {
    const auto statement = prepareBound(db_, sql);
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW) result = sqlite3_step(statement.get());
    if (result != SQLITE_DONE) fail(db_);
    return sqlite3_changes64(db_);
  }
  std::unique_ptr<RowWriter> insertInto(std::string_view table, std::span<const std::string> columns) override {
    std::string text = "INSERT INTO " + std::string(table) + " (";
    std::string marks;
    for (const auto& column : columns) {
      text += (&column == columns.data() ? "" : ", ") + column;
      marks += &column == columns.data() ? "?" : ", ?";
    }
    return std::make_unique<SqliteWriter>(db_, prepare(db_, text + ") VALUES (" + marks + ")"));
  }
  const Dialect& dialect() const override {
    static const SqliteDialect dialect;
    return dialect;
  }
  // A file that was deleted, moved or replaced is no longer the ledger, though it can still be read.
  bool alive() override {
    int moved = 0;
    sqlite3_file_control(db_, nullptr, SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved == 0 && sqlite3_exec(db_, "SELECT 1", nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  void setCancelCheck(bool (*cancelled)(void*), void* context) override {
    cancelled_ = cancelled;
    context_ = context;
    constexpr int stepsBetweenChecks = 10'000;
    const auto check = [](void* self) {
      const auto* connection = static_cast<SqliteConnection*>(self);
      return connection->cancelled_(connection->context_) ? 1 : 0;
    };
    sqlite3_progress_handler(db_, cancelled == nullptr ? 0 : stepsBetweenChecks, check, this);
  }

  void run(const char* text) {
    if (sqlite3_exec(db_, text, nullptr, nullptr, nullptr) != SQLITE_OK) fail(db_);
  }
  [[nodiscard]] sqlite3* handle() const { return db_; }

 protected:
  void begin(bool writing) override { run(writing ? "BEGIN IMMEDIATE" : "BEGIN"); }
  void commit() override { run("COMMIT"); }
  void rollback() noexcept override {
    if (sqlite3_get_autocommit(db_) == 0) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  }

 private:
  sqlite3* db_;
  bool (*cancelled_)(void*) = nullptr;
  void* context_ = nullptr;
};

// A path as a "file:" name, every byte that could mean something else escaped.
std::string uriOf(const std::string& path, std::string_view options) {
  std::string uri = "file:";
  for (const char signedChar : path) {
    const auto c = static_cast<unsigned char>(signedChar);
    if (std::isalnum(c) != 0 || c == '/' || c == '.' || c == '-' || c == '_') {
      uri += static_cast<char>(c);
    } else {
      constexpr std::array hex = {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
      uri += '%';
      uri += hex[c >> 4];
      uri += hex[c & 15];
    }
  }
  return uri + std::string(options);
}

// Without locks of its own: a connection belongs to one thread.
std::unique_ptr<SqliteConnection> openFile(const std::string& name, int flags) {
  sqlite3* raw = nullptr;
  const int result = sqlite3_open_v2(name.c_str(), &raw,
                                     flags | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
  auto connection = std::make_unique<SqliteConnection>(raw);
  if (result != SQLITE_OK) throw sqliteError(result, raw == nullptr ? "out of memory" : sqlite3_errmsg(raw));
  constexpr int busyMilliseconds = 5000;
  sqlite3_busy_timeout(raw, busyMilliseconds);
  connection->run("PRAGMA trusted_schema = OFF");
  // A page of a damaged file is looked at before it is used; costs next to nothing.
  connection->run("PRAGMA cell_size_check = ON");
  // As in the other database; account flags are tested with LIKE.
  connection->run("PRAGMA case_sensitive_like = ON");
  return connection;
}

// As far as the first page, so that what is no database is found out here.
std::unique_ptr<SqliteConnection> openAndLook(const std::string& path, Access access) {
  auto connection = openFile(uriOf(path, ""), SQLITE_OPEN_READWRITE);
  connection->run(access == Access::read ? "PRAGMA query_only = ON" : "PRAGMA synchronous = FULL");
  connection->run("SELECT 1 FROM sqlite_master LIMIT 1");
  return connection;
}

// The file is opened as if for writing even for reading alone, because only such a connection can clear away the work
// files of WAL mode when it closes; the database then refuses every write. Where the folder cannot be written, a ledger
// in WAL mode that nobody has open is read as it stands.
std::unique_ptr<SqliteConnection> openThere(const std::string& path, Access access) {
  try {
    return openAndLook(path, access);
  } catch (const DbError& error) {
    const bool noRight = error.kind() == DbError::Kind::notFound || error.kind() == DbError::Kind::denied;
    if (!noRight || access == Access::keeper || std::filesystem::exists(path + "-wal")) throw;
  }
  auto connection = openFile(uriOf(path, "?immutable=1"), SQLITE_OPEN_READONLY);
  connection->run("SELECT 1 FROM sqlite_master LIMIT 1");
  return connection;
}

}  // namespace

std::unique_ptr<Connection> openSqlite(const std::string& path, Access access) {
  requireFile(path);
  try {
    return openThere(path, access);
  } catch (const DbError& error) {
    throw openingError(path, error);
  }
}

void restrictSqliteToReports(Connection& connection) {
  sqlite3_set_authorizer(dynamic_cast<SqliteConnection&>(connection).handle(), authorizeReport, nullptr);
}

std::unique_ptr<Connection> createSqlite(const std::string& path) {
  try {
    auto connection = openFile(uriOf(path, ""), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    connection->run("PRAGMA journal_mode = WAL");
    connection->run("PRAGMA synchronous = FULL");
    return connection;
  } catch (const DbError& error) {
    throw creatingError(path, error);
  }
}

}  // namespace tz
