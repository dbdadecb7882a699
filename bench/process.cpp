#include "bench/process.h"

#include <algorithm>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tz::bench {
namespace {

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

[[noreturn]] void become(const Command& command, const std::string& input) {
  const int nothing = ::open("/dev/null", O_RDWR);
  ::dup2(input.empty() ? nothing : ::open(input.c_str(), O_RDONLY), STDIN_FILENO);
  ::dup2(nothing, STDOUT_FILENO);
  auto words = command;
  std::vector<char*> arguments;
  for (auto& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  ::execvp(arguments.front(), arguments.data());
  ::_exit(127);
}

}  // namespace

Usage run(const Command& command, const std::string& input) {
  const pid_t child = ::fork();
  if (child == 0) become(command, input);
  int status = 0;
  rusage used{};
  ::wait4(child, &status, 0, &used);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error(command.front() + " failed");
  constexpr double kibPerMib = 1024;
  return {seconds(used.ru_utime) + seconds(used.ru_stime), static_cast<double>(used.ru_maxrss) / kibPerMib};
}

Ratio compare(const Command& ours, const Command& theirs, int pairs) {
  run(ours);  // both once to warm up
  run(theirs);
  std::vector<double> ratios;
  Ratio result;
  for (int pair = 0; pair < pairs; ++pair) {
    const auto mine = run(ours);
    const auto other = run(theirs);
    ratios.push_back(mine.cpuSeconds / other.cpuSeconds);
    result.peakMiB = std::max(result.peakMiB, mine.peakMiB);
  }
  std::ranges::sort(ratios);
  result.median = ratios[ratios.size() / 2];
  result.least = ratios.front();
  result.greatest = ratios.back();
  return result;
}

}  // namespace tz::bench
