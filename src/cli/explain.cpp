#include "cli/explain.h"

#include <fmt/format.h>

#include "reports/parameter.h"

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

std::string explainExtras(const CLI::App& app) {
  const auto extras = app.remaining(true);
  if (extras.empty()) return "参数不对";
  const auto name = extras.front().substr(0, extras.front().find('='));
  if (isCondition(name)) return fmt::format("这里没有条件 {}", name);
  return fmt::format("不认识的参数“{}”", extras.front());
}

}  // namespace

std::string explain(const CLI::ParseError& error, const CLI::App& app) {
  const auto hint = fmt::format("。用法见 {} --help", commandPath(app));
  const std::string what = error.what();
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) return explainExtras(app) + hint;
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    return fmt::format("缺少参数 {}", what.substr(0, what.find(' '))) + hint;
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
    return fmt::format("参数个数不对：{}", what) + hint;
  if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) return fmt::format("缺少相关参数：{}", what) + hint;
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) return fmt::format("参数互相矛盾：{}", what) + hint;
  return fmt::format("参数的值不对：{}", what) + hint;
}

}  // namespace tz::cli
