// The detail ledgers of the person area.
#include <fmt/format.h>

#include "core/ledger/detail_controls.h"
#include "core/ledger/detail_report.h"

namespace tz {
namespace person_details {
namespace {

constexpr std::string_view personAccounts = "sAssBook LIKE '%A%' AND lId>0 ORDER BY sCode";

constexpr Message deptEmpty{"部门不能为空，请重新输入！"};
constexpr Message deptUnknown{"非法的部门"};
constexpr Message deptUnknownLoud{"非法的部门！"};
constexpr Message deptWithoutActivity{"没有查到该部门的个人往来记录"};
constexpr Message personEmpty{"姓名不能为空，请重新输入！"};
constexpr Message personUnknown{"非法的姓名"};
constexpr Message personOfOtherDept{"该用户不属于该部门，请重新输入其他名字。"};
constexpr Message personWithoutActivity{"没有查到该部门此人的发生额"};
constexpr Message noAccountLedger{"没有个人核算科目，不能查询个人科目明细帐。"};
constexpr Message noDeptLedger{"没有个人核算科目,不能查询个人部门明细帐。"};
constexpr Message noThreeColumnLedger{"没有个人核算科目,不能查询个人三栏明细帐。"};
constexpr Message noMultiColumnLedger{"不能查询个人多栏式明细帐。"};

constexpr Checks personChecks = {
    {.passes = checks::deptGiven, .message = deptEmpty, .about = ParameterKey::dept},
    {.passes = checks::deptKnown, .message = deptUnknown, .about = ParameterKey::dept},
    {.passes = checks::deptActive, .message = deptWithoutActivity, .about = ParameterKey::dept},
    {.passes = checks::personGiven, .message = personEmpty, .about = ParameterKey::person},
    {.passes = checks::personKnown, .message = personUnknown, .about = ParameterKey::person},
    {.passes = checks::personOfDept, .message = personOfOtherDept, .about = ParameterKey::person},
    {.passes = checks::personActive, .message = personWithoutActivity, .about = ParameterKey::person},
};

Sql onePerson(const Conditions& c) {
  return Sql("lDeptId = ? AND lPersonId = ? AND lPersonId <> 0", c.dept.lDeptId, c.person.lId);
}

constexpr auto accountLedger = detail(
    {
        .command = 10184,
        .area = Area::person,
        .right = 4,
        .rightName = "科目明细帐",
        .window = 515,
        .windowTitle = "个人往来_科目明细帐",
        .paintedTitle = "科 目 明 细 帐",
        .printTitle = "个人往来明细帐",
        .purpose = "核对一个往来科目的全部发生额时用：把科目下每个人的借款、还款和报销逐笔列出，与总帐对得上。",
        .about = "一个科目（含下级科目）的个人往来逐笔明细，按部门、再按个人分段，段内按分录日期排列。每人一段"
                 "：个人期初、凭证、本月合计、本年累计、个人小计；每个部门有部门小计，最后是合计。没有个人的分"
                 "录不列入。",
        .dialog =
            {
                .id = 511,
                .title = "个人往来_科目明细帐",
                .accountWhere = personAccounts,
                .noAccount = noAccountLedger,
                .controls = {controls::account, controls::months, controls::unposted},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科  目:{}", c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions&) { return Sql("lDeptId <> 0 AND lPersonId <> 0"); },
                .groups = {{.entity = Entity::dept, .subtotal = "部门小计"},
                           {.entity = Entity::person, .subtotal = "个人小计"}},
                .order = "s.dtDate",
            },
        .openingCaption = "个人期初",
    });

constexpr auto deptLedger = detail(
    {
        .command = 10186,
        .area = Area::person,
        .right = 4,
        .rightName = "部门明细帐",
        .window = 516,
        .windowTitle = "个人往来_部门明细帐",
        .paintedTitle = "部 门 明 细 帐",
        .printTitle = "部门明细帐",
        .purpose = "一个部门的往来要逐笔交代时用：部门里每个人借过什么、还过什么。",
        .about = "一个部门在一个科目（含下级科目）上的个人往来逐笔明细，按个人分段，段内按分录日期排列。每人一"
                 "段，有个人期初和个人小计，最后是合计。",
        .dialog =
            {
                .id = 512,
                .title = "个人往来_部门明细帐",
                .accountWhere = personAccounts,
                .noAccount = noDeptLedger,
                .controls = {controls::account, controls::dept, controls::months, controls::unposted},
                .checks =
                    {
                        {.passes = checks::deptGiven, .message = deptEmpty, .about = ParameterKey::dept},
                        {.passes = checks::deptKnown, .message = deptUnknownLoud, .about = ParameterKey::dept},
                        {.passes = checks::deptPersonsActive,
                         .message = deptWithoutActivity,
                         .about = ParameterKey::dept},
                    },
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("科目：{}\n部门：{}", c.accountText(), c.dept.sDeptName); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions& c) { return Sql("lDeptId = ? AND lPersonId <> 0", c.dept.lDeptId); },
                .groups = {{.entity = Entity::person, .subtotal = "个人小计"}},
                .order = "s.dtDate",
            },
        .openingCaption = "个人期初",
    });

constexpr auto personLedger = detail(
    {
        .command = 10188,
        .area = Area::person,
        .right = 4,
        .rightName = "个人明细帐",
        .window = 517,
        .windowTitle = "个人往来_个人明细帐",
        .paintedTitle = "个 人 明 细 帐",
        .printTitle = "个人明细帐",
        .purpose = "与一个人对帐时用：他在所有往来科目上的每一笔，按科目分开，可以打印出来请本人签字。",
        .about = "一个人在全部科目上的往来逐笔明细，按科目分段，段内按分录日期排列。每个科目一段，有科目期初和"
                 "科目小计，最后是合计。科目的余额方向各不相同，小计与合计按借为正、贷为负相加。",
        .dialog =
            {
                .id = 510,
                .title = "个人往来_个人明细帐",
                .controls = {controls::dept, controls::person, controls::months, controls::unposted},
                .checks = personChecks,
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("部门：{}\n个人：{}", c.dept.sDeptName, c.person.sName); },
    },
    {
        .selects =
            {
                .dimension = onePerson,
                .groups = {{.entity = Entity::account, .subtotal = "科目小计"}},
                .order = "s.dtDate",
            },
        .openingCaption = "科目期初",
    });

constexpr auto threeColumnLedger = detail(
    {
        .command = 10190,
        .area = Area::person,
        .right = 4,
        .rightName = "三栏式明细帐",
        .window = 518,
        .windowTitle = "个人往来_三栏明细帐",
        .paintedTitle = "三 栏 式 明 细 帐",
        .printTitle = "三栏式明细帐",
        .purpose = "查一个人在一个科目上的帐时用：按日期一笔一笔列下来，每一笔后面都有余额。这是最常用的个人往来帐。",
        .about = "一个人在一个科目（含下级科目）上的往来逐笔明细，按分录日期排列，随时看到余额。",
        .dialog =
            {
                .id = 513,
                .title = "个人往来_三栏式明细帐",
                .accountWhere = personAccounts,
                .noAccount = noThreeColumnLedger,
                .controls = {controls::account, controls::dept, controls::person, controls::months, controls::unposted},
                .checks = personChecks,
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科目：{}\n部门：{}     个人：{}", c.accountText(), c.dept.sDeptName, c.person.sName);
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = onePerson,
                .order = "s.dtDate",
            },
        .openingCaption = "个人期初",
    });

constexpr auto multiColumnLedger = detail(
    {
        .command = 10191,
        .area = Area::person,
        .right = 4,
        .rightName = "多栏式明细帐",
        .window = 519,
        .windowTitle = "个人往来_多栏式明细帐",
        .paintedTitle = "多 栏 式 明 细 帐",
        .printTitle = "多栏式明细帐",
        .purpose = "往来科目设了下级（如备用金、借款、代垫款）时用：一个人的每一笔记在哪个下级科目上，右边分栏看清。",
        .about = "一个人在一个非末级科目上的往来逐笔明细，按分录日期排列，每个下级科目在右边各占一栏。",
        .dialog =
            {
                .id = 514,
                .title = "个人往来_多栏式明细帐",
                .accountWhere = "sAssBook LIKE '%A%' AND bEnd = 0 ORDER BY sCode",
                .noAccount = noMultiColumnLedger,
                .controls = {controls::account, controls::dept, controls::person, controls::months, controls::analysis,
                             controls::unposted},
                .checks = personChecks,
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("上级科目：{}\n部    门：{}     个人：{}", c.accountText(), c.dept.sDeptName,
                                 c.person.sName);
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = onePerson,
                .balancesOnly = "mBegin <> 0",
                .order = "s.dtDate",
            },
        .openingCaption = "部门期初",
        .columnFlag = 'A',
    });

constexpr std::array ledgers = {&accountLedger, &deptLedger, &personLedger, &threeColumnLedger, &multiColumnLedger};

}  // namespace
}  // namespace person_details

std::span<const DetailReport* const> personDetails() { return person_details::ledgers; }

}  // namespace tz
