#include "cli/typed_shell.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/small_company.h"

namespace tz::test {
namespace {

constexpr std::string_view ready = "<ready>";

// What a shell reads before its first line; PROGRAM and OUT, the file for the arguments, are filled in.
const std::map<std::string, std::string> setUps = {{"bash", R"(
tzassistant() {
  if [ "$1" = completion ]; then "PROGRAM" "$@"; return; fi
  printf '%s\0' "$@" > "OUT.new"; mv "OUT.new" "OUT"
}
source <(tzassistant completion bash)
bind 'set enable-bracketed-paste off'
PS1='<re''ady>'
)"},
                                                   {"zsh", R"(
tzassistant() {
  if [[ $1 == completion ]]; then "PROGRAM" "$@"; return; fi
  printf '%s\0' "$@" > "OUT.new"; mv "OUT.new" "OUT"
}
autoload -Uz compinit && compinit -D -u
source <(tzassistant completion zsh)
unsetopt prompt_cr prompt_sp
PROMPT='<re''ady>'
)"},
                                                   {"fish", R"(
function tzassistant
  if test "$argv[1]" = completion
    "PROGRAM" $argv
  else
    printf '%s\0' $argv > "OUT.new"; mv "OUT.new" "OUT"
  end
end
source (tzassistant completion fish | psub)
function fish_prompt; printf '<re'; printf 'ady>'; end
function fish_greeting; end
)"}};

std::string replacedIn(std::string text, const std::string& name, const std::string& value) {
  for (auto place = text.find(name); place != std::string::npos; place = text.find(name, place + value.size())) {
    text.replace(place, name.size(), value);
  }
  return text;
}

}  // namespace

TypedShell::TypedShell(const std::string& shell) {
  std::ofstream(folder_.file(shell == "zsh" ? ".zshrc" : "rc"))
      << replacedIn(replacedIn(setUps.at(shell), "PROGRAM", TZ_PROGRAM), "OUT", folder_.file("out"));
  start(shell);
  if (!untilReady()) throw std::runtime_error(shell + " does not start:\n" + screen_);
}

TypedShell::~TypedShell() {
  ::kill(process_, SIGKILL);
  ::waitpid(process_, nullptr, 0);
  ::close(terminal_);
}

void TypedShell::start(const std::string& shell) {
  winsize size{60, 240, 0, 0};
  process_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
  if (process_ < 0) throw std::runtime_error("no pseudo-terminal");
  if (process_ > 0) return;
  const auto rc = folder_.file("rc");
  for (const auto& [name, value] : std::map<std::string, std::string>{{"HOME", home_.path()},
                                                                      {"ZDOTDIR", folder_.path()},
                                                                      {"XDG_CONFIG_HOME", folder_.file("config")},
                                                                      {"XDG_DATA_HOME", folder_.file("data")},
                                                                      {"LC_ALL", "C.UTF-8"},
                                                                      {"TERM", "xterm"}}) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }
  if (::chdir(home_.path().c_str()) != 0) ::_exit(126);
  const auto source = "source " + rc;
  if (shell == "bash") ::execlp("bash", "bash", "--rcfile", rc.c_str(), "-i", nullptr);
  if (shell == "zsh") ::execlp("zsh", "zsh", "-d", "-i", nullptr);
  ::execlp("fish", "fish", "--private", "-i", "--init-command", source.c_str(), nullptr);
  ::_exit(127);
}

bool TypedShell::untilReady() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (std::chrono::steady_clock::now() < end) {
    if (const auto place = screen_.find(ready, read_); place != std::string::npos) {
      read_ = place + ready.size();
      return true;
    }
    pollfd waited{terminal_, POLLIN, 0};
    if (::poll(&waited, 1, 1000) <= 0) continue;
    char buffer[4096];
    const auto size = ::read(terminal_, buffer, sizeof buffer);
    if (size <= 0) return false;
    screen_.append(buffer, static_cast<std::size_t>(size));
  }
  return false;
}

std::vector<std::string> TypedShell::argumentsOf(const std::string& keys) {
  const auto out = folder_.file("out");
  std::filesystem::remove(out);
  read_ = screen_.size();
  const auto typed = keys + "\r";
  if (::write(terminal_, typed.data(), typed.size()) != static_cast<ssize_t>(typed.size())) return {"cannot type"};
  // A shell may draw its prompt anew while it completes.
  while (!std::filesystem::exists(out)) {
    if (!untilReady()) return {"no answer"};
  }
  std::vector<std::string> arguments;
  std::ifstream file(out, std::ios::binary);
  for (std::string one; std::getline(file, one, '\0');) arguments.push_back(one);
  return arguments;
}

std::vector<std::string> TypedShell::leftBehind() const { return namesIn(home_.path()); }

}  // namespace tz::test
