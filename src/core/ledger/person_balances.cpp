// The balance tables of the person area.
#include <fmt/format.h>

#include "core/ledger/balance_drill.h"
#include "core/ledger/balance_find.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/detail_controls.h"
#include "core/ledger/period_report.h"

namespace tz {
namespace person_balances {
namespace {

constexpr std::string_view personAccounts = "sAssBook LIKE '%A%' AND lId>0 ORDER BY sCode";

constexpr Message noAccountTable{"没有个人核算科目，不能查询个人科目余额表。"};
constexpr Message noDeptTable{"没有个人核算科目，不能查询个人部门余额表。"};
constexpr Message noThreeColumnTable{"没有个人核算科目，不能查询个人三栏式余额表。"};
constexpr Message deptEmpty{"部门不能为空，请重新输入!"};
constexpr Message deptUnknown{"非法的部门!"};
constexpr Message deptWithoutActivity{"没有查到该部门的个人往来记录"};
constexpr Message deptEmptyWide{"部门不能为空，请重新输入！"};
constexpr Message personEmpty{"姓名不能为空，请重新输入！"};
constexpr Message personOfOtherDept{"该用户不属于该部门."};

constexpr Check amountsInOrder{
    .passes = checks::rangeInOrder, .message = messages::amountRangeInvalid, .about = ParameterKey::maximum};

// The two dialogs that ask for a person have no words of their own for a name that is unknown.
constexpr std::array deptAndPerson = {
    Check{.passes = checks::deptGiven, .message = deptEmptyWide, .about = ParameterKey::dept},
    Check{.passes = checks::deptKnown, .message = deptWithoutActivity, .about = ParameterKey::dept},
    Check{.passes = checks::deptActive, .message = deptWithoutActivity, .about = ParameterKey::dept},
    Check{.passes = checks::personGiven, .message = personEmpty, .about = ParameterKey::person},
    Check{.passes = checks::personOfDept, .message = personOfOtherDept, .about = ParameterKey::person},
};

Sql onePerson(const Conditions& c) {
  return Sql("lDeptId = ? AND lPersonId = ? AND lPersonId <> 0", c.dept.lDeptId, c.person.lId);
}

constexpr FindRule findDeptAndPerson{.dialog = {.id = 917,
                                                .title = finds::findTitle,
                                                .controls = {{.kind = finds::Kind::deptReference,
                                                              .key = ParameterKey::dept,
                                                              .id = 8052,
                                                              .companion = 2006,
                                                              .caption = "部门"},
                                                             {.kind = finds::Kind::personReference,
                                                              .key = ParameterKey::person,
                                                              .id = 1014,
                                                              .companion = 8063,
                                                              .caption = "个人"}},
                                                .group = finds::choose},
                                     .columns = {0, 1},
                                     .notFound = finds::personNotFound};
constexpr FindRule findPerson = finds::findBy(
    932, {.kind = finds::Kind::personCombo, .key = ParameterKey::person, .id = 8085, .caption = "个人", .label = 8083},
    finds::personNotFound, finds::choose);
constexpr FindRule findAccountOfPerson = finds::findAccount(932, 8083, 8085, personAccounts, finds::accountNotFound);

constexpr auto accountTable = balance(
    {
        .command = 10183,
        .area = Area::person,
        .right = 3,
        .rightName = "科目余额表",
        .window = 506,
        .windowTitle = "个人往来_科目余额表",
        .paintedTitle = "科 目 余 额 表",
        .printTitle = "科目余额表",
        .purpose =
            "月末核对备用金、职工借款等个人往来时用：一个科目上谁还欠公司、公司还欠谁、各是多少，一页看全。清理往"
            "来前先看这张表，再从有余额的人进入他的明细帐。",
        .about = "一个科目（含下级科目）的个人往来余额，每个部门的每个人一行，按部门、再按个人排列，最后是合计。没有"
                 "个人的余额不列入。包含未记帐凭证时，起始月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 502,
                .title = "个人往来_科目余额表",
                .accountWhere = personAccounts,
                .noAccount = noAccountTable,
                .controls = {controls::account, controls::months, controls::amountRange, controls::side,
                             controls::unposted},
                .checks = {amountsInOrder},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科目：{}", c.accountText()); },
        .detail = memberTo(10184),
        .find = always<findDeptAndPerson>,
    },
    {
        .selects = {.accounts = chosenAccount,
                    .dimension = [](const Conditions&) { return Sql("lDeptId > 0 AND lPersonId > 0"); }},
        .groupings = {{.levels = {{.entity = Entity::dept}, {.entity = Entity::person}},
                       .keys = {{.caption = "部门名称", .level = 0}, {.caption = "姓名", .level = 1}}}},
        .earlierUnposted = true,
        .order = alongPersons,
    });

constexpr auto deptTable = balance(
    {
        .command = 10185,
        .area = Area::person,
        .right = 3,
        .rightName = "部门余额表",
        .window = 507,
        .windowTitle = "个人往来_部门余额表",
        .paintedTitle = "部 门 余 额 表",
        .printTitle = "部门余额表",
        .purpose = "部门经理问“我们部门的人还有多少借款没还”时用：只列一个部门的人在一个科目上的余额。",
        .about = "一个部门在一个科目（含下级科目）上的个人往来余额，每人一行，最后是合计。包含未记帐凭证时只加查询月份"
                 "内的未记帐分录，期初不变。",
        .dialog =
            {
                .id = 503,
                .title = "个人往来_部门余额表",
                .accountWhere = personAccounts,
                .noAccount = noDeptTable,
                .controls = {controls::account, controls::dept, controls::months, controls::amountRange, controls::side,
                             controls::unposted},
                .checks =
                    {
                        {.passes = checks::deptGiven, .message = deptEmpty, .about = ParameterKey::dept},
                        {.passes = checks::deptKnown, .message = deptUnknown, .about = ParameterKey::dept},
                        {.passes = checks::deptPersonsActive,
                         .message = deptWithoutActivity,
                         .about = ParameterKey::dept},
                        amountsInOrder,
                    },
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("科目：{}\n部门：{}", c.accountText(), c.dept.sDeptName); },
        .detail = memberTo(10186),
        .find = always<findPerson>,
    },
    {
        .selects = {.accounts = chosenAccount,
                    .dimension =
                        [](const Conditions& c) { return Sql("lDeptId = ? AND lPersonId > 0", c.dept.lDeptId); }},
        .groupings = {{.levels = {{.entity = Entity::person}}, .keys = {{.caption = "姓名", .level = 0}}}},
        .order = alongPersons,
    });

constexpr auto personTable = balance(
    {
        .command = 10187,
        .area = Area::person,
        .right = 3,
        .rightName = "个人余额表",
        .window = 508,
        .windowTitle = "个人往来_个人余额表",
        .paintedTitle = "个 人 余 额 表",
        .printTitle = "个人余额表",
        .purpose = "一个人离职、调动或要对帐时用：他在全部往来科目上各有多少余额，合起来欠还是多。",
        .about = "一个人在全部科目上的往来余额，每个科目一行，最后是合计。科目的余额方向各不相同，合计按借为正、贷为负"
                 "相加。包含未记帐凭证时只加查询月份内的未记帐分录，期初不变。",
        .dialog =
            {
                .id = 504,
                .title = "个人往来_个人余额表查询条件",
                .controls = {controls::dept, controls::person, controls::months, controls::amountRange, controls::side,
                             controls::unposted},
                .checks = {deptAndPerson[0], deptAndPerson[1], deptAndPerson[2], deptAndPerson[3], deptAndPerson[4],
                           amountsInOrder},
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("部门：{}\n个人：{}", c.dept.sDeptName, c.person.sName); },
        .detail = memberTo(10188),
        .find = always<findAccountOfPerson>,
    },
    {
        .selects = {.dimension = onePerson},
        .groupings = {{.levels = {{.entity = Entity::account}},
                       .keys = {{.caption = "科目编码", .level = 0, .code = true},
                                {.caption = "科目名称", .level = 0}}}},
        .order = alongPersons,
    });

constexpr auto threeColumnTable = periods(
    {
        .command = 10189,
        .area = Area::person,
        .right = 3,
        .rightName = "三栏式余额表",
        .window = 509,
        .windowTitle = "个人往来_三栏式余额表",
        .paintedTitle = "三 栏 式 余 额 表",
        .printTitle = "三栏式余额表",
        .purpose =
            "看一个人的往来在一年里怎样变化时用：每月借了多少、还了多少、月末还剩多少。哪个月起没有动静，一眼就看"
            "得到。",
        .about = "一个人在一个科目（含下级科目）上全年逐月的往来余额。",
        .dialog =
            {
                .id = 505,
                .title = "个人往来_三栏式余额表",
                .accountWhere = personAccounts,
                .noAccount = noThreeColumnTable,
                .controls = {controls::account, controls::dept, controls::person, controls::unposted},
                .checks = deptAndPerson,
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科目：{}\n部门：{}     个人：{}", c.accountText(), c.dept.sDeptName, c.person.sName);
            },
        .detail = periodTo(10190),
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = onePerson},
        .order = alongPersons,
        .yearTotals = true,
    });

constexpr std::array tables = {&accountTable, &deptTable, &personTable};
constexpr std::array threeColumnTables = {&threeColumnTable};

}  // namespace
}  // namespace person_balances

std::span<const BalanceReport* const> personBalances() { return person_balances::tables; }
std::span<const PeriodReport* const> personPeriods() { return person_balances::threeColumnTables; }

}  // namespace tz
