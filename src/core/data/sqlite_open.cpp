// Opens ledger files: first whatever lies beside one is looked at, then it is decided how it may be read.
#include <array>
#include <cctype>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/data/backends.h"
#include "core/data/sqlite_connection.h"
#include "core/data/sqlite_errors.h"
#include "core/data/sqlite_functions.h"
#include "core/data/sqlite_log.h"

namespace tz {
namespace {

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

// Every cell of a page is looked at before the page is used, so that damage does not spread by what is written. Whoever
// only reads does without: each value is looked at when it is read, and a twentieth of a long report is saved.
void lookAtPages(SqliteConnection& connection) { connection.run("PRAGMA cell_size_check = ON"); }

// As far as the first page, so that what is no database is found out here.
void lookInside(SqliteConnection& connection) { connection.run("SELECT 1 FROM sqlite_master LIMIT 1"); }

DbError unreadable(const std::string& path, const char* why) { return {DbError::Kind::unreadable, path + why}; }

// Half of a change stands in the ledger, and SQLite would take it back by writing there and removing the journal.
void requireNoHotJournal(const LedgerFile& ledger) {
  if (!ledger.hasHotJournal()) return;
  throw unreadable(ledger.path(), ": a change was broken off, and its file -journal may not be used from here");
}

// Through the log that others keep, writing to nothing. As long as the caller holds the ledger it is not removed, so
// that none is made here either.
std::unique_ptr<SqliteConnection> openBesideOthers(const std::string& path) {
  if (!stateOf(path + indexSuffix).there) {
    throw unreadable(path, ": its last changes lie in a file -wal beside it, which may not be taken in from here");
  }
  auto connection = openSqliteFile(path, "?readonly_shm=1", SQLITE_OPEN_READONLY);
  lookInside(*connection);
  return connection;
}

// For those who would leave files of their own beside the ledger, or cannot make any: where nobody is at work the file
// is read as it stands, and otherwise through the files that are there.
std::unique_ptr<SqliteConnection> openWithoutTrace(const std::string& name) {
  const auto holding = openSqliteFile(name, "", SQLITE_OPEN_READONLY);
  const LedgerFile holder(holding->handle());
  holder.holdShared();
  const auto& path = holder.path();
  requireOwnLog(holder);
  const auto standing = std::make_shared<const StandingLedger>(path);
  if (hasLog(path)) return openBesideOthers(path);
  requireNoHotJournal(holder);
  auto connection = openSqliteFile(path, "?immutable=1", SQLITE_OPEN_READONLY);
  lookInside(*connection);
  connection->readAsItStands(standing, [name] {
    try {
      return openWithoutTrace(name);
    } catch (const DbError& error) {
      throw openingError(name, "", error);
    }
  });
  standing->requireUnchanged();
  return connection;
}

std::unique_ptr<SqliteConnection> openThere(const std::string& path, Access access, std::string& head) {
  auto connection = openSqliteFile(path, "", SQLITE_OPEN_READWRITE);
  const LedgerFile ledger(connection->handle());
  constexpr std::size_t headBytes = 100;
  head = ledger.read(0, headBytes);
  // SQLite would take an empty file for a new database, and remove what lies beside it.
  if (head.empty()) throw DbError(DbError::Kind::notALedger, "an empty file");
  requireOwnLog(ledger);
  const bool mayWrite = mayWriteLedger(ledger.path());
  const bool leavesNoTrace = !mayWrite || (access == Access::read && !leavesFilesToTheOwner(ledger.path()));
  if (ledger.keepsLog() && leavesNoTrace) {
    if (access == Access::keeper) throw unreadable(path, ": it or its folder may not be written");
    return openWithoutTrace(path);
  }
  if (!mayWrite) requireNoHotJournal(ledger);
  if (access == Access::read) {
    connection->run("PRAGMA query_only = ON");
  } else {
    connection->run("PRAGMA synchronous = FULL");
    lookAtPages(*connection);
  }
  lookInside(*connection);
  giveToTheGroup(ledger.path());
  return connection;
}

}  // namespace

std::unique_ptr<SqliteConnection> openSqliteFile(const std::string& path, std::string_view options, int flags) {
  // Nobody asks SQLite how much memory it uses; counting it takes a tenth of the opening.
  static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  (void)uncounted;
  sqlite3* raw = nullptr;
  const int result = sqlite3_open_v2(uriOf(path, options).c_str(), &raw,
                                     flags | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
  auto connection = std::make_unique<SqliteConnection>(raw);
  if (result != SQLITE_OK) throw sqliteError(result, raw == nullptr ? "out of memory" : sqlite3_errmsg(raw));
  connection->run("PRAGMA trusted_schema = OFF");
  // As in the other database; account flags are tested with LIKE.
  connection->run("PRAGMA case_sensitive_like = ON");
  addSqliteFunctions(raw);
  return connection;
}

std::unique_ptr<Connection> openSqlite(const std::string& path, Access access) {
  requireFile(path);
  std::string head;
  try {
    return openThere(path, access, head);
  } catch (const DbError& error) {
    throw openingError(path, head, error);
  }
}

}  // namespace tz
