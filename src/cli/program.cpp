#include "cli/program.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <sstream>
#include <vector>

#include "cli/cli.h"
#include "cli/examples.h"
#include "cli/explain.h"
#include "cli/given_words.h"
#include "cli/logon.h"
#include "cli/manual_page.h"
#include "cli/pages.h"
#include "core/data/connection.h"
#include "core/output/display_text.h"
#include "core/platform/error_text.h"
#include "core/platform/sink.h"
#include "core/platform/standard_streams.h"
#include "core/platform/terminal.h"
#include "core/reports/explain_error.h"
#include "core/reports/parameter.h"

namespace tz::cli {
namespace {

// The parser's own words, inherited by every subcommand.
void translateHelp(CLI::App& app) {
  const auto formatter = app.get_formatter();
  for (const auto& [word, chinese] : {std::pair{"Usage", "用法"},
                                      {"REQUIRED", "（必需）"},
                                      {"Positionals", "参数"},
                                      {"Options", "选项"},
                                      {"OPTIONS", "选项"},
                                      {"Subcommands", "子命令"},
                                      {"SUBCOMMAND", "子命令"},
                                      {"Needs", "需要"},
                                      {"Excludes", "不与"}}) {
    dynamic_cast<CLI::Formatter&>(*formatter).label(word, chinese);
  }
  app.option_defaults()->group("选项");
  app.group("子命令");
}

// The help flags of subcommands are made before they inherit the group of the others.
void groupHelpFlags(CLI::App& app) {
  for (auto* command : app.get_subcommands({})) {
    command->get_help_ptr()->group("选项");
    groupHelpFlags(*command);
  }
}

// What --help or --version answers.
std::string answerOf(const CLI::App& app, const CLI::Success& asked) {
  std::ostringstream out;
  app.exit(asked, out, out);
  return out.str();
}

Status run(int argc, char** argv) {
  CLI::App app("辅助核算：个人、部门、项目、单位的帐簿与报表。不带子命令时打开桌面。", "tzassistant");
  translateHelp(app);
  app.set_help_flag("-h,--help", "显示说明");
  app.set_version_flag("--version", TZ_VERSION, "显示版本");
  bool manual = false;
  app.add_flag("--man", manual, "输出手册页，供 man 阅读");
  app.footer(
      "子命令的说明：tzassistant 子命令 --help\n退出状态：0 完成，1 被拒绝，2 用法不对，3 数据库或输出失败，4 "
      "没有权限");
  app.require_subcommand(0, 1);
  Work work;
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  rememberWords(words);
  // Whoever asks for a report needs no other command; making them all would take a twentieth of a small report.
  const bool reportAlone = !words.empty() && words.front() == "report";
  if (!reportAlone) {
    addOpenCommand(app, work);
    addLedgerCommand(app, work);
    addOperatorCommand(app, work);
    addLogCommand(app, work);
    addReportsCommand(app, work);
    addVoucherCommand(app, work);
  }
  auto addConditions = addReportCommand(app, work);
  if (!reportAlone) {
    addFindCommand(app, work);
    addClearCommand(app, work);
    addCompletionCommand(app, work);
  }
  const int reportId = namedReport(app, words);
  addConditions(reportId);
  reportAlone ? addReportExamples(app, reportId) : addExamples(app, reportId);
  groupHelpFlags(app);
  try {
    refuseWrongValues(givenWords(app, words));
    app.parse(argc, argv);
  } catch (const CLI::Success& asked) {
    print(answerOf(app, asked));
    return Status::done;
  } catch (const CLI::ParseError& error) {
    complain(explain(error, app));
    return Status::wrongUse;
  }
  if (manual) {
    print(manualPage(app));
    return Status::done;
  }
  return work();
}

}  // namespace

void print(const std::string& text) {
  platform::writeToStandardOutput([&](const Sink& sink) { return sink(text); });
}

void complain(const std::string& message) {
  std::fprintf(stderr, "tzassistant: %s\n", shownText(withoutPasswords(message)).c_str());
}

int runProgram(int argc, char** argv) {
  platform::openClosedStandardStreams();
  platform::failOnBrokenWrites();
  takeGivenPasswords();
  auto status = Status::failed;
  try {
    status = run(argc, argv);
  } catch (const WrongUse& error) {
    complain(error.withOption());
    status = Status::wrongUse;
  } catch (const DbError& error) {
    complain(tz::explain(error));
  } catch (const OutputError& error) {
    complain(error.what());
  } catch (const std::filesystem::filesystem_error& error) {
    complain("“" + error.path1().string() + "”：" + platform::errorText(error.code().value()));
  } catch (const std::system_error& error) {
    complain(platform::errorText(error.code().value()));
  } catch (const std::bad_alloc&) {
    complain("内存不足");
  } catch (const std::exception& error) {
    complain(std::string("程序内部出错，请把括号中的原文告诉管理员。（") + error.what() + "）");
  }
  return static_cast<int>(status);
}

}  // namespace tz::cli
