#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <iconv.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "grid/platform.h"
#include "system/error_text.h"

extern char** environ;

namespace tz::platform {
namespace {

[[noreturn]] void fail(const std::string& target, int error) {
  const bool noFolder = error == ENOENT || error == ENOTDIR;
  throw OutputError("无法写入“" + target + "”：" + (noFolder ? "文件夹不存在" : system::errorText(error)));
}

// Returns 0 or the error that ended the writing.
int writeAll(int handle, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(handle, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno == EAGAIN) {  // somebody else has made the pipe or terminal one that does not wait
      pollfd ready{.fd = handle, .events = POLLOUT, .revents = 0};
      (void)::poll(&ready, 1, -1);
      continue;
    }
    if (written < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

class IgnoredSignal {
 public:
  explicit IgnoredSignal(int signal) : signal_(signal) {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(signal_, &ignore, &before_);
  }
  IgnoredSignal(const IgnoredSignal&) = delete;
  IgnoredSignal& operator=(const IgnoredSignal&) = delete;
  ~IgnoredSignal() { ::sigaction(signal_, &before_, nullptr); }

 private:
  int signal_;
  struct sigaction before_ {};
};

// A sink for a file descriptor whose reader may leave.
Sink sinkTo(int handle, const char* name) {
  return [handle, name](std::string_view text) {
    const int error = writeAll(handle, text);
    if (error != 0 && error != EPIPE) fail(name, error);
    return error == 0;
  };
}

// A path of its own beside the target; what is found there already belongs to somebody else.
WorkFile createBeside(const std::string& target, mode_t mode) {
  static int number = 0;
  const std::filesystem::path folder = std::filesystem::path(target).parent_path();
  for (;;) {
    const std::string name = ".tz-" + std::to_string(::getpid()) + "-" + std::to_string(++number) + ".tmp";
    const std::string path = (folder / name).string();
    const system::HeldSignals held;
    const int handle = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (handle >= 0) return {target, path, handle, system::UnfinishedFile(path)};
    if (errno != EEXIST) fail(target, errno);
  }
}

// Starts a shell command that reads from a pipe; returns the pipe's end to write to, -1 when it could not start.
int startReader(const std::string& command, pid_t& child) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t defaults;
  ::sigemptyset(&defaults);
  ::sigaddset(&defaults, SIGPIPE);
  ::sigaddset(&defaults, SIGINT);
  ::sigaddset(&defaults, SIGXFSZ);
  ::posix_spawnattr_setsigdefault(&attributes, &defaults);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  std::string shell = "sh";
  std::string option = "-c";
  std::string text = command;
  std::array<char*, 4> arguments{shell.data(), option.data(), text.data(), nullptr};
  const int error = ::posix_spawn(&child, "/bin/sh", &actions, &attributes, arguments.data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[0]);
  if (error == 0) return ends[1];
  ::close(ends[1]);
  return -1;
}

// Waits for a child to end. Its exit status; a shell tells the signal that ended its command by 128 and the number.
int statusOf(pid_t child) {
  constexpr int bySignal = 128;
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : bySignal + WTERMSIG(status);
}

// Whether a pager ended as a person ends one; another end says that it could not show anything.
bool wasLeft(int status) {
  constexpr std::array byPerson = {0, 128 + SIGINT, 128 + SIGHUP, 128 + SIGQUIT, 128 + SIGTERM, 128 + SIGPIPE};
  return std::ranges::find(byPerson, status) != byPerson.end();
}

bool isOnPath(const char* program) {
  const char* path = std::getenv("PATH");
  std::string_view rest = path != nullptr ? path : "/usr/bin:/bin";
  for (;;) {
    const std::size_t end = rest.find(':');
    const std::string file = std::string(rest.substr(0, end)) + "/" + program;
    if (::access(file.c_str(), X_OK) == 0) return true;
    if (end == std::string_view::npos) return false;
    rest.remove_prefix(end + 1);
  }
}

}  // namespace

std::string placeOf(const std::string& target) {
  constexpr int mostLinks = 40;
  std::filesystem::path place = target;
  std::error_code none;
  for (int links = 0; std::filesystem::is_symlink(place, none); ++links) {
    if (links == mostLinks) fail(target, ELOOP);
    place = place.parent_path() / std::filesystem::read_symlink(place, none);
    if (none) fail(target, none.value());
  }
  return place.string();
}

WorkFile openWorkFile(const std::string& target) {
  struct stat there {};
  if (::stat(target.c_str(), &there) != 0) {
    if (errno != ENOENT) fail(target, errno);
    return createBeside(placeOf(target), 0666);
  }
  if (S_ISDIR(there.st_mode)) fail(target, EISDIR);
  if (::access(target.c_str(), W_OK) != 0) fail(target, errno);
  if (S_ISREG(there.st_mode)) {
    WorkFile file = createBeside(placeOf(target), 0600);
    ::fchmod(file.handle, there.st_mode & 07777);
    return file;
  }
  const int handle = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
  if (handle < 0) fail(target, errno);
  return {target, target, handle, std::nullopt};
}

void writeTo(const WorkFile& file, std::string_view text) {
  const int error = writeAll(file.handle, text);
  if (error != 0) fail(file.target, error);
}

void moveIntoPlace(WorkFile& file) {
  if (!file.direct() && ::fsync(file.handle) != 0) fail(file.target, errno);
  const int handle = std::exchange(file.handle, -1);
  if (::close(handle) != 0) fail(file.target, errno);
  if (file.direct()) return;
  if (const int error = system::putInPlace(file.path, file.target); error != 0) fail(file.target, error);
  file.path = file.target;
}

void discard(WorkFile& file) noexcept {
  if (file.handle >= 0) ::close(std::exchange(file.handle, -1));
  if (!file.direct()) ::unlink(file.path.c_str());
}

bool isTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

void writeToStandardOutput(const Producer& produce) {
  const IgnoredSignal noPipe(SIGPIPE);
  produce(sinkTo(STDOUT_FILENO, "标准输出"));
}

bool writeToPager(const std::string& command, const Producer& produce) {
  const IgnoredSignal noPipe(SIGPIPE);
  const IgnoredSignal noInterrupt(SIGINT);  // the pager's matter while it runs
  pid_t child = -1;
  const int handle = startReader(command, child);
  if (handle < 0) return false;
  try {
    produce(sinkTo(handle, command.c_str()));
  } catch (...) {
    ::close(handle);
    statusOf(child);
    throw;
  }
  ::close(handle);
  return wasLeft(statusOf(child));
}

std::string pagerCommand() {
  const char* own = std::getenv("PAGER");
  if (own != nullptr) return std::string_view(own) == "cat" ? "" : own;
  return isOnPath("less") ? "less -S -R -F" : "";
}

SilentErrors::SilentErrors() {
  std::fflush(stderr);
  const int nothing = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nothing < 0) return;
  errors_ = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (errors_ >= 0) ::dup2(nothing, STDERR_FILENO);
  ::close(nothing);
}

SilentErrors::~SilentErrors() {
  if (errors_ < 0) return;
  std::fflush(stderr);
  ::dup2(errors_, STDERR_FILENO);
  ::close(errors_);
}

void* loadLibrary(const char* name) { return ::dlopen(name, RTLD_NOW | RTLD_LOCAL); }

void* functionOf(void* library, const char* name) { return ::dlsym(library, name); }

std::string toGb18030(std::string_view text) {
  const iconv_t converter = ::iconv_open("GB18030", "UTF-8");
  if (converter == reinterpret_cast<iconv_t>(-1)) throw OutputError("本机没有 GB18030 编码");  // NOLINT
  std::string result(text.size() * 2 + 16, '\0');  // four bytes at most for what takes two or more in UTF-8
  char* from = const_cast<char*>(text.data());     // NOLINT: iconv does not write there
  std::size_t fromLeft = text.size();
  char* to = result.data();
  std::size_t toLeft = result.size();
  while (::iconv(converter, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1) && fromLeft > 0) {
    // A character that the code lacks; the rest of its bytes fail likewise and are skipped in silence.
    const bool lead = (static_cast<unsigned char>(*from) & 0xC0) != 0x80;
    if (lead) {
      *to++ = '?';
      --toLeft;
    }
    ++from;
    --fromLeft;
  }
  ::iconv_close(converter);
  result.resize(static_cast<std::size_t>(to - result.data()));
  return result;
}

}  // namespace tz::platform
