#include "reports/explain_error.h"

#include <fmt/format.h>

namespace tz {

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

}  // namespace tz
