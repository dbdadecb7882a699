// Makes ledger files: quickly, then lastingly.
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <sqlite3.h>
#include <unistd.h>

#include "core/data/backends.h"
#include "core/data/sqlite_connection.h"
#include "core/data/sqlite_errors.h"
#include "core/platform/error_text.h"

namespace tz {
namespace {

[[noreturn]] void failOnDisk(const std::string& path, int error) {
  const bool full = error == ENOSPC || error == EDQUOT;
  throw DbError(full ? DbError::Kind::full : DbError::Kind::disk, path + "：" + platform::errorText(error));
}

std::string asFigure(std::uint32_t value) {
  std::string bytes;
  for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(value >> shift);
  return bytes;
}

class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : path_(path), handle_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
    if (handle_ < 0) failOnDisk(path_, errno);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (handle_ >= 0) ::close(handle_);
  }
  void write(const std::string& bytes, off_t place) const {
    const ssize_t written = ::pwrite(handle_, bytes.data(), bytes.size(), place);
    if (written != static_cast<ssize_t>(bytes.size())) failOnDisk(path_, written < 0 ? errno : ENOSPC);
  }
  void sync() const {
    if (::fsync(handle_) != 0) failOnDisk(path_, errno);
  }

 private:
  std::string path_;
  int handle_;
};

// At work the ledger keeps a log. Its counter of changes starts anywhere, so that a log of another ledger does not
// begin where this one ends. (SQLite's own way to the log would make files beside this one.) By the mark a desktop
// tells a ledger from other databases.
void setHead(const OpenFile& file) {
  constexpr off_t versionsPlace = 18;
  constexpr off_t counterPlace = 24;
  constexpr off_t markPlace = 68;
  constexpr off_t countedPlace = 92;
  std::random_device random;
  const auto counter = asFigure(static_cast<std::uint32_t>(random()) >> 1U | 1U);
  file.write("\2\2", versionsPlace);
  file.write(counter, counterPlace);
  file.write("TzAL", markPlace);
  file.write(counter, countedPlace);
}

// What a file must still hold when it is read anew.
struct Contents {
  std::int64_t pages = 0, bytesOfPage = 0, tables = 0;
  bool operator==(const Contents&) const = default;
};

std::int64_t figureOf(Connection& connection, const char* query) {
  const auto cursor = connection.query(query);
  return cursor->next() ? cursor->integer(0) : 0;
}

Contents contentsOf(Connection& connection) {
  return {figureOf(connection, "PRAGMA page_count"), figureOf(connection, "PRAGMA page_size"),
          figureOf(connection, "SELECT count(*) FROM sqlite_master")};
}

void requireAllOf(const Contents& built, const std::string& path) {
  const auto anew = openSqliteFile(path, "?immutable=1", SQLITE_OPEN_READONLY);
  const bool whole = contentsOf(*anew) == built && LedgerFile(anew->handle()).size() == built.pages * built.bytesOfPage;
  const auto look = anew->query("PRAGMA quick_check(1)");
  if (!whole || !look->next() || look->text(0) != "ok") {
    throw DbError(DbError::Kind::disk, path + ": what was written cannot be read back");
  }
}

}  // namespace

std::unique_ptr<Connection> createSqlite(const std::string& path) {
  try {
    auto connection = openSqliteFile(path, "", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    // Nobody else knows the file yet, and half of it is worth nothing: finishSqlite() makes it last.
    connection->run("PRAGMA locking_mode = EXCLUSIVE");
    connection->run("PRAGMA journal_mode = MEMORY");
    connection->run("PRAGMA synchronous = OFF");
    return connection;
  } catch (const DbError& error) {
    throw creatingError(path, error);
  }
}

void finishSqlite(std::unique_ptr<Connection> connection, const std::string& path) {
  const auto built = contentsOf(*connection);
  dynamic_cast<SqliteConnection&>(*connection).close();
  {
    const OpenFile file(path);
    setHead(file);
    file.sync();
  }
  requireAllOf(built, path);
}

}  // namespace tz
