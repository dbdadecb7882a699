// The files of a SQLite ledger on the disk: what the ledger itself holds without any lock, the files that SQLite keeps
// beside it, who may make those, and whether a ledger stood still while it was read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_file;

namespace tz {

// Four bytes, the highest first, as SQLite writes figures; 0 where there are not as many.
[[nodiscard]] std::uint32_t figureAt(std::string_view bytes, std::size_t place);

// The ledger file of an open connection, read through the connection's own handle: any other handle on the file would
// drop the connection's locks when it is closed.
class LedgerFile {
 public:
  explicit LedgerFile(sqlite3* db);

  // The whole path, links followed: the files beside it are named after this one.
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::int64_t size() const;
  // As many bytes as there are of those asked for.
  [[nodiscard]] std::string read(std::int64_t from, std::size_t count) const;
  [[nodiscard]] std::uint32_t pageSize() const;
  [[nodiscard]] std::string page(std::uint32_t number) const;
  // By its header, whether changes go to a log (-wal) first.
  [[nodiscard]] bool keepsLog() const;
  // Whether a change was broken off, and a journal beside the ledger waits for somebody who may take it back.
  [[nodiscard]] bool hasHotJournal() const;
  // Nobody closes the ledger for good, and so removes its log, until the connection is closed. Throws DbError.
  void holdShared() const;

 private:
  sqlite3_file* file_ = nullptr;
  std::string path_;
};

inline constexpr const char* logSuffix = "-wal";
inline constexpr const char* indexSuffix = "-shm";
inline constexpr const char* journalSuffix = "-journal";
// The first of the files beside a ledger that is there; empty when none is.
[[nodiscard]] std::string fileBeside(const std::string& path);
// Whether changes may stand in a log beside the ledger, or somebody is about to write some there.
[[nodiscard]] bool hasLog(const std::string& path);

// One file, read at places; no ledger file, whose locks would suffer.
class SideFile {
 public:
  explicit SideFile(const std::string& path);
  SideFile(const SideFile&) = delete;
  SideFile& operator=(const SideFile&) = delete;
  ~SideFile();
  [[nodiscard]] bool open() const { return handle_ >= 0; }
  [[nodiscard]] std::int64_t size() const;
  [[nodiscard]] std::string read(std::int64_t from, std::size_t count) const;

 private:
  int handle_;
};

// What changes whenever a file is written, replaced or removed.
struct FileState {
  bool there = false;
  std::uint64_t device = 0, number = 0;
  std::int64_t size = 0, written = 0, touched = 0;  // bytes; nanoseconds since 1970

  bool operator==(const FileState&) const = default;
};
[[nodiscard]] FileState stateOf(const std::string& path);

// A ledger that is read without any lock, as it stands, because its reader may leave nothing beside it. What was read
// is one state of it as long as the file was not changed.
class StandingLedger {
 public:
  // Waits, by milliseconds, until every later change shows in the file's times.
  explicit StandingLedger(std::string path);
  // Throws DbError when the file was changed.
  void requireUnchanged() const;
  // Unchanged, and nobody has begun to work on it.
  [[nodiscard]] bool stands() const;

 private:
  std::string path_;
  FileState seen_;
};

// Whether the file and its folder may be written.
[[nodiscard]] bool mayWriteLedger(const std::string& path);
// Whether files that this process makes beside the ledger are its owner's: he works as such, or root hands them over.
[[nodiscard]] bool leavesFilesToTheOwner(const std::string& path);
// Gives the files beside the ledger that are this process's own to the ledger's group, as far as that is allowed.
void giveToTheGroup(const std::string& path);

}  // namespace tz
