// The command line at a terminal of its own, a pseudo-terminal, as the foreground job of a shell: what is typed there
// reaches it, Ctrl+C and Ctrl+Z included, and what it shows can be read.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace tz::test {

class TerminalRun {
 public:
  // `settings` as for runProgram().
  explicit TerminalRun(const std::vector<std::string>& arguments, const std::vector<std::string>& settings = {});
  TerminalRun(const TerminalRun&) = delete;
  TerminalRun& operator=(const TerminalRun&) = delete;
  ~TerminalRun();

  // Waits until this was shown behind what was awaited before; false when it does not come.
  bool await(const std::string& text);
  void type(const std::string& text) const;
  // Whether the terminal shows what is typed.
  [[nodiscard]] bool echoes() const;
  void send(int signal) const;
  // How it ended or stopped, as waitpid() tells it; -1 when it does neither.
  int nextState();
  // Everything shown so far, without carriage returns; behind an end all of it.
  std::string shown();

 private:
  bool readMore(int milliseconds);

  int terminal_ = -1;
  int states_ = -1;  // a pipe with one status after the other
  pid_t shell_ = -1;
  pid_t program_ = -1;
  std::string shown_;
  std::size_t awaited_ = 0;
};

}  // namespace tz::test
