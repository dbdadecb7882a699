// The general ledgers of the department area.
#include <fmt/format.h>

#include "core/ledger/balance_drill.h"
#include "core/ledger/balance_find.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/detail_controls.h"
#include "core/ledger/period_report.h"

namespace tz {
namespace department_generals {
namespace {

constexpr std::string_view deptAccountsInCombo = "sAssBook LIKE '%C%' ORDER BY sCode";

constexpr Message noDeptAccount{"没有部门核算科目！"};
constexpr Message deptEmpty{"部门不能为空，请重新输入。"};
constexpr Message deptUnknown{"没有该部门，请重新输入。"};

constexpr std::array knownDept = {
    Check{.passes = checks::deptGiven, .message = deptEmpty, .about = ParameterKey::dept},
    Check{.passes = checks::deptKnown, .message = deptUnknown, .about = ParameterKey::dept},
};

Sql oneDept(const Conditions& c) { return Sql("lDeptId = ? AND lDeptId <> 0", c.dept.lDeptId); }

constexpr FindRule findDept = finds::findBy(907,
                                            {.kind = finds::Kind::deptReference,
                                             .key = ParameterKey::dept,
                                             .id = 1033,
                                             .companion = 1022,
                                             .caption = "部  门:",
                                             .label = 1064},
                                            finds::deptNotFound, finds::choose);
constexpr FindRule findAccountOfDept = finds::findAccount(908, 1064, 8036, deptAccountsInCombo, finds::accountNotFound);

constexpr auto accountLedger = balance(
    {
        .command = 10226,
        .area = Area::department,
        .right = 10,
        .rightName = "科目总帐",
        .window = 537,
        .windowTitle = "部门管理_科目总帐",
        .paintedTitle = "科 目 总 帐",
        .printTitle = "科目总帐",
        .purpose = "看一项费用或收入在各部门之间怎样分布时用：例如差旅费各部门本月发生多少、累计余额多少。",
        .about =
            "一个科目（含下级科目）在各部门的总帐，每个部门一行，最后是合计。没有部门的余额不列入。包含未记帐凭证时，"
            "起始月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 532,
                .title = "部门管理_科目总帐",
                .accountWhere = deptAccountsInCombo,
                .noAccount = noDeptAccount,
                .controls = {controls::account, controls::months, controls::unposted},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科  目:{}", c.accountText()); },
        .detail = memberTo(10229),
        .find = always<findDept>,
    },
    {
        .selects = {.accounts = chosenAccount,
                    .dimension = [](const Conditions&) { return Sql("lDeptId > 0 AND lDeptId <> 0"); }},
        .groupings = {{.levels = {{.entity = Entity::dept}}, .keys = {{.caption = "部门名称", .level = 0}}}},
        .opening = BalanceOpening::latestRecord,
        .earlierUnposted = true,
        .order = alongDepts,
    });

constexpr auto deptLedger = balance(
    {
        .command = 10227,
        .area = Area::department,
        .right = 10,
        .rightName = "部门总帐",
        .window = 536,
        .windowTitle = "部门管理_部门总帐",
        .paintedTitle = "部 门 总 帐",
        .printTitle = "部门总帐",
        .purpose = "看一个部门的全部收支时用：它在每个部门核算科目上的期初、发生额和期末，一张表列全。",
        .about =
            "一个部门在全部部门核算科目上的总帐，每个科目一行，最后是合计。科目的余额方向各不相同，合计按借为正、贷为"
            "负相加。包含未记帐凭证时只加查询月份内的未记帐分录，期初不变。",
        .dialog =
            {
                .id = 533,
                .title = "部门管理_部门总帐",
                .controls = {controls::dept, controls::months, controls::unposted},
                .checks = knownDept,
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n部  门: {}", c.dept.sDeptName); },
        .detail = memberTo(10230),
        .find = always<findAccountOfDept>,
    },
    {
        .selects = {.accounts = deptAccounts, .dimension = oneDept},
        .groupings = {{.levels = {{.entity = Entity::account}},
                       .keys = {{.caption = "科目编码", .level = 0, .code = true},
                                {.caption = "科目名称", .level = 0}}}},
        .order = alongDepts,
    });

constexpr auto threeColumnLedger = periods(
    {
        .command = 10228,
        .area = Area::department,
        .right = 10,
        .rightName = "三栏式总帐",
        .window = 535,
        .windowTitle = "部门管理_三栏式总帐",
        .paintedTitle = "三 栏 式 总 帐",
        .printTitle = "部门三栏式总帐",
        .purpose = "看一个部门的一项费用在一年里怎样变化时用：逐月的发生额和余额。",
        .about = "一个部门在一个科目（含下级科目）上全年逐月的总帐。",
        .dialog =
            {
                .id = 534,
                .title = "部门管理_三栏式总帐",
                .accountWhere = deptAccountsInCombo,
                .noAccount = noDeptAccount,
                .controls = {controls::account, controls::dept, controls::unposted},
                .checks = knownDept,
            },
        .toolbar = toolbarWithoutFind,
        .subtitle =
            [](const Conditions& c) { return fmt::format("部  门:{}\n科  目:{}", c.dept.sDeptName, c.accountText()); },
        .detail = periodTo(10231),
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = oneDept},
        .order = alongDepts,
    });

constexpr std::array ledgers = {&accountLedger, &deptLedger};
constexpr std::array threeColumnLedgers = {&threeColumnLedger};

}  // namespace
}  // namespace department_generals

std::span<const BalanceReport* const> departmentGenerals() { return department_generals::ledgers; }
std::span<const PeriodReport* const> departmentPeriods() { return department_generals::threeColumnLedgers; }

}  // namespace tz
