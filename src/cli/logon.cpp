#include "cli/logon.h"

#include <thread>

#include "cli/cli.h"
#include "core/output/display_text.h"
#include "core/platform/password_prompt.h"
#include "core/platform/standard_streams.h"
#include "core/reports/logon_delays.h"

namespace tz::cli {
namespace {

std::optional<std::string> givenPassword;
std::optional<std::string> givenNewPassword;

}  // namespace

void takeGivenPasswords() {
  givenPassword = platform::takeVariable("TZ_PASSWORD");
  givenNewPassword = platform::takeVariable("TZ_NEW_PASSWORD");
}

void giveBackPassword() {
  if (givenPassword) platform::giveVariable("TZ_PASSWORD", *givenPassword);
}

std::optional<Operator> logOnFromTerminal(const CQnCwDB& db, const std::string& name) {
  if (!needsLogon(db)) return everybody();
  if (name.empty()) {
    complain("该帐套需要操作员：请加 --operator 姓名，口令用环境变量 TZ_PASSWORD 或在提示处输入");
    return std::nullopt;
  }
  const auto password = givenPassword ? givenPassword : platform::promptPassword(shownLine(name) + " 的口令：");
  if (!password) {
    complain("没有口令：请设环境变量 TZ_PASSWORD，或在终端上运行");
    return std::nullopt;
  }
  auto who = logOn(logonQuestion(db, name), *password);
  if (who) return who;
  std::this_thread::sleep_for(logonDelays().Failed(name));
  complain("操作员姓名或口令不对");
  return std::nullopt;
}

std::optional<std::string> newPassword(const std::string& operatorName) {
  if (givenNewPassword) return givenNewPassword;
  const auto name = shownLine(operatorName);
  auto password = platform::promptPassword(name + " 的新口令：");
  const auto again = password ? platform::promptPassword("再输入一次：") : std::nullopt;
  if (!again) {
    complain("没有新口令：请设环境变量 TZ_NEW_PASSWORD，或在终端上运行");
    return std::nullopt;
  }
  if (*again != *password) {
    complain("两次输入的口令不同，没有更改");
    return std::nullopt;
  }
  return password;
}

}  // namespace tz::cli
