#include "support/terminal_run.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace tz::test {
namespace {

constexpr int patience = 10'000;  // milliseconds

// The shell's part: starts the program as its foreground job, tells its number and then each of its states.
[[noreturn]] void runAsShell(std::vector<char*>& words, int states) {
  std::signal(SIGTTOU, SIG_IGN);
  const pid_t program = ::fork();
  if (program == 0) {
    ::setpgid(0, 0);
    ::tcsetpgrp(STDIN_FILENO, ::getpid());
    std::signal(SIGTTOU, SIG_DFL);
    ::execv(words.front(), words.data());
    ::_exit(127);
  }
  (void)!::write(states, &program, sizeof program);
  for (int status = 0; ::waitpid(program, &status, WUNTRACED) == program;) {
    (void)!::write(states, &status, sizeof status);
    if (!WIFSTOPPED(status)) break;
  }
  // The terminal stays until the test has read what it shows.
  for (;;) ::pause();
}

}  // namespace

TerminalRun::TerminalRun(const std::vector<std::string>& arguments, const std::vector<std::string>& settings) {
  std::vector<std::string> texts = {TZ_PROGRAM};
  texts.insert(texts.end(), arguments.begin(), arguments.end());
  std::vector<char*> words;
  for (auto& text : texts) words.push_back(text.data());
  words.push_back(nullptr);
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const winsize size{.ws_row = 50, .ws_col = 200, .ws_xpixel = 0, .ws_ypixel = 0};
  shell_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
  if (shell_ < 0) throw std::runtime_error("no pseudo-terminal");
  if (shell_ == 0) {
    ::close(ends[0]);
    for (const auto& setting : settings) ::putenv(const_cast<char*>(setting.c_str()));  // NOLINT: it lives long enough
    runAsShell(words, ends[1]);
  }
  ::close(ends[1]);
  states_ = ends[0];
  if (::read(states_, &program_, sizeof program_) != sizeof program_) throw std::runtime_error("the program is lost");
}

TerminalRun::~TerminalRun() {
  ::kill(program_, SIGKILL);
  ::kill(shell_, SIGKILL);
  ::waitpid(shell_, nullptr, 0);
  ::close(terminal_);
  ::close(states_);
}

bool TerminalRun::readMore(int milliseconds) {
  pollfd input{.fd = terminal_, .events = POLLIN, .revents = 0};
  if (::poll(&input, 1, milliseconds) <= 0) return false;
  std::array<char, 4096> buffer{};
  const ssize_t size = ::read(terminal_, buffer.data(), buffer.size());
  if (size <= 0) return false;
  shown_.append(buffer.data(), static_cast<std::size_t>(size));
  std::erase(shown_, '\r');
  return true;
}

bool TerminalRun::await(const std::string& text) {
  for (;;) {
    const auto found = shown_.find(text, awaited_);
    if (found != std::string::npos) {
      awaited_ = found + text.size();
      return true;
    }
    if (!readMore(patience)) return false;
  }
}

void TerminalRun::type(const std::string& text) const { (void)!::write(terminal_, text.data(), text.size()); }

bool TerminalRun::echoes() const {
  termios now{};
  ::tcgetattr(terminal_, &now);
  return (now.c_lflag & static_cast<tcflag_t>(ECHO)) != 0;
}

void TerminalRun::send(int signal) const { ::kill(program_, signal); }

int TerminalRun::nextState() {
  for (int waited = 0; waited < patience;) {
    pollfd state{.fd = states_, .events = POLLIN, .revents = 0};
    if (::poll(&state, 1, 0) > 0) {
      int status = 0;
      return ::read(states_, &status, sizeof status) == sizeof status ? status : -1;
    }
    // A program that shows much must be read while it is waited for.
    constexpr int step = 20;
    if (!readMore(step)) waited += step;
  }
  return -1;
}

std::string TerminalRun::shown() {
  while (readMore(0)) {
  }
  return shown_;
}

}  // namespace tz::test
