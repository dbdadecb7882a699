#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include "core/platform/libraries.h"

namespace tz::platform {

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

}  // namespace tz::platform
