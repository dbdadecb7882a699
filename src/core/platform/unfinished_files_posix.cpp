#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <pthread.h>
#include <unistd.h>
#include <utility>

#include "core/platform/unfinished_files.h"

namespace tz::platform {
namespace {

// Every signal by which a process is ordinarily asked to end, or ended for something that it did.
constexpr std::array endingSignals = {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGXFSZ};

// What a signal handler may read: no locks, no memory that moves.
constexpr std::size_t maxFiles = 64;
std::array<std::atomic<char*>, maxFiles> files{};
static_assert(std::atomic<char*>::is_always_lock_free);

// The handler stands once: its disposition went back to the system's own before it was called.
void removeFiles(int signal) {
  const int error = errno;
  for (const auto& file : files) {
    const char* path = file.load();
    if (path != nullptr) ::unlink(path);
  }
  errno = error;
  ::raise(signal);
}

void watchSignals() {
  struct sigaction remove {};
  remove.sa_handler = removeFiles;
  remove.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : endingSignals) ::sigaddset(&remove.sa_mask, signal);
  for (const int signal : endingSignals) {
    struct sigaction before {};
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL) {
      ::sigaction(signal, &remove, nullptr);
    }
  }
}

}  // namespace

struct HeldSignals::Mask {
  sigset_t before;
};

HeldSignals::HeldSignals() : before_(new Mask) {
  sigset_t held;
  ::sigemptyset(&held);
  for (const int signal : endingSignals) ::sigaddset(&held, signal);
  ::pthread_sigmask(SIG_BLOCK, &held, &before_->before);
}

HeldSignals::~HeldSignals() {
  ::pthread_sigmask(SIG_SETMASK, &before_->before, nullptr);
  delete before_;
}

UnfinishedFile::UnfinishedFile(const std::string& path) : place_(-1) {
  static std::once_flag watched;
  std::call_once(watched, watchSignals);
  char* copy = ::strdup(path.c_str());
  for (std::size_t place = 0; place < maxFiles && copy != nullptr; ++place) {
    char* none = nullptr;
    if (!files.at(place).compare_exchange_strong(none, copy)) continue;
    place_ = static_cast<int>(place);
    return;
  }
  std::free(copy);  // more files than anybody makes at once: this one a signal leaves
}

UnfinishedFile::UnfinishedFile(UnfinishedFile&& other) noexcept : place_(std::exchange(other.place_, -1)) {}

UnfinishedFile::~UnfinishedFile() {
  if (place_ < 0) return;
  std::free(files.at(static_cast<std::size_t>(place_)).exchange(nullptr));
}

int putInPlace(const std::string& path, const std::string& target) {
  if (::rename(path.c_str(), target.c_str()) != 0) return errno;
  return syncFolderOf(target);
}

int putInFreePlace(const std::string& path, const std::string& target) {
  if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return syncFolderOf(target);
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system that cannot do it in one step: the place is taken by an empty file, which nobody else can have made.
  const int handle = ::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (handle < 0) return errno;
  ::close(handle);
  const UnfinishedFile taken(target);
  const int error = putInPlace(path, target);
  if (error != 0 && ::access(path.c_str(), F_OK) == 0) ::unlink(target.c_str());
  return error;
}

int syncFolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const int handle = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return errno == EACCES ? 0 : errno;  // a folder may be written without being read
  const int error = ::fsync(handle) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno;
  ::close(handle);
  return error;
}

}  // namespace tz::platform
