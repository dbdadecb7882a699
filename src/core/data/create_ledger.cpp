#include "core/data/create_ledger.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <unistd.h>

#include "core/data/backends.h"
#include "core/data/schema.h"
#include "core/data/sqlite_file.h"
#include "core/platform/error_text.h"
#include "core/platform/unfinished_files.h"

namespace tz {
namespace {

namespace fs = std::filesystem;

void build(Connection& connection, bool server, const std::function<void(Connection&)>& fill) {
  Transaction transaction(connection, Transaction::Purpose::writing);
  createTables(connection);
  fill(connection);
  createIndexes(connection);
  if (server) grantPostgresReportWrites(connection);
  transaction.commit();
}

[[noreturn]] void fail(const std::string& path, int error) {
  const bool full = error == ENOSPC || error == EDQUOT;
  const bool noRight = error == EACCES || error == EPERM || error == EROFS;
  throw DbError(full      ? DbError::Kind::full
                : noRight ? DbError::Kind::denied
                          : DbError::Kind::disk,
                path + "：" + platform::errorText(error));
}

// Neither a ledger nor what SQLite would take for a part of one.
void requireFreePlace(const std::string& target) {
  std::error_code ignored;
  if (fs::symlink_status(target, ignored).type() != fs::file_type::not_found) {
    throw DbError(DbError::Kind::duplicate, "the file is there already: " + target);
  }
  const auto beside = fileBeside(target);
  if (beside.empty()) return;
  throw DbError(DbError::Kind::foreignLog, beside + ": it was left by a ledger that stood here before");
}

// A file under a name of its own beside its place until it is complete.
class WorkFile {
 public:
  explicit WorkFile(const std::string& target) : target_(target) {
    const auto folder = fs::path(target).parent_path();
    if (!folder.empty() && !fs::is_directory(folder)) {
      throw DbError(DbError::Kind::notFound, "no such folder: " + folder.string());
    }
    for (int number = 1; !unfinished_; ++number) {
      path_ = (folder / (".tz-" + std::to_string(::getpid()) + "-" + std::to_string(number) + ".tmp")).string();
      if (!fileBeside(path_).empty()) continue;
      const platform::HeldSignals held;
      const int handle = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (handle < 0 && errno == EEXIST) continue;
      if (handle < 0) fail(target, errno);
      unfinished_.emplace(path_);
      ::close(handle);
    }
  }
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;
  ~WorkFile() {
    if (!placed_) ::unlink(path_.c_str());
  }

  [[nodiscard]] const std::string& path() const { return path_; }
  void putInPlace() {
    requireFreePlace(target_);
    const int error = platform::putInFreePlace(path_, target_);
    placed_ = error == 0;
    if (placed_) return;
    if (error == EEXIST) requireFreePlace(target_);
    if (!fs::exists(path_)) ::unlink(target_.c_str());  // it is there, but its name may not last
    fail(target_, error);
  }

 private:
  std::string target_;
  std::string path_;
  std::optional<platform::UnfinishedFile> unfinished_;
  bool placed_ = false;
};

}  // namespace

void createLedger(const std::string& address, const std::function<void(Connection&)>& fill) {
  if (isServerAddress(address)) {
    const auto connection = openEmpty(address);
    build(*connection, true, fill);
    return;
  }
  requireFreePlace(address);
  WorkFile file(address);
  auto connection = createSqlite(file.path());
  build(*connection, false, fill);
  finishSqlite(std::move(connection), file.path());
  file.putInPlace();
}

}  // namespace tz
