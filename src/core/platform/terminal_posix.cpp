#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/platform/terminal.h"
#include "core/platform/write_posix.h"

extern char** environ;

namespace tz::platform {
namespace {

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
    if (error != 0 && error != EPIPE) failToWrite(name, error);
    return error == 0;
  };
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

void showOutput(const Producer& produce) {
  const std::string pager = isTerminal() ? pagerCommand() : "";
  if (!pager.empty()) {
    if (writeToPager(pager, produce)) return;
    std::fprintf(stderr, "分页程序“%s”没有运行成功，改为直接输出\n", pager.c_str());
  }
  writeToStandardOutput(produce);
}

}  // namespace tz::platform
