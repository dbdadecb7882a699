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

std::string explain(const DbError& error) {
  const auto* what = error.what();
  switch (error.kind()) {
    case DbError::Kind::notFound:
      return fmt::format("找不到帐套：{}。请检查文件名或服务器地址。", what);
    case DbError::Kind::notALedger:
      return fmt::format("这不是帐套数据库：{}", what);
    case DbError::Kind::damaged:
      return fmt::format("帐套数据已损坏：{}。请用备份恢复。", what);
    case DbError::Kind::locked:
      return fmt::format("帐套正被占用：{}。请稍后再试。", what);
    case DbError::Kind::denied:
      return fmt::format("数据库拒绝了操作：{}", what);
    case DbError::Kind::full:
      return fmt::format("磁盘已满：{}。没有写入任何内容。", what);
    case DbError::Kind::lost:
      return fmt::format("与数据库的连接已断开：{}", what);
    case DbError::Kind::duplicate:
      return fmt::format("已经存在：{}", what);
    case DbError::Kind::other:
      break;
  }
  return fmt::format("数据库出错：{}", what);
}

std::string explain(const CLI::ParseError& error, const CLI::App& app) {
  const auto hint = fmt::format("。用法见 {} --help", commandPath(app));
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) return explainExtras(app) + hint;
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) return fmt::format("缺少参数：{}", error.what()) + hint;
  return error.what() + hint;
}

}  // namespace tz::cli
