#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "core/platform/work_file.h"
#include "core/platform/write_posix.h"

namespace tz::platform {
namespace {

// A path of its own beside the target; what is found there already belongs to somebody else.
WorkFile createBeside(const std::string& target, mode_t mode) {
  static int number = 0;
  const std::filesystem::path folder = std::filesystem::path(target).parent_path();
  for (;;) {
    const std::string name = ".tz-" + std::to_string(::getpid()) + "-" + std::to_string(++number) + ".tmp";
    const std::string path = (folder / name).string();
    const HeldSignals held;
    const int handle = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (handle >= 0) return {target, path, handle, UnfinishedFile(path)};
    if (errno != EEXIST) failToWrite(target, errno);
  }
}

}  // namespace

std::string placeOf(const std::string& target) {
  constexpr int mostLinks = 40;
  std::filesystem::path place = target;
  std::error_code none;
  for (int links = 0; std::filesystem::is_symlink(place, none); ++links) {
    if (links == mostLinks) failToWrite(target, ELOOP);
    place = place.parent_path() / std::filesystem::read_symlink(place, none);
    if (none) failToWrite(target, none.value());
  }
  return place.string();
}

WorkFile openWorkFile(const std::string& target) {
  struct stat there {};
  if (::stat(target.c_str(), &there) != 0) {
    if (errno != ENOENT) failToWrite(target, errno);
    return createBeside(placeOf(target), 0666);
  }
  if (S_ISDIR(there.st_mode)) failToWrite(target, EISDIR);
  if (::access(target.c_str(), W_OK) != 0) failToWrite(target, errno);
  if (S_ISREG(there.st_mode)) {
    WorkFile file = createBeside(placeOf(target), 0600);
    ::fchmod(file.handle, there.st_mode & 07777);
    return file;
  }
  const int handle = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
  if (handle < 0) failToWrite(target, errno);
  return {target, target, handle, std::nullopt};
}

void writeTo(const WorkFile& file, std::string_view text) {
  const int error = writeAll(file.handle, text);
  if (error != 0) failToWrite(file.target, error);
}

void moveIntoPlace(WorkFile& file) {
  if (!file.direct() && ::fsync(file.handle) != 0) failToWrite(file.target, errno);
  const int handle = std::exchange(file.handle, -1);
  if (::close(handle) != 0) failToWrite(file.target, errno);
  if (file.direct()) return;
  if (const int error = putInPlace(file.path, file.target); error != 0) failToWrite(file.target, error);
  file.path = file.target;
}

void discard(WorkFile& file) noexcept {
  if (file.handle >= 0) ::close(std::exchange(file.handle, -1));
  if (!file.direct()) ::unlink(file.path.c_str());
}

}  // namespace tz::platform
