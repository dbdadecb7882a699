#include "core/data/sqlite_errors.h"

#include <fcntl.h>
#include <filesystem>
#include <sqlite3.h>
#include <system_error>
#include <unistd.h>

namespace tz {
namespace {

namespace fs = std::filesystem;
using FailureKind = DbError::Kind;

// SQLite has one code for all that is wrong with a statement.
FailureKind kindOfStatementError(std::string_view message) {
  if (message.starts_with("no such table") || message.starts_with("no such column")) return FailureKind::incomplete;
  // From the functions that turn cells of another type.
  if (message.starts_with("不是")) return FailureKind::otherType;
  return message.starts_with("unsupported file format") ? FailureKind::newer : FailureKind::other;
}

FailureKind kindOf(int code, std::string_view message) {
  switch (code & 0xff) {
    case SQLITE_ERROR:
      return kindOfStatementError(message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return FailureKind::locked;
    case SQLITE_CORRUPT:
      return FailureKind::damaged;
    case SQLITE_NOTADB:
      return FailureKind::notALedger;
    case SQLITE_FULL:
      return FailureKind::full;
    case SQLITE_IOERR:
      return FailureKind::disk;
    case SQLITE_AUTH:
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return FailureKind::denied;
    case SQLITE_CANTOPEN:
      return FailureKind::notFound;
    case SQLITE_CONSTRAINT:
      if (code == SQLITE_CONSTRAINT_TRIGGER) return FailureKind::denied;
      return code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY ? FailureKind::duplicate
                                                                                      : FailureKind::other;
    default:
      return FailureKind::other;
  }
}

// A file that SQLite does not take for a database although it begins like one: its format is newer, or it is broken.
DbError notADatabase(const std::string& path, const std::string& head, const std::string& message) {
  constexpr std::string_view magic("SQLite format 3\0", 16);
  constexpr std::size_t readVersion = 19;
  constexpr unsigned char knownVersion = 2;
  if (!head.starts_with(magic)) return {FailureKind::notALedger, path + ": " + message};
  const bool newer = head.size() > readVersion && static_cast<unsigned char>(head[readVersion]) > knownVersion;
  return {newer ? FailureKind::newer : FailureKind::damaged,
          path + ": " + (newer ? "a newer SQLite file format" : message)};
}

}  // namespace

DbError sqliteError(int code, const std::string& message) { return {kindOf(code, message), message}; }

void requireFile(const std::string& path) {
  std::error_code error;
  const auto type = fs::status(path, error).type();
  if (type == fs::file_type::regular) return;
  if (type == fs::file_type::not_found) throw DbError(FailureKind::notFound, "no such file: " + path);
  if (type == fs::file_type::none) throw DbError(FailureKind::unreadable, path + ": " + error.message());
  throw DbError(FailureKind::notALedger, (type == fs::file_type::directory ? "a folder: " : "not a file: ") + path);
}

DbError openingError(const std::string& path, const std::string& head, const DbError& error) {
  if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
    return {FailureKind::unreadable, "the file may not be read: " + path};
  const bool explained = error.kind() == FailureKind::foreignLog || error.kind() == FailureKind::changed ||
                         error.kind() == FailureKind::unreadable;
  if (explained) return error;
  std::error_code ignored;
  if (error.kind() == FailureKind::notFound || error.kind() == FailureKind::denied) {
    const bool unfinished = fs::exists(path + "-wal", ignored);
    return {FailureKind::unreadable,
            path + (unfinished ? ": its last changes lie in a file -wal beside it, and the folder may not be written"
                               : ": its folder may not be written")};
  }
  if (error.kind() == FailureKind::notALedger) return notADatabase(path, head, error.what());
  return {error.kind(), path + ": " + error.what()};
}

DbError creatingError(const std::string& path, const DbError& error) {
  if (error.kind() != FailureKind::notFound) return error;
  std::error_code ignored;
  const auto folder = fs::absolute(path, ignored).parent_path();
  if (!fs::is_directory(folder, ignored)) return {FailureKind::notFound, "no such folder: " + folder.string()};
  return {FailureKind::denied, "the folder may not be written: " + folder.string()};
}

}  // namespace tz
