// A disk that is full, for programs that are started meanwhile.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tz::test {

// No file may grow beyond the limit while this stands: the disk is full for the programs that are started.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit tight{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }

 private:
  rlimit before_{};
  void (*signal_)(int);
};

}  // namespace tz::test
