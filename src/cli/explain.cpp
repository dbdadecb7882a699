#include "cli/explain.h"

#include <filesystem>
#include <fmt/format.h>
#include <utility>

#include "core/reports/parameter.h"

namespace tz::cli {
namespace {

// The chosen subcommands, as they are typed.
std::string commandPath(const CLI::App& app) {
  std::string path = app.get_name();
  for (const auto* current = &app; !current->get_subcommands().empty();) {
    current = current->get_subcommands().front();
    path += " " + current->get_name();
  }
  return path;
}

bool isCondition(std::string_view option) {
  for (const auto& condition : allParameters()) {
    if (option == "--" + std::string(condition.option)) return true;
  }
  return false;
}

// The parser's errors begin with the name of the option or place that they are about.
std::string nameIn(const std::string& what) { return what.substr(0, what.find_first_of(" :")); }

// "--lines requires --sample" as its two ends.
std::pair<std::string, std::string> endsOf(const std::string& what) {
  return {nameIn(what), what.substr(what.rfind(' ') + 1)};
}

std::string missing(const std::string& what, const CLI::App& app) {
  if (what.starts_with("-")) return fmt::format("缺少 {}", nameIn(what));
  const auto* command = &app;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
  std::string names;
  for (const auto* inner : command->get_subcommands({})) names += (names.empty() ? "" : "、") + inner->get_name();
  return names.empty() ? fmt::format("缺少参数 {}", nameIn(what)) : "缺少子命令，可用：" + names;
}

template <class Kind>
bool isA(const CLI::ParseError& error) {
  return dynamic_cast<const Kind*>(&error) != nullptr;
}

std::string explainExtras(const CLI::App& app) {
  const auto extras = app.remaining(true);
  if (extras.empty()) return "参数不对";
  const auto name = extras.front().substr(0, extras.front().find('='));
  if (isCondition(name)) return fmt::format("这里没有条件 {}", name);
  std::error_code unknown;
  const bool isFile = app.get_subcommands().empty() && std::filesystem::exists(extras.front(), unknown);
  return fmt::format("不认识的参数“{}”{}", extras.front(),
                     isFile ? "；打开帐套：tzassistant open " + extras.front() : "");
}

}  // namespace

std::string explain(const CLI::ParseError& error, const CLI::App& app) {
  const std::string what = error.what();
  std::string text = "参数不对";
  if (isA<CLI::ExtrasError>(error)) {
    text = explainExtras(app);
  } else if (isA<CLI::RequiredError>(error)) {
    text = missing(what, app);
  } else if (isA<CLI::ArgumentMismatch>(error)) {
    text = fmt::format("{} 缺少值", nameIn(what));  // a second one was refused before
  } else if (isA<CLI::RequiresError>(error)) {
    const auto [option, other] = endsOf(what);
    text = fmt::format("{} 要与 {} 同用", option, other);
  } else if (isA<CLI::ExcludesError>(error)) {
    const auto [option, other] = endsOf(what);
    text = fmt::format("{} 不能与 {} 同用", option, other);
  } else if (isA<CLI::ValidationError>(error)) {
    text = fmt::format("{}：{}", nameIn(what), what.substr(what.find(": ") + 2));  // our own words
  }
  return fmt::format("{}。用法见 {} --help", text, commandPath(app));
}

}  // namespace tz::cli
