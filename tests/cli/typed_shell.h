// An interactive shell at a pseudo-terminal, with the program's completion loaded: what is typed goes in key by key,
// Tab among it. In that shell the program's name only writes down its arguments; completion asks the real program.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "support/test_ledger.h"

namespace tz::test {

class TypedShell {
 public:
  // "bash", "zsh" or "fish"; starts in an empty folder.
  explicit TypedShell(const std::string& shell);
  TypedShell(const TypedShell&) = delete;
  TypedShell& operator=(const TypedShell&) = delete;
  ~TypedShell();

  // Types a line, which runs the program's name at its end; the arguments that it got.
  [[nodiscard]] std::vector<std::string> argumentsOf(const std::string& keys);
  // What has appeared on the screen so far.
  [[nodiscard]] const std::string& screen() const { return screen_; }
  // The names of the files that commands have left in the shell's folder.
  [[nodiscard]] std::vector<std::string> leftBehind() const;

 private:
  void start(const std::string& shell);
  // Reads the screen until the shell waits for its next line; false when it does not in time.
  [[nodiscard]] bool untilReady();

  TempFolder folder_;  // holds the set-up and the arguments
  TempFolder home_;    // where the shell stands
  pid_t process_ = -1;
  int terminal_ = -1;
  std::string screen_;
  std::size_t read_ = 0;  // of the screen, by untilReady
};

}  // namespace tz::test
