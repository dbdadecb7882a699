#include "support/refusal_cases.h"

namespace tz::test {
namespace {

using Id = MessageId;
using Key = ParameterKey;
using Values = std::vector<std::pair<Key, std::string_view>>;

constexpr std::string_view noAccounts = "UPDATE Code SET sAssBook = ''";
constexpr std::string_view noClasses = "DELETE FROM ProjClass";

// The ledgers of one person ask for him in the same words.
void addPersonCases(std::vector<RefusalCase>& cases, int command, std::string_view account) {
  const auto add = [&](Id message, std::string_view text, std::string_view dept, std::string_view person) {
    Values values = {{Key::dept, dept}, {Key::person, person}};
    if (!account.empty()) values.emplace_back(Key::account, account);
    cases.push_back({command, message, text, values});
  };
  add(Id::deptEmpty, "部门不能为空，请重新输入！", "", "张三");
  add(Id::deptUnknown, "非法的部门", "没有的部", "张三");
  add(Id::deptWithoutActivity, "没有查到该部门的个人往来记录", "采购部", "李四");
  add(Id::personEmpty, "姓名不能为空，请重新输入！", "销售部", "");
  add(Id::personUnknown, "非法的姓名", "销售部", "没有的人");
  add(Id::personOfOtherDept, "该用户不属于该部门，请重新输入其他名字。", "销售部", "李四");
  add(Id::personWithoutActivity, "没有查到该部门此人的发生额", "销售部", "王五");
}

const std::vector<RefusalCase> ofPersons = {
    {10184, Id::noPersonAccountSubject, "没有个人核算科目，不能查询个人科目明细帐。", {}, noAccounts},
    {10186, Id::noPersonAccountDept, "没有个人核算科目,不能查询个人部门明细帐。", {}, noAccounts},
    {10186, Id::deptEmpty, "部门不能为空，请重新输入！", {{Key::account, "122101"}}},
    {10186, Id::deptUnknownLoud, "非法的部门！", {{Key::account, "122101"}, {Key::dept, "没有的部"}}},
    // 财务部 has a balance, but none of a person.
    {10186, Id::deptWithoutActivity, "没有查到该部门的个人往来记录", {{Key::account, "122101"}, {Key::dept, "财务部"}}},
    {10190, Id::noPersonAccountThreeColumn, "没有个人核算科目,不能查询个人三栏明细帐。", {}, noAccounts},
    {10191, Id::noPersonAccountMulti, "不能查询个人多栏式明细帐。", {}, "UPDATE Code SET bEnd = 1"},
};

const std::vector<RefusalCase> ofDepartments = {
    {10229, Id::noDeptAccount, "没有部门核算科目！", {}, noAccounts},
    {10230, Id::deptEmptySpaced, "部门不能为空, 请重新输入!", {}},
    {10230, Id::deptUnknownSpaced, "非法的部门, 请重新输入!", {{Key::dept, "没有的部"}}},
    {10231, Id::noDeptAccount, "没有部门核算科目！", {}, "UPDATE Code SET bEnd = 0"},
    {10231, Id::deptEmptyPlain, "部门不能为空，请重新输入。", {{Key::account, "660101"}}},
    {10231, Id::deptUnknownPlain, "没有该部门，请重新输入。", {{Key::account, "660101"}, {Key::dept, "没有的部"}}},
    {10232, Id::noDeptParentAccount, "没有符合条件的的部门核算科目！", {}, "UPDATE Code SET bEnd = 1"},
    {10232, Id::deptEmptySpaced, "部门不能为空, 请重新输入!", {{Key::account, "6601"}}},
    {10232, Id::deptUnknownSpaced, "非法的部门, 请重新输入!", {{Key::account, "6601"}, {Key::dept, "没有的部"}}},
};

const std::vector<RefusalCase> ofProjects = {
    {10219, Id::noAccountCode, "没有查到符合要求的科目编号。", {{Key::account, "140502"}}},
    {10220, Id::noProjectClass, "请先定义项目大类!", {}, noClasses},
    {10220, Id::noAccountCode, "没有查到符合要求的科目编号。", {}, noAccounts},
    {10220, Id::projectEmpty, "项目名称不能为空。", {{Key::projectClass, "01"}}},
    {10220, Id::projectNotInClass, "该项目大类下没有该项目.", {{Key::projectClass, "RD"}, {Key::project, "一号厂房"}}},
    {10220, Id::deptNameUnknown, "非法的部门名称.", {{Key::project, "一号厂房"}, {Key::dept, "没有的部"}}},
    {10221, Id::noProjectClassPlain, "请先定义项目大类", {}, noClasses},
    {10221, Id::noQualifyingProjectAccount, "没有查到符合要求的项目核算科目。", {}, noAccounts},
    {10221, Id::projectEmpty, "项目名称不能为空。", {{Key::account, "140501"}, {Key::projectClass, "01"}}},
    {10221,
     Id::classNotChosen,
     "请选择项目大累",
     {{Key::account, "140501"}, {Key::projectClass, "XX"}, {Key::project, "一号厂房"}}},
    {10221,
     Id::projectNotInClass,
     "该项目大类下没有该项目.",
     {{Key::account, "140501"}, {Key::projectClass, "01"}, {Key::project, "没有的项目"}}},
    {10221,
     Id::noProjectAccount,
     "没有项目核算科目！",
     {{Key::projectClass, "01"}, {Key::project, "一号厂房"}},
     {},
     true},
    {10222, Id::noQualifyingAccount, "没有查到符合要求的科目。", {}, noAccounts},
    {10222, Id::deptNameUnknown, "非法的部门名称.", {{Key::account, "500101"}, {Key::dept, "没有的部"}}},
    {10223, Id::noProjectClass, "请先定义项目大类!", {}, noClasses},
    {10223, Id::noAccountCode, "没有查到符合要求的科目编号。", {}, "UPDATE Code SET bEnd = 1"},
    {10223, Id::projectEmpty, "项目名称不能为空。", {{Key::account, "1405"}}},
    {10223, Id::projectNotInClass, "该项目大类下没有该项目.", {{Key::account, "1405"}, {Key::project, "没有的项目"}}},
    {10223,
     Id::deptNameUnknown,
     "非法的部门名称.",
     {{Key::account, "1405"}, {Key::project, "一号厂房"}, {Key::dept, "没有的部"}}},
};

// A list has no entry of that text.
RefusalCase unlisted(int command, std::string_view text, Values values, std::string_view listed = {}) {
  return {command, Id::notListed, text, std::move(values), {}, false, listed};
}

const std::vector<RefusalCase> ofLists = {
    unlisted(10205, "没有“没有的分类”，请从列表中选择。", {{Key::account, "112201"}, {Key::unitClass, "没有的分类"}},
             "可用：其它"),
    unlisted(10206, "没有“没有的部”，请从列表中选择。", {{Key::account, "112201"}, {Key::dept, "没有的部"}},
             "可用：销售部、采购部、财务部"),
    unlisted(10207, "没有“999”，请从列表中选择。", {{Key::account, "112201"}, {Key::projectTo, "999"}}),
    unlisted(10210, "没有“没有的人”，请从列表中选择。", {{Key::account, "112201"}, {Key::clerk, "没有的人"}},
             "可用：其它"),
    unlisted(10219, "没有“RD”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectClass, "RD"}}, "可用：01"),
    unlisted(10219, "没有“999”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectFrom, "999"}}),
    unlisted(10222, "没有“RD”，请从列表中选择。", {{Key::account, "500101"}, {Key::projectClass, "RD"}}, "可用：01"),
};

const std::vector<RefusalCase> ofUnits = {
    {10203, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
    {10204, Id::noUnitAccount, "没有单位核算科目！", {}, noAccounts},
    {10204, Id::unitEmpty, "单位不能为空", {}},
    {10204, Id::unitUnknown, "非法的单位", {{Key::unit, "没有的单位"}}},
    {10205, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
    {10206, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
    {10207, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
    {10208, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
    {10208, Id::unitWanted, "请输入单位", {{Key::account, "112201"}}},
    {10208, Id::unitUnknown, "非法的单位", {{Key::account, "112201"}, {Key::unit, "没有的单位"}}},
    {10209, Id::noUnitParentAccount, "没有单位核算上级科目！", {}, "UPDATE Code SET bEnd = 1"},
    {10209, Id::unitUnknown, "非法的单位", {{Key::account, "1122"}, {Key::unit, "没有的单位"}}},
    {10210, Id::noAccount, "没有符合条件的科目!", {}, noAccounts},
};

}  // namespace

Request RefusalCase::request() const {
  Request request;
  for (const auto& [key, value] : values) {
    if (!value.empty()) request.set(key, value);
  }
  return request;
}

std::vector<RefusalCase> refusalCases() {
  std::vector<RefusalCase> cases;
  for (const auto* part : {&ofPersons, &ofDepartments, &ofProjects, &ofUnits, &ofLists}) {
    cases.insert(cases.end(), part->begin(), part->end());
  }
  addPersonCases(cases, 10188, "");
  addPersonCases(cases, 10190, "122101");
  addPersonCases(cases, 10191, "1221");
  return cases;
}

void fillRefusalLedger(TestLedger& ledger) {
  ledger.fill("Code", R"(
      lId | sCode  | sName      | bEnd | bDirect | sAssBook
      1   | 1122   | 应收账款   | 0    | 1       | B
      2   | 112201 | 货款       | 1    | 1       | B
      3   | 1221   | 其他应收款 | 0    | 1       | A
      4   | 122101 | 职工借款   | 1    | 1       | A
      5   | 1405   | 库存商品   | 0    | 1       | D
      6   | 140501 | 车床       | 1    | 1       | D
      7   | 140502 | 铣床       | 1    | 1       | D
      8   | 500101 | 材料       | 1    | 1       | CD
      9   | 6601   | 销售费用   | 0    | 1       | C
      10  | 660101 | 差旅费     | 1    | 1       | C)");
  ledger.fill("Dept", R"(
      lId | lDeptId | sDeptId | sDeptName
      1   | 1       | 01      | 销售部
      2   | 2       | 02      | 采购部
      3   | 3       | 03      | 财务部)");
  ledger.fill("Person", R"(
      lId | sPersonId | sName | lDeptId
      1   | 01        | 张三  | 1
      2   | 02        | 李四  | 2
      3   | 03        | 王五  | 1)");
  ledger.fill("AssAcc", R"(
      lId | lCodeId | lDeptId | lPersonId | byPeroid | mBegin
      1   | 4       | 1       | 1         | 1        | 100
      2   | 10      | 3       | 0         | 1        | 70)");
  // The year and month that conditions left out are of.
  ledger.fill("RegMain", "lTieId | byPeroid | dtBill | dtDate\n 1 | 3 | 2006-03-31 | 2006-03-31");
  ledger.fill("Enter", "lId | sEnterId | sEnterName\n 1 | K01 | 江源机械");
  ledger.fill("ProjClass", "lId | sItemId | sName\n 1 | 01 | 工程\n 2 | RD | 研发");
  ledger.fill("ProjItems", R"(
      lId | sItemId | nField | sTitle   | sType
      1   | 01      | 0      | 项目编号 | 3
      2   | 01      | 1      | 项目名称 | 3
      3   | RD      | 0      | 项目编号 | 3
      4   | RD      | 1      | 项目名称 | 3)");
  ledger.makeItemTable("01");
  ledger.makeItemTable("RD");
  ledger.fill("ProjItems01", "lId | FIELD0 | FIELD1\n 1 | 001 | 一号厂房");
  ledger.fill("ProjCodes", "lId | sItemId | lCodeId\n 1 | 01 | 6\n 2 | 01 | 8");
}

}  // namespace tz::test
