#include "core/reports/messages.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace tz {
namespace {

struct Message {
  MessageId id;
  std::string_view text;
};
constexpr std::array messages = {
    Message{MessageId::databaseNotOpen, "数据库没有打开!"},
    Message{MessageId::noAccount, "没有符合条件的科目!"},
    Message{MessageId::noPersonAccountThreeColumn, "没有个人核算科目,不能查询个人三栏明细帐。"},
    Message{MessageId::deptEmpty, "部门不能为空，请重新输入！"},
    Message{MessageId::deptUnknown, "非法的部门"},
    Message{MessageId::deptWithoutActivity, "没有查到该部门的个人往来记录"},
    Message{MessageId::personEmpty, "姓名不能为空，请重新输入！"},
    Message{MessageId::personUnknown, "非法的姓名"},
    Message{MessageId::personOfOtherDept, "该用户不属于该部门，请重新输入其他名字。"},
    Message{MessageId::personWithoutActivity, "没有查到该部门此人的发生额"},
    Message{MessageId::noPersonAccountSubject, "没有个人核算科目，不能查询个人科目明细帐。"},
    Message{MessageId::noPersonAccountDept, "没有个人核算科目,不能查询个人部门明细帐。"},
    Message{MessageId::deptUnknownLoud, "非法的部门！"},
    Message{MessageId::noPersonAccountMulti, "不能查询个人多栏式明细帐。"},
    Message{MessageId::noDeptAccount, "没有部门核算科目！"},
    Message{MessageId::noDeptParentAccount, "没有符合条件的的部门核算科目！"},
    Message{MessageId::deptEmptyPlain, "部门不能为空，请重新输入。"},
    Message{MessageId::deptUnknownPlain, "没有该部门，请重新输入。"},
    Message{MessageId::deptEmptySpaced, "部门不能为空, 请重新输入!"},
    Message{MessageId::deptUnknownSpaced, "非法的部门, 请重新输入!"},
    Message{MessageId::noAccountCode, "没有查到符合要求的科目编号。"},
    Message{MessageId::noQualifyingAccount, "没有查到符合要求的科目。"},
    Message{MessageId::noProjectClassPlain, "请先定义项目大类"},
    Message{MessageId::noQualifyingProjectAccount, "没有查到符合要求的项目核算科目。"},
    Message{MessageId::noProjectAccount, "没有项目核算科目！"},
    Message{MessageId::classNotChosen, "请选择项目大累"},
    Message{MessageId::projectEmpty, "项目名称不能为空。"},
    Message{MessageId::projectNotInClass, "该项目大类下没有该项目."},
    Message{MessageId::deptNameUnknown, "非法的部门名称."},
    Message{MessageId::noUnitAccount, "没有单位核算科目！"},
    Message{MessageId::noUnitParentAccount, "没有单位核算上级科目！"},
    Message{MessageId::unitEmpty, "单位不能为空"},
    Message{MessageId::unitWanted, "请输入单位"},
    Message{MessageId::unitUnknown, "非法的单位"},
    Message{MessageId::rangeInvalid, "金额范围不合法!"},
    Message{MessageId::databaseNotOpenEnglish, "The Database is not Opened!"},
    Message{MessageId::noProjectClass, "请先定义项目大类!"},
    Message{MessageId::noPlanAccount, "没有查到符合要求的科目!"},
    Message{MessageId::noPlanProjectClass, "没有查到符合条件的项目大类!"},
    Message{MessageId::notListed, "没有“%s”，请从列表中选择。"},
    Message{MessageId::choiceWanted, "请从列表中选择%s。"},
    Message{MessageId::linesOutsideMonths, "有%d条分录的凭证日期不在查询月份内，未列示"},
    Message{MessageId::yearTotalsFrom, "本年累计自%d月起累计。"},
    Message{MessageId::monthsReversed, "起始月份在终止月份之后。"},
    Message{MessageId::projectsReversed, "起始项目在终止项目之后。"},
    Message{MessageId::foreignFormat, "外币式沿用七栏表头：借方外币在“贷方”栏，贷方外币在“余额”栏。"},
    Message{MessageId::logonOutsideYear, "登录日期 %s 不在会计年度 %d 内，表中月份的年份与帐套不符。"},
};

std::string_view pattern(MessageId id) {
  const auto* const found = std::ranges::find(messages, id, &Message::id);
  assert(found != messages.end());
  return found->text;
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
