// Runs the command line as its users do, in a process of its own and without a shell.
#pragma once

#include <string>
#include <vector>

namespace tz::test {

struct ProgramRun {
  int status = -1;  // exit status; -1 when a signal ended it
  std::string out, err;
};

// `settings` ("NAME=value") are added to the environment; standard input is empty, and there is no terminal.
[[nodiscard]] ProgramRun runProgram(const std::vector<std::string>& arguments,
                                    const std::vector<std::string>& settings = {});
// Any other program in the same way; the first word is its name.
[[nodiscard]] ProgramRun runCommand(std::vector<std::string> words, const std::vector<std::string>& settings = {});

// What a program said, line by line.
[[nodiscard]] std::vector<std::string> linesOf(const std::string& text);

}  // namespace tz::test
