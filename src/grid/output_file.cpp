#include "grid/output_file.h"

#include <cstdio>

namespace tz {

Sink OutputFile::Contents() {
  return [this](std::string_view text) {
    platform::writeTo(file_, text);
    return true;
  };
}

bool writeFile(const std::string& target, const Producer& produce) {
  OutputFile file(target);
  if (!produce(file.Contents())) return false;
  file.Commit();
  return true;
}

void showOutput(const Producer& produce) {
  const std::string pager = platform::isTerminal() ? platform::pagerCommand() : "";
  if (!pager.empty()) {
    if (platform::writeToPager(pager, produce)) return;
    std::fprintf(stderr, "分页程序“%s”没有运行成功，改为直接输出\n", pager.c_str());
  }
  platform::writeToStandardOutput(produce);
}

}  // namespace tz
