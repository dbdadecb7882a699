#include "support/run_program.h"

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tz::test {
namespace {

// Output goes into a file without a name, so that two streams need no simultaneous reading.
class Capture {
 public:
  Capture() : file_(std::tmpfile(), &std::fclose) {
    if (file_ == nullptr) throw std::runtime_error("no temporary file for a program's output");
  }
  [[nodiscard]] int descriptor() const { return fileno(file_.get()); }
  [[nodiscard]] std::string text() const {
    std::rewind(file_.get());
    std::string text;
    char buffer[4096];
    while (const auto size = std::fread(buffer, 1, sizeof buffer, file_.get())) text.append(buffer, size);
    return text;
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> all;
  for (auto& text : texts) all.push_back(text.data());
  all.push_back(nullptr);
  return all;
}

}  // namespace

ProgramRun runProgram(const std::vector<std::string>& arguments, const std::vector<std::string>& settings) {
  std::vector<std::string> words = {TZ_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return runCommand(words, settings);
}

ProgramRun runCommand(std::vector<std::string> words, const std::vector<std::string>& settings) {
  // The first of two equal names counts, so the settings come before what is there.
  std::vector<std::string> environment = settings;
  for (char** entry = environ; *entry != nullptr; ++entry) environment.emplace_back(*entry);

  const Capture out;
  const Capture err;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, out.descriptor(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err.descriptor(), STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);  // no terminal to ask at
  pid_t process = 0;
  const int failure = posix_spawnp(&process, words.front().c_str(), &actions, &attributes, pointers(words).data(),
                                   pointers(environment).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw std::runtime_error("cannot start " + words.front());

  int status = 0;
  if (waitpid(process, &status, 0) != process) throw std::runtime_error("lost sight of " + words.front());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out.text(), err.text()};
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace tz::test
