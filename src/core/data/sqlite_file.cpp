#include "core/data/sqlite_file.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <sqlite3.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "core/data/sqlite_errors.h"

namespace tz {
namespace {

using namespace std::chrono_literals;

std::int64_t nanosecondsOf(const timespec& time) {
  constexpr std::int64_t perSecond = 1'000'000'000;
  return time.tv_sec * perSecond + time.tv_nsec;
}

std::int64_t now() {
  timespec time{};
  ::clock_gettime(CLOCK_REALTIME, &time);
  return nanosecondsOf(time);
}

// How long two changes of a file may carry the same time: a tick of the system, or what an older file system counts.
std::int64_t tickOf(const FileState& state) {
  constexpr std::int64_t second = 1'000'000'000;
  const bool wholeSeconds = state.written % second == 0 && state.touched % second == 0;
  return wholeSeconds ? 2 * second : second / 50;
}

std::string folderOf(const std::string& path) {
  const auto folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

bool hasJournal(const std::string& path) {
  const SideFile journal(path + journalSuffix);
  const auto first = journal.open() ? journal.read(0, 1) : "";
  return !first.empty() && first.front() != 0;
}

}  // namespace

std::uint32_t figureAt(std::string_view bytes, std::size_t place) {
  std::uint32_t figure = 0;
  if (bytes.size() < place + 4) return 0;
  for (const char byte : bytes.substr(place, 4)) figure = figure << 8 | static_cast<unsigned char>(byte);
  return figure;
}

LedgerFile::LedgerFile(sqlite3* db) : path_(sqlite3_db_filename(db, "main")) {
  sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
}

std::int64_t LedgerFile::size() const {
  sqlite3_int64 size = 0;
  return file_->pMethods->xFileSize(file_, &size) == SQLITE_OK ? size : 0;
}

std::string LedgerFile::read(std::int64_t from, std::size_t count) const {
  const std::int64_t left = std::max<std::int64_t>(size() - from, 0);
  std::string bytes(static_cast<std::size_t>(std::min(left, static_cast<std::int64_t>(count))), '\0');
  const int result = file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(bytes.size()), from);
  if (result != SQLITE_OK && result != SQLITE_IOERR_SHORT_READ) throw sqliteError(result, sqlite3_errstr(result));
  return bytes;
}

std::uint32_t LedgerFile::pageSize() const {
  constexpr std::size_t place = 16;
  const auto head = read(place, 4);
  const std::uint32_t size = figureAt(head, 0) >> 16;
  return size == 1 ? 65536 : size;
}

std::string LedgerFile::page(std::uint32_t number) const {
  const std::int64_t size = pageSize();
  return read(size * (static_cast<std::int64_t>(number) - 1), static_cast<std::size_t>(size));
}

bool LedgerFile::keepsLog() const {
  constexpr std::size_t writeVersion = 18;
  return read(writeVersion, 1) == "\2";
}

bool LedgerFile::hasHotJournal() const {
  int inUse = 0;
  return hasJournal(path_) && file_->pMethods->xCheckReservedLock(file_, &inUse) == SQLITE_OK && inUse == 0 &&
         hasJournal(path_);
}

void LedgerFile::holdShared() const {
  constexpr auto patience = 5s;
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    const int result = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED);
    if (result == SQLITE_OK) return;
    if ((result & 0xff) != SQLITE_BUSY || std::chrono::steady_clock::now() > end) {
      throw sqliteError(result, sqlite3_errstr(result));
    }
    std::this_thread::sleep_for(10ms);
  }
}

std::string fileBeside(const std::string& path) {
  for (const char* suffix : {logSuffix, journalSuffix, indexSuffix}) {
    struct stat there {};
    if (::lstat((path + suffix).c_str(), &there) == 0) return path + suffix;
  }
  return {};
}

bool hasLog(const std::string& path) {
  const auto log = stateOf(path + logSuffix);
  return log.there && (log.size > 0 || stateOf(path + indexSuffix).there);
}

SideFile::SideFile(const std::string& path) : handle_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}

SideFile::~SideFile() {
  if (handle_ >= 0) ::close(handle_);
}

std::int64_t SideFile::size() const {
  struct stat state {};
  return ::fstat(handle_, &state) == 0 ? state.st_size : 0;
}

std::string SideFile::read(std::int64_t from, std::size_t count) const {
  std::string bytes(count, '\0');
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = ::pread(handle_, bytes.data() + done, count - done, from + static_cast<std::int64_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return bytes;
}

FileState stateOf(const std::string& path) {
  struct stat state {};
  if (::stat(path.c_str(), &state) != 0) return {};
  return {true, state.st_dev, state.st_ino, state.st_size, nanosecondsOf(state.st_mtim), nanosecondsOf(state.st_ctim)};
}

StandingLedger::StandingLedger(std::string path) : path_(std::move(path)), seen_(stateOf(path_)) {
  const std::int64_t age = now() - std::max(seen_.written, seen_.touched);
  const std::int64_t tick = tickOf(seen_);
  if (age < 0 || age > tick) return;
  std::this_thread::sleep_for(std::chrono::nanoseconds(tick - age));
  seen_ = stateOf(path_);
}

void StandingLedger::requireUnchanged() const {
  if (stateOf(path_) == seen_) return;
  throw DbError(DbError::Kind::changed, path_ + ": somebody has written to it while it was read");
}

bool StandingLedger::stands() const { return stateOf(path_) == seen_ && !hasLog(path_); }

bool mayWriteLedger(const std::string& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 &&
         ::faccessat(AT_FDCWD, folderOf(path).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

bool leavesFilesToTheOwner(const std::string& path) {
  struct stat state {};
  return ::geteuid() == 0 || (::stat(path.c_str(), &state) == 0 && state.st_uid == ::geteuid());
}

void giveToTheGroup(const std::string& path) {
  struct stat ledger {};
  if (::stat(path.c_str(), &ledger) != 0) return;
  for (const char* suffix : {logSuffix, indexSuffix}) {
    struct stat state {};
    const auto name = path + suffix;
    if (::lstat(name.c_str(), &state) != 0 || state.st_uid != ::geteuid() || state.st_gid == ledger.st_gid) continue;
    [[maybe_unused]] const int refused = ::lchown(name.c_str(), static_cast<uid_t>(-1), ledger.st_gid);
  }
}

}  // namespace tz
