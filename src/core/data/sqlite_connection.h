// One connection to a ledger file. How the file is opened, and what lies beside it, is in sqlite_open.cpp.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/data/connection.h"
#include "core/data/sqlite_file.h"

struct sqlite3;

namespace tz {

class SqliteConnection final : public Connection {
 public:
  // How to come by a connection anew, for a ledger that is read as it stands and no longer does.
  using Opener = std::function<std::unique_ptr<SqliteConnection>()>;

  explicit SqliteConnection(sqlite3* db);
  ~SqliteConnection() override;

  std::unique_ptr<Cursor> query(const Sql& sql) override;
  std::int64_t execute(const Sql& sql) override;
  std::unique_ptr<RowWriter> insertInto(std::string_view table, std::span<const std::string> columns) override;
  std::int64_t newIds(std::string_view table, std::int64_t count) override;
  const Dialect& dialect() const override;
  bool alive() override;
  void setCancelCheck(bool (*cancelled)(void*), void* context) override;

  void run(const char* text);
  [[nodiscard]] sqlite3* handle() const { return db_; }
  // From here on every reading ends by making sure that the ledger stood still.
  void readAsItStands(std::shared_ptr<const StandingLedger> standing, Opener reopen);
  // What such a connection goes through once more when it had to open the ledger anew.
  void prepareWhenReopened(std::function<void(Connection&)> prepare);
  // Closes it and makes sure of it: nothing may be under way any more.
  void close();

 protected:
  void begin(bool writing) override;
  void commit() override;
  void rollback() noexcept override;

 private:
  [[nodiscard]] bool inTransaction() const;
  void reopenIfChanged();
  void installCancelCheck();
  // Waits for another's lock: some seconds, and not after the person has stopped the work.
  static int waitForLock(void* self, int attempt);

  sqlite3* db_;
  std::shared_ptr<const StandingLedger> standing_;
  Opener reopen_;
  std::function<void(Connection&)> prepare_;
  bool (*cancelled_)(void*) = nullptr;
  void* context_ = nullptr;
};

// Opens a file and nothing else: what lies beside it is not looked at before the first statement that reads. `options`
// follow the name ("?immutable=1"). Without locks between threads: a connection belongs to one.
[[nodiscard]] std::unique_ptr<SqliteConnection> openSqliteFile(const std::string& path, std::string_view options,
                                                               int flags);

}  // namespace tz
