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

// CPU of one command over that of another, each run in turn; the median of the pairs.
struct Ratio {
  double median = 0;
  double least = 0;
  double greatest = 0;
  double peakMiB = 0;  // of the first command, the greatest
};
Ratio compare(const Command& ours, const Command& theirs, int pairs);

}  // namespace tz::bench
