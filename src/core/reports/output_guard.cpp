#include "core/reports/output_guard.h"

#include <filesystem>

#include "core/data/connection.h"
#include "core/platform/work_file.h"

namespace tz {
namespace {

namespace fs = std::filesystem;

// The same file on the disk, or the same name in the same folder where there is none yet.
bool isSame(const fs::path& one, const fs::path& other) {
  std::error_code none;
  if (fs::equivalent(one, other, none)) return true;
  if (fs::exists(one, none) || fs::exists(other, none)) return false;
  const auto folder = [](const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); };
  return one.filename() == other.filename() && fs::equivalent(folder(one), folder(other), none);
}

}  // namespace

std::string ledgerAsOutput(const std::string& target, const std::string& ledger) {
  if (target.empty() || isServerAddress(ledger)) return {};
  const fs::path place = platform::placeOf(target);
  // The database names the side files after the file that a link leads to.
  for (const std::string& file : {ledger, platform::placeOf(ledger)}) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
      if (!isSame(place, file + suffix)) continue;
      return "“" + target + "”是所查的帐套" + (*suffix == '\0' ? "" : "的附属文件") + "，不能用报表覆盖";
    }
  }
  return {};
}

}  // namespace tz
