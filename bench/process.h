// Whole processes, timed by the operating system's own account: CPU seconds (user and system) and peak memory.
#pragma once

#include <string>
#include <vector>

namespace tz::bench {

using Command = std::vector<std::string>;

struct Usage {
  double cpuSeconds = 0;
  double peakMiB = 0;
};

// Runs a command with its output thrown away, or standard input from a file; throws when it does not end with 0.
Usage run(const Command& command, const std::string& input = {});

// A PostgreSQL server of this machine: what its processes work for a client counts as the client's own. The system
// tells it in hundredths of a second, once a process has ended, so short work is taken several times over.
class Server {
 public:
  // The one that listens on a socket in the folder that the address names, and that serves nobody yet.
  explicit Server(const std::string& address);
  // Waits until the processes that served clients have ended.
  void settle() const;
  [[nodiscard]] double cpuSeconds() const;

 private:
  [[nodiscard]] std::size_t processes() const;

  std::string place_;  // under /proc
  std::string id_;
  std::size_t idle_ = 0;
};

// The address of another database of that server.
[[nodiscard]] std::string databaseOf(const std::string& server, const std::string& name);

struct Sampling {
  int pairs = 0;
  int times = 1;  // that a command runs for one figure
  const Server* server = nullptr;
};

// The CPU of a command, and of the server for it; the peak is the command's.
Usage sample(const Command& command, const Sampling& how);

// CPU of one command over that of another, each run in turn; the median of the pairs.
struct Ratio {
  double median = 0;
  double least = 0;
  double greatest = 0;
  double peakMiB = 0;  // of the first command, the greatest
};
Ratio compare(const Command& ours, const Command& theirs, const Sampling& how);

}  // namespace tz::bench
