#include "data/create_ledger.h"

#include <filesystem>

#include "data/backends.h"
#include "data/schema.h"

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

// A file under a temporary name beside its place until it is complete.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& target) : target_(target), path_(target + ".part") { remove(); }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  ~UnfinishedFile() { remove(); }

  [[nodiscard]] const std::string& path() const { return path_; }
  void finish() { fs::rename(path_, target_); }

 private:
  void remove() {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(path_ + suffix, ignored);
  }

  std::string target_;
  std::string path_;
};

}  // namespace

void createLedger(const std::string& address, const std::function<void(Connection&)>& fill) {
  if (isServerAddress(address)) {
    const auto connection = openEmpty(address);
    build(*connection, true, fill);
    return;
  }
  if (fs::exists(address)) throw DbError(DbError::Kind::duplicate, "the file is there already: " + address);
  UnfinishedFile file(address);
  {
    const auto connection = openEmpty(file.path());
    build(*connection, false, fill);
  }
  file.finish();
}

}  // namespace tz
