// tzassistant open: starts the desktop, which is a program of its own so that this one needs no window toolkit.
#include <cstdlib>
#include <filesystem>

#include "cli/cli.h"
#include "core/platform/programs.h"

namespace tz::cli {
namespace {

bool hasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (const char* value = std::getenv(name); value != nullptr && *value != '\0') return true;
  }
  return false;
}

Status startDesktop(const std::vector<std::string>& arguments) {
  const auto program = platform::programFolder() / "tzassistant-desktop";
  if (!std::filesystem::exists(program)) {
    complain("桌面程序 tzassistant-desktop 没有安装；命令行的用法见 tzassistant --help");
    return Status::failed;
  }
  if (!hasDisplay()) {
    complain("这里没有显示器，无法打开桌面；命令行的用法见 tzassistant --help");
    return Status::failed;
  }
  platform::replaceProcess(program.string(), arguments);
}

}  // namespace

void addOpenCommand(CLI::App& app, Work& work) {
  work = [] { return startDesktop({}); };
  auto* command = app.add_subcommand("open", "打开桌面");
  command->prefix_command();  // everything behind it is the desktop's: LEDGER, -ERPCONSOLE, -ERPSINGLE
  command->callback([&work, command] { work = [command] { return startDesktop(command->remaining()); }; });
}

}  // namespace tz::cli
