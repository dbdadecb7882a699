#include "core/manual/advice.h"

#include <algorithm>
#include <array>

namespace tz::manual {
namespace {

struct CheckAdvice {
  bool (*check)(CheckContext&);
  std::string_view text;
};
constexpr std::array checkAdvice = {
    CheckAdvice{checks::deptGiven, "没有填部门。填上部门，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::deptKnown, "没有这个名称的部门。看一看有没有写错，或按 F2 从参照窗口选取。"},
    CheckAdvice{
        checks::deptActive,
        "这个部门没有辅助余额；包含未记帐凭证时，也没有未记帐的分录。换一个部门；只有未记帐凭证时，勾选包含未记帐"
        "凭证。"},
    CheckAdvice{
        checks::deptPersonsActive,
        "这个部门没有记到个人的余额；包含未记帐凭证时，也没有记到个人的未记帐分录。换一个部门；只有未记帐凭证时，"
        "勾选包含未记帐凭证。"},
    CheckAdvice{checks::deptKnownOrAll, "没有这个名称的部门。改正名称，或清空、填“全部”，就是所有部门。"},
    CheckAdvice{checks::personGiven, "没有填姓名。填上姓名，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::personKnown, "没有这个姓名的人。看一看有没有写错，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::personOfDept,
                "这个部门里没有这个姓名的人。改正部门或姓名；人调动过的，到他记帐时所在的部门去查。"},
    CheckAdvice{checks::personActive,
                "这个人在这个部门没有辅助余额；包含未记帐凭证时，也没有未记帐的分录。换一个人，或勾选包含未记帐凭证。"},
    CheckAdvice{checks::unitGiven, "没有填单位。填上单位，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::unitKnown, "没有这个名称的单位。看一看有没有写错，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::unitKnownOrAll, "没有这个名称的单位。改正名称，或清空、填“全部”，就是所有单位。"},
    CheckAdvice{checks::unitsDefined, "单位档案是空的。先在单位目录里增加单位。"},
    CheckAdvice{checks::unitClassesDefined, "单位分类是空的。先设置单位分类，给单位归类，再来查分类。"},
    CheckAdvice{checks::accountGiven, "没有选科目。从列表里选一个。"},
    CheckAdvice{checks::accountsOffered, "帐套里没有这张帐表要的科目。先给科目设置相应的辅助核算。"},
    CheckAdvice{checks::classesDefined, "帐套里没有项目大类。先设置项目大类和它的项目。"},
    CheckAdvice{checks::classChosen, "没有选项目大类，或列表里没有这个大类。从列表里选一个。"},
    CheckAdvice{checks::classOrFirst, "列表里没有这个项目大类。从列表里选一个。"},
    CheckAdvice{checks::classOfAccount, "所选科目和它的下级都没有指定项目大类。换一个科目，或先给科目指定项目大类。"},
    CheckAdvice{checks::deptsDefined, "部门档案是空的。先在部门目录里增加部门。"},
    CheckAdvice{checks::classHasProjects, "这个项目大类下还没有项目。换一个大类，或先增加项目。"},
    CheckAdvice{checks::projectGiven, "没有填项目。填上项目，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::projectKnown, "所选大类里没有这个名称的项目。看看大类选得对不对，或按 F2 从参照窗口选取。"},
    CheckAdvice{checks::accountsPicked, "列入的科目里有不属于这张帐表的。把它从右边的列表移走。"},
    CheckAdvice{checks::rangeInOrder,
                "余额的上限小于下限；空着的一端等于 0，所以只写了下限也是这样。两端都写上，上限不小于下限。"},
};

struct ChoiceAdvice {
  ListChoice choice;
  std::string_view text;
};
constexpr std::array choiceAdvice = {
    ChoiceAdvice{choices::dept, "部门的列表里没有写下的文字。文字和光标都留在原处，改正或另选一个。"},
    ChoiceAdvice{choices::deptOrAll, "没有这个名称的部门。改正名称，或清空、填“全部”，就是所有部门。"},
    ChoiceAdvice{choices::unitClass, "分类的列表里没有写下的文字。文字和光标都留在原处，改正或另选一个。"},
    ChoiceAdvice{choices::clerk, "业务员没有在所选科目的分录上出现过。从列表里选一个。"},
    ChoiceAdvice{choices::projectClass, "所选科目不核算这个项目大类。从列表里选一个。"},
    ChoiceAdvice{choices::projectRange, "项目范围的一端不是项目编码。从列表里选，或清空这一端，就是不限。"},
    ChoiceAdvice{choices::accountRange, "科目范围的一端不是列出的科目。从列表里选，或清空这一端，就是不限。"},
};

constexpr OpeningAdvice usual = {
    .notThereYet = "帐套里还没有这张帐表要的内容。先设置好再来查。",
    .databaseNotOpen = "帐套没有打开，或在别处被移走、替换了。在导航窗口的帐套菜单里打开其他帐套，重新打开它。",
    .noAccountAtAll = "帐套里没有这张帐表要的科目。先给科目设置相应的辅助核算。",
    .noSuchAccount = "科目空着，或填写的不是列出的科目。从列表里选一个。",
    .choiceWanted = "必须选择的一项被清空了。从列表里选一个。",
    .nothingToFind = "表里没有行可以查找。先用“查询”改换条件。",
    .notFound = "表里没有这个成员的行。名称要完全相同；折叠的行也在查找之列，没有列入表的不在。",
};

}  // namespace

std::string_view adviceOf(const Check& check) {
  const auto* const found = std::ranges::find(checkAdvice, check.passes, &CheckAdvice::check);
  return found == checkAdvice.end() ? std::string_view() : found->text;
}

std::string_view adviceOf(ListChoice choice) {
  const auto* const found = std::ranges::find(choiceAdvice, choice, &ChoiceAdvice::choice);
  return found == choiceAdvice.end() ? std::string_view() : found->text;
}

const OpeningAdvice& usualAdvice() { return usual; }

}  // namespace tz::manual
