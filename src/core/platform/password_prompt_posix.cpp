#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include "core/platform/password_prompt.h"

namespace tz::platform {
namespace {

// By these a person or the system ends or stops a process that waits at a terminal. One in the background is stopped
// by the terminal itself, before it can change anything there.
constexpr std::array promptSignals = {SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGTSTP};

volatile std::sig_atomic_t arrived = 0;
void noteSignal(int signal) { arrived = signal; }

// While it lives, signals wait, so that none ends the process while the terminal hides what is typed; those that come
// are noted during awaitInput() alone.
class NotedSignals {
 public:
  NotedSignals() {
    arrived = 0;
    sigset_t held;
    ::sigemptyset(&held);
    for (const int signal : promptSignals) ::sigaddset(&held, signal);
    ::sigprocmask(SIG_BLOCK, &held, &mask_);
    struct sigaction note {};
    note.sa_handler = noteSignal;
    for (std::size_t i = 0; i < promptSignals.size(); ++i) {
      ::sigaction(promptSignals.at(i), nullptr, &before_.at(i));
      if (before_.at(i).sa_handler != SIG_IGN) ::sigaction(promptSignals.at(i), &note, nullptr);
    }
  }
  NotedSignals(const NotedSignals&) = delete;
  NotedSignals& operator=(const NotedSignals&) = delete;
  ~NotedSignals() {
    for (std::size_t i = 0; i < promptSignals.size(); ++i) ::sigaction(promptSignals.at(i), &before_.at(i), nullptr);
    ::sigprocmask(SIG_SETMASK, &mask_, nullptr);
  }

  // False when a signal arrived first.
  [[nodiscard]] bool awaitInput(int handle) const {
    pollfd input{.fd = handle, .events = POLLIN, .revents = 0};
    return ::ppoll(&input, 1, nullptr, &mask_) > 0;
  }

 private:
  sigset_t mask_{};
  std::array<struct sigaction, promptSignals.size()> before_{};
};

// A terminal that does not show what is typed, while it lives.
class SilentTerminal {
 public:
  explicit SilentTerminal(int handle) : handle_(handle) {
    ::tcgetattr(handle_, &before_);
    termios silent = before_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    ::tcsetattr(handle_, TCSAFLUSH, &silent);
  }
  SilentTerminal(const SilentTerminal&) = delete;
  SilentTerminal& operator=(const SilentTerminal&) = delete;
  ~SilentTerminal() {
    ::tcsetattr(handle_, TCSAFLUSH, &before_);
    (void)!::write(handle_, "\n", 1);
  }

 private:
  int handle_;
  termios before_{};
};

// A line without its end. Nothing when the terminal is gone or a signal arrived, which stands in `arrived`.
std::optional<std::string> askSilently(int terminal, const std::string& prompt) {
  const NotedSignals signals;
  const SilentTerminal silent(terminal);
  (void)!::write(terminal, prompt.data(), prompt.size());
  std::string line;
  for (char c = 0; signals.awaitInput(terminal);) {
    if (::read(terminal, &c, 1) != 1) break;
    if (c == '\n') return line;
    line += c;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> promptPassword(const std::string& prompt) {
  const int terminal = ::open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (terminal < 0) return std::nullopt;
  auto line = askSilently(terminal, prompt);
  while (!line && arrived != 0) {
    // The terminal is as it was: the signal does now what it would have done. Who comes back was stopped, and goes on.
    ::raise(arrived);
    line = askSilently(terminal, prompt);
  }
  ::close(terminal);
  return line;
}

}  // namespace tz::platform
