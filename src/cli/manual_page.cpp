#include "cli/manual_page.h"

#include <algorithm>
#include <fmt/format.h>
#include <span>
#include <utility>
#include <vector>

#include "core/catalogue/catalogue.h"

namespace tz::cli {
namespace {

// Text that means itself: no command at the start of a line, no escapes, a hyphen as it is typed. Chinese has no
// blanks, so a line may break behind every character.
std::string plain(std::string_view text) {
  std::string written;
  bool lineStart = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (lineStart && (c == '.' || c == '\'')) written += "\\&";
    if (c == '\\' || c == '-') written += '\\';
    written += c == '\\' ? 'e' : c;
    lineStart = c == '\n';
    const bool inside = i + 1 < text.size() && (static_cast<unsigned char>(text[i + 1]) & 0xc0U) == 0x80;
    if ((static_cast<unsigned char>(c) & 0x80U) != 0 && !inside) written += "\\:";
  }
  return written;
}

std::string section(std::string_view title) { return fmt::format(".SH {}\n", title); }
std::string item(std::string_view term, std::string_view text) {
  return fmt::format(".TP\n\\fB{}\\fR\n{}\n", plain(term), plain(text));
}

std::string valueText(const CLI::Option& option) {
  return option.get_items_expected_max() == 0 ? std::string() : " " + option.get_type_name();
}

std::string optionItem(const CLI::Option& option) {
  const auto name = option.get_positional() ? option.get_name() : option.get_name(false, true);
  return item(name + (option.get_positional() ? "" : valueText(option)), option.get_description());
}

std::string commandPart(const CLI::App& command, const std::string& path) {
  std::string text = fmt::format(".SS {}\n{}\n", plain(path), plain(command.get_description()));
  for (const auto* option : command.get_options()) {
    if (option->get_name() != "--help" || command.get_parent() == nullptr) text += optionItem(*option);
  }
  for (const auto* inner : command.get_subcommands({})) text += commandPart(*inner, path + " " + inner->get_name());
  return text;
}

// What holds for several reports, once below their numbers.
std::string rulesPart() {
  std::vector<std::pair<std::string, std::span<const std::string_view>>> families;
  for (const auto* report : catalogue()) {
    const auto number = std::to_string(report->command);
    const auto same = [&](const auto& family) { return family.second.data() == report->rules.data(); };
    if (const auto known = std::ranges::find_if(families, same); known != families.end()) {
      known->first += " " + number;
    } else {
      families.emplace_back(number, report->rules);
    }
  }
  std::string text;
  for (const auto& [numbers, rules] : families) {
    text += item(numbers, {});
    for (const auto rule : rules) text += ".IP\n" + plain(rule) + "\n";
  }
  return text;
}

std::string reportsPart() {
  std::string text;
  for (const auto* report : catalogue()) {
    std::string options;
    for (const auto key : parametersOf(*report)) options += fmt::format(" --{}", parameter(key).option);
    text += item(std::to_string(report->command),
                 fmt::format("{}，{}，条件：{}", areaName(report->area), report->printTitle, options));
    text += ".IP\n" + plain(report->about) + "\n";
  }
  return text;
  return text;
}

std::string conditionsPart() {
  std::string text;
  for (const auto& condition : allParameters()) {
    text += item(fmt::format("--{} {}", condition.option, condition.valueName), condition.help);
  }
  return text;
}

// The examples of the program's help, one a line as they are typed.
std::string examplesPart(const CLI::App& app) {
  std::string text = ".nf\n";
  constexpr std::string_view mark = "例：";
  for (const auto& line : CLI::detail::split(app.get_footer(), '\n')) {
    if (line.starts_with(mark)) text += plain(line.substr(mark.size())) + "\n";
  }
  return text + ".fi\n";
}

}  // namespace

std::string manualPage(const CLI::App& app) {
  std::string text = ".TH TZASSISTANT 1 \"\" \"TzAssistant " TZ_VERSION "\" \"用户命令\"\n.ad l\n.nh\n";
  text += section("名称") + "tzassistant \\- 企业会计的辅助核算\n";
  text += section("用法") + ".B tzassistant\n[子命令] [选项]\n";
  text += section("说明") + plain(app.get_description()) + "\n";
  text += section("选项");
  for (const auto* option : app.get_options()) text += optionItem(*option);
  text += section("子命令");
  for (const auto* command : app.get_subcommands({})) {
    text += commandPart(*command, app.get_name() + " " + command->get_name());
  }
  text += section("报表") + reportsPart();
  text += section("报表的规则") + rulesPart();
  text += section("条件") + conditionsPart();
  text += section("退出状态");
  text += item("0", "完成") + item("1", "被拒绝，原因见标准错误输出") + item("2", "用法不对");
  text += item("3", "数据库或输出失败") + item("4", "没有权限");
  text += section("环境变量");
  text += item("TZ_PASSWORD", "操作员的口令，不传给分页程序和桌面");
  text += item("TZ_NEW_PASSWORD", "operator add 和 operator password 的新口令，不传给别的程序");
  text += item("PAGER", "在终端上显示报表的分页程序，缺省为 less；设为 cat 则直接输出，不能运行时也直接输出");
  text += item("NO_COLOR", "终端上不用颜色");
  text += item("PGPASSWORD", "数据库用户的口令；地址中的口令会留在命令历史和进程列表里");
  text += item("PGPASSFILE", "数据库口令文件，缺省为 ~/.pgpass：每行 主机:端口:数据库:用户:口令，权限须为 0600");
  text += item("PGSERVICEFILE", "服务文件，缺省为 ~/.pg_service.conf，地址写作 postgresql:///?service=名称");
  text += item("PGCONNECT_TIMEOUT", "等待数据库服务器接受连接的秒数，缺省为 15；也可写在地址中：?connect_timeout=5");
  text += item("TZ_SERVER_TIMEOUT", "数据库服务器多少秒没有回答就停止等待，缺省为 300，0 为一直等待");
  return text + section("示例") + examplesPart(app);
}

}  // namespace tz::cli
