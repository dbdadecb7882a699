#include "reports/messages.h"

#include <cassert>

namespace tz {
namespace {

std::string_view pattern(MessageId id) {
  switch (id) {
    case MessageId::databaseNotOpen:
      return "数据库没有打开!";
    case MessageId::noAccount:
      return "没有符合条件的科目!";
    case MessageId::noPersonAccountThreeColumn:
      return "没有个人核算科目,不能查询个人三栏明细帐。";
    case MessageId::deptEmpty:
      return "部门不能为空，请重新输入！";
    case MessageId::deptUnknown:
      return "非法的部门";
    case MessageId::deptWithoutActivity:
      return "没有查到该部门的个人往来记录";
    case MessageId::personEmpty:
      return "姓名不能为空，请重新输入！";
    case MessageId::personUnknown:
      return "非法的姓名";
    case MessageId::personOfOtherDept:
      return "该用户不属于该部门，请重新输入其他名字。";
    case MessageId::personWithoutActivity:
      return "没有查到该部门此人的发生额";
    case MessageId::noProjectClass:
      return "请先定义项目大类!";
    case MessageId::noPlanAccount:
      return "没有查到符合要求的科目!";
    case MessageId::noPlanProjectClass:
      return "没有查到符合条件的项目大类!";
    case MessageId::linesOutsideMonths:
      return "有%d条分录的凭证日期不在查询月份内，未列示";
  }
  assert(false);
  return {};
}

}  // namespace

std::string messageText(MessageId id, const std::vector<std::string>& arguments) {
  auto rest = pattern(id);
  std::string text;
  for (const auto& argument : arguments) {
    const auto place = rest.find('%');
    assert(place != std::string_view::npos);
    text += rest.substr(0, place);
    text += argument;
    rest.remove_prefix(place + 2);
  }
  return text.append(rest);
}

}  // namespace tz
