#include <cerrno>
#include <stdexcept>
#include <unistd.h>

#include "core/platform/error_text.h"
#include "core/platform/programs.h"

namespace tz::platform {

std::filesystem::path programFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path(); }

void replaceProcess(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> texts = arguments;
  std::string name = program;
  std::vector<char*> list = {name.data()};
  for (auto& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  ::execv(program.c_str(), list.data());
  throw std::runtime_error("无法启动 " + program + "：" + errorText(errno));
}

}  // namespace tz::platform
