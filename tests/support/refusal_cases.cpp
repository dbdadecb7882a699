#include "support/refusal_cases.h"

#include <algorithm>

namespace tz::test {
namespace {

using Key = ParameterKey;
using Values = std::vector<std::pair<Key, std::string_view>>;

constexpr std::string_view noAccounts = "UPDATE Code SET sAssBook = ''";
constexpr std::string_view noClasses = "DELETE FROM ProjClass";
constexpr std::string_view noUnits = "DELETE FROM Enter";

// The ledgers of one person ask for him in the same words.
void addPersonCases(std::vector<RefusalCase>& cases, int command, std::string_view account) {
  const auto add = [&](std::string_view text, std::string_view dept, std::string_view person) {
    Values values = {{Key::dept, dept}, {Key::person, person}};
    if (!account.empty()) values.emplace_back(Key::account, account);
    cases.push_back({.command = command, .text = text, .values = values});
  };
  add("部门不能为空，请重新输入！", "", "张三");
  add("非法的部门", "没有的部", "张三");
  add("没有查到该部门的个人往来记录", "采购部", "李四");
  add("姓名不能为空，请重新输入！", "销售部", "");
  add("非法的姓名", "销售部", "没有的人");
  add("该用户不属于该部门，请重新输入其他名字。", "销售部", "李四");
  add("没有查到该部门此人的发生额", "销售部", "王五");
}

const std::vector<RefusalCase> ofPersons = {
    {.command = 10184, .text = "没有个人核算科目，不能查询个人科目明细帐。", .change = noAccounts},
    {.command = 10186, .text = "没有个人核算科目,不能查询个人部门明细帐。", .change = noAccounts},
    {.command = 10186, .text = "部门不能为空，请重新输入！", .values = {{Key::account, "122101"}}},
    {.command = 10186, .text = "非法的部门！", .values = {{Key::account, "122101"}, {Key::dept, "没有的部"}}},
    // 财务部 has a balance, but none of a person.
    {.command = 10186,
     .text = "没有查到该部门的个人往来记录",
     .values = {{Key::account, "122101"}, {Key::dept, "财务部"}}},
    {.command = 10190, .text = "没有个人核算科目,不能查询个人三栏明细帐。", .change = noAccounts},
    {.command = 10191, .text = "不能查询个人多栏式明细帐。", .change = "UPDATE Code SET bEnd = 1"},
};

// Both tables of one person ask for him in the same words.
void addPersonTableCases(std::vector<RefusalCase>& cases, int command, std::string_view account) {
  const auto add = [&](std::string_view text, std::string_view dept, std::string_view person) {
    Values values = {{Key::dept, dept}, {Key::person, person}};
    if (!account.empty()) values.emplace_back(Key::account, account);
    cases.push_back({.command = command, .text = text, .values = values});
  };
  add("部门不能为空，请重新输入！", "", "张三");
  add("没有查到该部门的个人往来记录", "没有的部", "张三");
  add("没有查到该部门的个人往来记录", "采购部", "李四");
  add("姓名不能为空，请重新输入！", "销售部", "");
  add("该用户不属于该部门.", "销售部", "没有的人");
  add("该用户不属于该部门.", "销售部", "李四");
}

// An empty bound is 0, so a lower bound alone is above the upper one.
RefusalCase amountsReversed(int command, Values values) {
  values.emplace_back(Key::minimum, "100");
  return {.command = command, .text = "金额范围不合法!", .values = std::move(values)};
}

const std::vector<RefusalCase> ofBalances = {
    {.command = 10183, .text = "没有个人核算科目，不能查询个人科目余额表。", .change = noAccounts},
    amountsReversed(10183, {{Key::account, "122101"}}),
    {.command = 10185, .text = "没有个人核算科目，不能查询个人部门余额表。", .change = noAccounts},
    {.command = 10185, .text = "部门不能为空，请重新输入!", .values = {{Key::account, "122101"}}},
    {.command = 10185, .text = "非法的部门!", .values = {{Key::account, "122101"}, {Key::dept, "没有的部"}}},
    {.command = 10185,
     .text = "没有查到该部门的个人往来记录",
     .values = {{Key::account, "122101"}, {Key::dept, "财务部"}}},
    amountsReversed(10185, {{Key::account, "122101"}, {Key::dept, "销售部"}}),
    amountsReversed(10187, {{Key::dept, "销售部"}, {Key::person, "张三"}}),
    {.command = 10189, .text = "没有个人核算科目，不能查询个人三栏式余额表。", .change = noAccounts},
    {.command = 10196, .text = "没有涉及单位往来的科目！", .change = noAccounts},
    amountsReversed(10196, {{Key::account, "112201"}}),
    {.command = 10197, .text = "请先定义单位", .change = noUnits},
    {.command = 10197, .text = "单位不能为空!"},
    {.command = 10197, .text = "非法的单位!", .values = {{Key::unit, "没有的单位"}}},
    amountsReversed(10197, {{Key::unit, "江源机械"}}),
    {.command = 10198,
     .text = "没有涉及单位往来的科目！",
     .change = "UPDATE Code SET sAssBook = ''; DELETE FROM Enter"},
    {.command = 10198, .text = "请先定义单位", .change = noUnits},
    amountsReversed(10198, {{Key::account, "112201"}}),
    {.command = 10198, .text = "没有单位分类!", .values = {{Key::account, "112201"}}},
    {.command = 10199, .text = "没有符合条件的科目!", .change = noAccounts},
    amountsReversed(10199, {{Key::account, "112201"}}),
    {.command = 10200, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10200, .text = "非法的单位", .values = {{Key::account, "112201"}, {Key::unit, "没有的单位"}}},
    amountsReversed(10200, {{Key::account, "112201"}}),
    {.command = 10201, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10201, .text = "单位不能为空", .values = {{Key::account, "112201"}}},
    {.command = 10201, .text = "非法的单位", .values = {{Key::account, "112201"}, {Key::unit, "没有的单位"}}},
    {.command = 10202, .text = "没有符合条件的科目!", .change = noAccounts},
    amountsReversed(10202, {{Key::account, "112201"}}),
    {.command = 10226, .text = "没有部门核算科目！", .change = noAccounts},
    {.command = 10227, .text = "部门不能为空，请重新输入。"},
    {.command = 10227, .text = "没有该部门，请重新输入。", .values = {{Key::dept, "没有的部"}}},
    {.command = 10228, .text = "没有部门核算科目！", .change = noAccounts},
    {.command = 10228, .text = "部门不能为空，请重新输入。", .values = {{Key::account, "660101"}}},
    {.command = 10228,
     .text = "没有该部门，请重新输入。",
     .values = {{Key::account, "660101"}, {Key::dept, "没有的部"}}},
};

constexpr std::string_view noItems = "DELETE FROM ProjItems01";

const std::vector<RefusalCase> ofProjectGenerals = {
    {.command = 10215, .text = "没有项目核算科目！", .change = noAccounts},
    {.command = 10215, .text = "没有项目核算科目！", .values = {{Key::account, "140502"}}},
    {.command = 10215,
     .text = "没有查到符合要求的项目。",
     .values = {{Key::account, "140501"}},
     .change = noItems,
     .onConfirming = true},
    {.command = 10216, .text = "请先定义项目大类!", .change = noClasses},
    {.command = 10216, .text = "没有查到符合要求的项目。", .values = {{Key::projectClass, "RD"}}},
    {.command = 10217, .text = "请先定义项目大类!", .change = noClasses},
    {.command = 10217, .text = "没有项目核算科目！", .change = noAccounts},
    {.command = 10217, .text = "项目不能为空。", .values = {{Key::account, "140501"}}},
    {.command = 10217,
     .text = "该项目大类下没有该项目!",
     .values = {{Key::account, "140501"}, {Key::projectClass, "XX"}, {Key::project, "一号厂房"}}},
    {.command = 10217,
     .text = "没有查到符合要求的项目!",
     .values = {{Key::account, "140501"}, {Key::projectClass, "RD"}, {Key::project, "一号厂房"}}},
    {.command = 10217,
     .text = "该项目大类下没有该项目!",
     .values = {{Key::account, "140501"}, {Key::project, "没有的项目"}}},
    {.command = 10218, .text = "没有部门！", .change = "DELETE FROM Dept"},
    {.command = 10218, .text = "没有部门项目核算科目！", .change = "UPDATE Code SET sAssBook = ''; DELETE FROM Dept"},
    {.command = 10218,
     .text = "没有部门项目核算科目！",
     .values = {{Key::account, "500101"}},
     .change = "DELETE FROM ProjCodes",
     .onConfirming = true},
    {.command = 10218,
     .text = "没有查到符合要求的项目。",
     .values = {{Key::account, "500101"}},
     .change = noItems,
     .onConfirming = true},
};

const std::vector<RefusalCase> ofDepartments = {
    {.command = 10229, .text = "没有部门核算科目！", .change = noAccounts},
    {.command = 10230, .text = "部门不能为空, 请重新输入!"},
    {.command = 10230, .text = "非法的部门, 请重新输入!", .values = {{Key::dept, "没有的部"}}},
    {.command = 10231, .text = "没有部门核算科目！", .change = "UPDATE Code SET bEnd = 0"},
    {.command = 10231, .text = "部门不能为空，请重新输入。", .values = {{Key::account, "660101"}}},
    {.command = 10231,
     .text = "没有该部门，请重新输入。",
     .values = {{Key::account, "660101"}, {Key::dept, "没有的部"}}},
    {.command = 10232, .text = "没有符合条件的的部门核算科目！", .change = "UPDATE Code SET bEnd = 1"},
    {.command = 10232, .text = "部门不能为空, 请重新输入!", .values = {{Key::account, "6601"}}},
    {.command = 10232, .text = "非法的部门, 请重新输入!", .values = {{Key::account, "6601"}, {Key::dept, "没有的部"}}},
};

const std::vector<RefusalCase> ofProjects = {
    {.command = 10219, .text = "没有查到符合要求的科目编号。", .values = {{Key::account, "140502"}}},
    {.command = 10220, .text = "请先定义项目大类!", .change = noClasses},
    {.command = 10220, .text = "没有查到符合要求的科目编号。", .change = noAccounts},
    {.command = 10220, .text = "项目名称不能为空。", .values = {{Key::projectClass, "01"}}},
    {.command = 10220,
     .text = "该项目大类下没有该项目.",
     .values = {{Key::projectClass, "RD"}, {Key::project, "一号厂房"}}},
    {.command = 10220, .text = "非法的部门名称.", .values = {{Key::project, "一号厂房"}, {Key::dept, "没有的部"}}},
    {.command = 10221, .text = "请先定义项目大类", .change = noClasses},
    {.command = 10221, .text = "没有查到符合要求的项目核算科目。", .change = noAccounts},
    {.command = 10221, .text = "项目名称不能为空。", .values = {{Key::account, "140501"}, {Key::projectClass, "01"}}},
    {.command = 10221,
     .text = "请选择项目大累",
     .values = {{Key::account, "140501"}, {Key::projectClass, "XX"}, {Key::project, "一号厂房"}}},
    {.command = 10221,
     .text = "该项目大类下没有该项目.",
     .values = {{Key::account, "140501"}, {Key::projectClass, "01"}, {Key::project, "没有的项目"}}},
    {.command = 10221,
     .text = "没有项目核算科目！",
     .values = {{Key::projectClass, "01"}, {Key::project, "一号厂房"}},
     .accountErased = true},
    {.command = 10222, .text = "没有查到符合要求的科目。", .change = noAccounts},
    {.command = 10222, .text = "非法的部门名称.", .values = {{Key::account, "500101"}, {Key::dept, "没有的部"}}},
    {.command = 10223, .text = "请先定义项目大类!", .change = noClasses},
    {.command = 10223, .text = "没有查到符合要求的科目编号。", .change = "UPDATE Code SET bEnd = 1"},
    {.command = 10223, .text = "项目名称不能为空。", .values = {{Key::account, "1405"}}},
    {.command = 10223,
     .text = "该项目大类下没有该项目.",
     .values = {{Key::account, "1405"}, {Key::project, "没有的项目"}}},
    {.command = 10223,
     .text = "非法的部门名称.",
     .values = {{Key::account, "1405"}, {Key::project, "一号厂房"}, {Key::dept, "没有的部"}}},
};

// A list has no entry of that text.
RefusalCase unlisted(int command, std::string_view text, Values values, std::string_view listed = {}) {
  return {.command = command, .text = text, .values = std::move(values), .listed = listed, .unlisted = true};
}

constexpr std::string_view everyDept = "可用：全部、销售部、采购部、财务部";

const std::vector<RefusalCase> ofLists = {
    unlisted(10197, "没有“1221”，请从列表中选择。", {{Key::unit, "江源机械"}, {Key::accountFrom, "1221"}}),
    unlisted(10197, "没有“999”，请从列表中选择。", {{Key::unit, "江源机械"}, {Key::accountTo, "999"}}),
    unlisted(10205, "没有“没有的分类”，请从列表中选择。", {{Key::account, "112201"}, {Key::unitClass, "没有的分类"}},
             "可用：其它"),
    unlisted(10206, "没有“没有的部”，请从列表中选择。", {{Key::account, "112201"}, {Key::dept, "没有的部"}},
             "可用：销售部、采购部、财务部"),
    unlisted(10207, "没有“999”，请从列表中选择。", {{Key::account, "112201"}, {Key::projectTo, "999"}}),
    unlisted(10210, "没有“没有的人”，请从列表中选择。", {{Key::account, "112201"}, {Key::clerk, "没有的人"}},
             "可用：其它"),
    unlisted(10215, "没有“RD”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectClass, "RD"}}, "可用：01"),
    unlisted(10215, "没有“999”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectTo, "999"}}),
    unlisted(10216, "没有“XX”，请从列表中选择。", {{Key::projectClass, "XX"}}, "可用：01、RD"),
    unlisted(10216, "没有“没有的部”，请从列表中选择。", {{Key::dept, "没有的部"}}, everyDept),
    unlisted(10217, "没有“没有的部”，请从列表中选择。",
             {{Key::account, "140501"}, {Key::project, "一号厂房"}, {Key::dept, "没有的部"}}, everyDept),
    unlisted(10218, "没有“没有的部”，请从列表中选择。", {{Key::account, "500101"}, {Key::dept, "没有的部"}}, everyDept),
    unlisted(10218, "没有“RD”，请从列表中选择。", {{Key::account, "500101"}, {Key::projectClass, "RD"}}, "可用：01"),
    unlisted(10219, "没有“RD”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectClass, "RD"}}, "可用：01"),
    unlisted(10219, "没有“999”，请从列表中选择。", {{Key::account, "140501"}, {Key::projectFrom, "999"}}),
    unlisted(10222, "没有“RD”，请从列表中选择。", {{Key::account, "500101"}, {Key::projectClass, "RD"}}, "可用：01"),
};

const std::vector<RefusalCase> ofUnits = {
    {.command = 10203, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10204, .text = "没有单位核算科目！", .change = noAccounts},
    {.command = 10204, .text = "单位不能为空"},
    {.command = 10204, .text = "非法的单位", .values = {{Key::unit, "没有的单位"}}},
    {.command = 10205, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10206, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10207, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10208, .text = "没有符合条件的科目!", .change = noAccounts},
    {.command = 10208, .text = "请输入单位", .values = {{Key::account, "112201"}}},
    {.command = 10208, .text = "非法的单位", .values = {{Key::account, "112201"}, {Key::unit, "没有的单位"}}},
    {.command = 10209, .text = "没有单位核算上级科目！", .change = "UPDATE Code SET bEnd = 1"},
    {.command = 10209, .text = "非法的单位", .values = {{Key::account, "1122"}, {Key::unit, "没有的单位"}}},
    {.command = 10210, .text = "没有符合条件的科目!", .change = noAccounts},
};

const std::vector<RefusalCase> ofClearing = {
    {.command = 10192, .text = "没有个人两清数据,不能查", .change = noAccounts},
    {.command = 10192,
     .text = "没有查到符合要求的科目。",
     .values = {{Key::dept, "销售部"}, {Key::person, "张三"}},
     .accountErased = true},
    {.command = 10192, .text = "部门不能为空,请重新输入。", .values = {{Key::account, "122101"}}},
    {.command = 10192,
     .text = "非法的部门，请重新输入。",
     .values = {{Key::account, "122101"}, {Key::dept, "没有的部"}}},
    {.command = 10192,
     .text = "非法的人员,请重新输入。",
     .values = {{Key::account, "122101"}, {Key::dept, "销售部"}, {Key::person, "没有的人"}}},
    {.command = 10192,
     .text = "该用户不属于该部门，请重新输入其他名字。",
     .values = {{Key::account, "122101"}, {Key::dept, "销售部"}, {Key::person, "李四"}}},
    {.command = 10211, .text = "没有查到符合要求的科目。", .change = noAccounts},
    {.command = 10211, .text = "非法的单位", .values = {{Key::account, "112201"}, {Key::unit, "没有的单位"}}},
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
  for (const auto* part :
       {&ofPersons, &ofDepartments, &ofProjects, &ofUnits, &ofLists, &ofBalances, &ofProjectGenerals, &ofClearing}) {
    cases.insert(cases.end(), part->begin(), part->end());
  }
  addPersonCases(cases, 10188, "");
  addPersonCases(cases, 10190, "122101");
  addPersonCases(cases, 10191, "1221");
  addPersonTableCases(cases, 10187, "");
  addPersonTableCases(cases, 10189, "122101");
  return cases;
}

void fillRefusalLedger(TestLedger& ledger, std::string_view change) {
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
  for (std::size_t end = 0; !change.empty(); change.remove_prefix(std::min(end, change.size() - 1) + 1)) {
    end = change.find(';');
    ledger.keeper().execute(Sql(change.substr(0, end)));
  }
}

}  // namespace tz::test
