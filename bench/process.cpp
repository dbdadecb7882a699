#include "bench/process.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
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

Server::Server(const std::string& address) {
  const auto start = address.find("host=") + std::string_view("host=").size();
  std::ifstream lock(address.substr(start, address.find('&', start) - start) + "/data/postmaster.pid");
  if (!(lock >> id_)) throw std::runtime_error("no server of this machine at " + address);
  place_ = "/proc/" + id_;
  idle_ = processes();
}

std::size_t Server::processes() const {
  std::ifstream list(place_ + "/task/" + id_ + "/children");
  return static_cast<std::size_t>(std::distance(std::istream_iterator<int>(list), std::istream_iterator<int>()));
}

void Server::settle() const {
  while (processes() > idle_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

double Server::cpuSeconds() const {
  std::ifstream file(place_ + "/stat");
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  // Behind the name in parentheses stand 11 other figures, then the time of the process itself, then that of its ended
  // children, each in user and system.
  std::istringstream figures(text.substr(text.rfind(')') + 1));
  std::string other;
  constexpr int others = 13;
  for (int i = 0; i < others; ++i) figures >> other;
  double user = 0;
  double system = 0;
  figures >> user >> system;
  return (user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

std::string databaseOf(const std::string& server, const std::string& name) {
  const std::string maintenance = "/postgres";
  auto address = server;
  return address.replace(address.rfind(maintenance), maintenance.size(), "/" + name);
}

Usage sample(const Command& command, const Sampling& how) {
  Usage sum;
  if (how.server != nullptr) how.server->settle();
  const double before = how.server == nullptr ? 0 : how.server->cpuSeconds();
  for (int time = 0; time < how.times; ++time) {
    const auto used = run(command);
    sum.cpuSeconds += used.cpuSeconds;
    sum.peakMiB = std::max(sum.peakMiB, used.peakMiB);
    if (how.server != nullptr) how.server->settle();
  }
  if (how.server != nullptr) sum.cpuSeconds += how.server->cpuSeconds() - before;
  return sum;
}

Ratio compare(const Command& ours, const Command& theirs, const Sampling& how) {
  (void)sample(ours, how);  // both once to warm up
  (void)sample(theirs, how);
  std::vector<double> ratios;
  Ratio result;
  for (int pair = 0; pair < how.pairs; ++pair) {
    const auto mine = sample(ours, how);
    const auto other = sample(theirs, how);
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
