#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

#include "cli/terminal.h"

namespace tz::cli {
namespace {

std::string readLine(int handle) {
  std::string line;
  for (char c = 0; ::read(handle, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

}  // namespace

std::filesystem::path programFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path(); }

void replaceProcess(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts = arguments;
  std::string name = program;
  std::vector<char*> list = {name.data()};
  for (auto& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  ::execv(program.c_str(), list.data());
  throw std::runtime_error("无法启动 " + program + "：" + std::strerror(errno));
}

std::optional<std::string> promptPassword(const std::string& prompt) {
  const int terminal = ::open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (terminal < 0) return std::nullopt;
  termios before{};
  ::tcgetattr(terminal, &before);
  termios silent = before;
  silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  ::tcsetattr(terminal, TCSAFLUSH, &silent);
  (void)!::write(terminal, prompt.data(), prompt.size());
  auto line = readLine(terminal);
  ::tcsetattr(terminal, TCSAFLUSH, &before);
  (void)!::write(terminal, "\n", 1);
  ::close(terminal);
  return line;
}

}  // namespace tz::cli
