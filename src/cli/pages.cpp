#include "cli/pages.h"

#include <filesystem>

#include "cli/logon.h"
#include "core/platform/programs.h"
#include "core/platform/sink.h"

namespace tz::cli {
namespace {

PageWriter offered = nullptr;
std::vector<std::string> calledWith;

}  // namespace

void offerPages(PageWriter writer) { offered = writer; }

void rememberWords(const std::vector<std::string>& words) { calledWith = words; }

PageWriter pageWriter() {
  if (offered != nullptr) return offered;
  const auto program = platform::programFolder() / "tzassistant-pages";
  if (!std::filesystem::exists(program)) throw OutputError("PDF 需要桌面部分，它没有安装；其他形式见 --help");
  giveBackPassword();
  platform::replaceProcess(program.string(), calledWith);
}

}  // namespace tz::cli
