#include "reports/explain_error.h"

#include <fmt/format.h>

namespace tz {
namespace {

struct Explanation {
  std::string_view what;
  std::string_view advice;
};

Explanation explanationOf(DbError::Kind kind) {
  using Kind = DbError::Kind;
  switch (kind) {
    case Kind::notFound:
      return {"找不到帐套", "请检查文件名、文件夹或服务器地址"};
    case Kind::unreachable:
      return {"连不上数据库服务器", "请检查主机名和端口，并确认服务器已经启动、网络可以到达"};
    case Kind::badLogon:
      return {"数据库服务器不接受这个用户名或口令", "请检查帐套地址中的用户名和口令，或请管理员授权"};
    case Kind::notALedger:
      return {"这不是帐套", "请另选帐套；如果它原来是帐套，则已损坏，请用备份恢复"};
    case Kind::incomplete:
      return {"帐套不完整", "缺少需要的表或列，请补齐后再打开，或用备份恢复"};
    case Kind::newer:
      return {"帐套由更新的版本建立", "请升级本程序后再打开；帐套没有被改动"};
    case Kind::damaged:
      return {"帐套数据已损坏", "请停止使用它，并用备份恢复"};
    case Kind::locked:
      return {"帐套正被其他程序占用", "请稍后再试，或关闭占用它的程序"};
    case Kind::unreadable:
      return {"无权读取帐套", "请检查文件和文件夹的属性，或请管理员授权"};
    case Kind::denied:
      return {"数据库不允许这项操作", "帐套或文件夹只读、或者没有权限时会这样；请检查其属性，或请管理员授权"};
    case Kind::full:
      return {"磁盘已满", "没有保存任何更改，请腾出空间后再试"};
    case Kind::disk:
      return {"读写磁盘时出错", "没有保存任何更改，请检查磁盘及其剩余空间"};
    case Kind::lost:
      return {"与数据库的连接已断开", "请检查服务器和网络，然后重新打开帐套"};
    case Kind::duplicate:
      return {"已经存在", "原有内容没有改动，请换一个名称"};
    case Kind::other:
      break;
  }
  return {"数据库出错", "请把括号中的原文告诉管理员"};
}

}  // namespace

std::string explain(const DbError& error) {
  const auto [what, advice] = explanationOf(error.kind());
  return fmt::format("{}。{}。（{}）", what, advice, error.what());
}

}  // namespace tz
