#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "core/platform/standard_streams.h"

namespace tz::platform {

void openClosedStandardStreams() {
  for (int handle = STDIN_FILENO; handle <= STDERR_FILENO; ++handle) {
    if (::fcntl(handle, F_GETFD) >= 0 || errno != EBADF) continue;
    // The lowest number that is free is this one. For reading only: what is written there is not silently lost.
    if (::open("/dev/null", O_RDONLY) != handle) std::abort();
  }
}

void failOnBrokenWrites() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

std::optional<std::string> takeVariable(const char* name) {
  char* value = std::getenv(name);
  if (value == nullptr) return std::nullopt;
  std::string taken = value;
  ::explicit_bzero(value, taken.size());  // the process list shows a process its own user's environment
  ::unsetenv(name);
  return taken;
}

void giveVariable(const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); }

}  // namespace tz::platform
