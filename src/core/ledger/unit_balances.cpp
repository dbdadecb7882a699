// The balance tables of the unit area.
#include <fmt/format.h>

#include "core/ledger/balance_drill.h"
#include "core/ledger/balance_find.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/detail_controls.h"
#include "core/ledger/period_report.h"

namespace tz {
namespace unit_balances {
namespace {

constexpr std::string_view unitAccounts = "sAssBook LIKE '%B%' AND lId>0 ORDER BY sCode";

constexpr Message noAccountOfUnits{"没有涉及单位往来的科目！"};
constexpr Message noUnits{"请先定义单位"};
constexpr Message noUnitClasses{"没有单位分类!"};
constexpr Message unitEmpty{"单位不能为空"};
constexpr Message unitUnknown{"非法的单位"};
constexpr Message unitEmptyLoud{"单位不能为空!"};
constexpr Message unitUnknownLoud{"非法的单位!"};

constexpr ControlSpec grouping{.kind = controls::Kind::analysis,
                               .key = ParameterKey::unitGrouping,
                               .id = 2465,
                               .companion = 2466,
                               .caption = "统计方式"};
constexpr ControlSpec projects{.kind = controls::Kind::projectRange,
                               .key = ParameterKey::projectFrom,
                               .id = 2208,
                               .companion = 2209,
                               .caption = "项目范围>>",
                               .unfoldedCaption = "项目范围>>"};

constexpr ControlSpec accounts{.kind = controls::Kind::accountRange,
                               .key = ParameterKey::accountFrom,
                               .id = 2203,
                               .companion = 2204,
                               .caption = "科目范围>>",
                               .unfoldedCaption = "科目范围>>",
                               .accountWhere = unitAccounts};

constexpr Check amountsInOrder{
    .passes = checks::rangeInOrder, .message = messages::amountRangeInvalid, .about = ParameterKey::maximum};

constexpr Controls ofAllUnits = {controls::account, controls::months,   controls::amountRange,
                                 controls::side,    controls::unposted, controls::creditLimit};

std::string ofAccount(const Conditions& c) { return fmt::format("\n科  目: {}", c.accountText()); }

Sql allUnits(const Conditions& /*conditions*/) { return "lEnterId <> 0"; }
Sql oneUnit(const Conditions& c) { return Sql("lEnterId = ? AND lEnterId <> 0", c.unit.lId); }
Sql unitsWithProjects(const Conditions& c) {
  return (c.unit.lId == 0 ? allUnits(c) : oneUnit(c)) + " AND " + projectsOf(c.projects);
}

// The ledger of a unit lists accounts of units alone. Where that covers the range, it shows just these accounts; else
// it shows all, among which the row's stands as well.
DrillAnswer unitLedgerOf(const DrillRule& rule, const DrillPlace& place) {
  auto answer = memberTarget(rule, place);
  auto* leadsTo = std::get_if<DetailTarget>(&answer);
  const Conditions& c = place.conditions;
  if (leadsTo == nullptr || c.accountRange.all) return answer;
  std::string picked;
  bool covers = false;
  for (const auto& account : c.accountRange.accounts) {
    if (account.bEnd == 0 || !account.keeps('B')) continue;
    if (account.sAssBook != "B") return answer;
    picked += (picked.empty() ? "" : "\n") + account.sCode;
    covers = covers || account.lId == place.shown.subjects.of(place.row).account;
  }
  if (covers) leadsTo->conditions.set(ParameterKey::account, picked);
  return answer;
}

constexpr BalanceGrouping byAccount = {
    .levels = {{.entity = Entity::account}},
    .keys = {{.caption = "科目编码", .level = 0, .code = true}, {.caption = "科目名称", .level = 0}}};

constexpr FindRule findUnitAccount = finds::findAccount(932, 8083, 8085, unitAccounts, finds::unitNotFound);
constexpr FindRule findUnitClass = finds::findBy(
    950, {.kind = finds::Kind::unitClassCombo, .key = ParameterKey::unitClass, .id = 2210, .caption = "分  类:"},
    finds::unitNotFound);
constexpr FindRule findUnitDept = finds::findBy(948,
                                                {.kind = finds::Kind::deptReference,
                                                 .key = ParameterKey::dept,
                                                 .id = 8052,
                                                 .companion = 8048,
                                                 .caption = "部  门:"},
                                                finds::unitNotFound);
// The two columns of names as the grouping has them.
constexpr FindRule unitAndProject(int unitColumn, int projectColumn) {
  return {.dialog = {.id = 131,
                     .title = finds::findTitle,
                     .controls = {{.kind = finds::Kind::unitReference,
                                   .key = ParameterKey::unit,
                                   .id = 2115,
                                   .companion = 2028,
                                   .caption = "单  位："},
                                  {.kind = finds::Kind::projectReference,
                                   .key = ParameterKey::project,
                                   .id = 2117,
                                   .companion = 2015,
                                   .caption = "项  目："}}},
          .columns = {unitColumn, projectColumn},
          .notFound = finds::unitNotFound};
}
constexpr std::array findUnitAndProject = {unitAndProject(0, 1), unitAndProject(1, 0)};

constexpr auto accountTable = balance(
    {
        .command = 10196,
        .area = Area::unit,
        .right = 77,
        .rightName = "科目余额表",
        .window = 715,
        .windowTitle = "单位往来_科目余额表",
        .paintedTitle = "科 目 余 额 表",
        .printTitle = "科目余额表",
        .purpose =
            "按科目汇总往来余额时用：应收（或应付）帐款下各明细科目与全部单位还有多少没有结清，与总帐科目余额核对"
            "。",
        .about = "一个科目下各末级科目的单位往来余额，每个科目一行，是全部单位之和，最后是合计。包含未记帐凭证时，起始"
                 "月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 707,
                .title = "单位往来_科目余额表",
                .accountWhere = unitAccounts,
                .noAccount = noAccountOfUnits,
                .controls = ofAllUnits,
                .checks = {amountsInOrder},
            },
        .toolbar = unitTableToolbar,
        .subtitle = ofAccount,
        .detail = memberTo(10203),
        .find = always<findUnitAccount>,
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = allUnits},
        .groupings = {byAccount},
        .earlierUnposted = true,
        .byCode = true,
        .order = alongUnits,
    });

constexpr auto unitTable = balance(
    {
        .command = 10197,
        .area = Area::unit,
        .right = 77,
        .rightName = "单位余额表",
        .window = 709,
        .windowTitle = "单位往来_单位余额表(详细)",
        .paintedTitle = "单 位 往 来 余 额 表",
        .printTitle = "单位往来余额表",
        .purpose =
            "与一个单位对帐前用：它在所有往来科目上各有多少余额，净额是应收还是应付；打开信用额度，可以看到是否超"
            "额。",
        .about = "一个单位的往来余额，每个科目一行，最后是合计；可以只查一个范围的科目，按编码，两端都包括，终止科目含"
                 "其下级。科目的余额方向各不相同，合计按借为正、贷为负"
                 "相加。包含未记帐凭证时，起始月份以前的未记帐分录加进期初。显示信用额度时每行与单位的额度比较。",
        .dialog =
            {
                .id = 708,
                .title = "单位往来_单位余额表",
                .controls = {controls::unit, controls::months, controls::amountRange, controls::side, accounts,
                             controls::unposted, controls::creditLimit},
                .checks =
                    {
                        {.passes = checks::unitsDefined,
                         .message = noUnits,
                         .about = ParameterKey::unit,
                         .atOpening = true},
                        {.passes = checks::unitGiven, .message = unitEmptyLoud, .about = ParameterKey::unit},
                        {.passes = checks::unitKnown, .message = unitUnknownLoud, .about = ParameterKey::unit},
                        amountsInOrder,
                    },
                .choices = {choices::accountRange},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n单  位: {}", c.unit.sEnterName); },
        .detail = {.reports = {10204}, .checks = memberChecks, .target = unitLedgerOf},
        .find = always<findUnitAccount>,
    },
    {
        .selects = {.accounts = accountsInRange, .dimension = oneUnit},
        .groupings = {byAccount},
        .earlierUnposted = true,
        .order = alongUnits,
    });

constexpr auto classTable = balance(
    {
        .command = 10198,
        .area = Area::unit,
        .right = 77,
        .rightName = "分类余额表",
        .window = 711,
        .windowTitle = "单位往来_分类余额表",
        .paintedTitle = "分 类 余 额 表",
        .printTitle = "分类余额表",
        .purpose = "按客户或供应商的分类（国内、国外、关联企业……）看往来余额时用，写往来分析和报表附注也取自这里。",
        .about =
            "一个科目（含下级科目）的单位往来余额，每个单位分类一行，没有分类的单位在“其它”，排在最后，然后是合计。"
            "包含未记帐凭证时，起始月份以前的未记帐分录加进期初。信用额度是分类中全部单位的额度之和。",
        .dialog =
            {
                .id = 703,
                .title = "单位往来_分类余额表",
                .accountWhere = unitAccounts,
                .noAccount = noAccountOfUnits,
                .controls = ofAllUnits,
                .checks =
                    {
                        {.passes = checks::accountsOffered,
                         .message = noAccountOfUnits,
                         .about = ParameterKey::account,
                         .atOpening = true},
                        {.passes = checks::unitsDefined,
                         .message = noUnits,
                         .about = ParameterKey::account,
                         .atOpening = true},
                        amountsInOrder,
                        {.passes = checks::unitClassesDefined,
                         .message = noUnitClasses,
                         .about = ParameterKey::account},
                    },
            },
        .toolbar = unitTableToolbar,
        .subtitle = ofAccount,
        .detail = memberTo(10205, fillUnitClass),
        .find = always<findUnitClass>,
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = allUnits},
        .groupings = {{.levels = {{.entity = Entity::unitClass}}, .keys = {{.caption = "单位分类", .level = 0}}}},
        .earlierUnposted = true,
        .order = alongUnits,
    });

constexpr auto deptTable = balance(
    {
        .command = 10199,
        .area = Area::unit,
        .right = 77,
        .rightName = "部门余额表",
        .window = 713,
        .windowTitle = "单位往来_部门余额表",
        .paintedTitle = "部 门 余 额 表",
        .printTitle = "部门余额表",
        .purpose = "看往来余额落在哪些部门时用：应收帐款考核到部门，就以这张表为准。",
        .about =
            "一个科目（含下级科目）的单位往来余额，每个部门一行，最后是合计；没有部门的余额合为一行，部门空着。包含未"
            "记帐凭证时，起始月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 705,
                .title = "单位往来_部门余额表",
                .accountWhere = unitAccounts,
                .controls = ofAllUnits,
                .checks = {amountsInOrder},
            },
        .toolbar = unitTableToolbar,
        .subtitle = ofAccount,
        .detail = memberOfDeptTo(10206),
        .find = always<findUnitDept>,
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = allUnits},
        .groupings = {{.levels = {{.entity = Entity::dept}}, .keys = {{.caption = "部门名称", .level = 0}}}},
        .earlierUnposted = true,
        .order = alongUnits,
    });

constexpr auto projectTable = balance(
    {
        .command = 10200,
        .area = Area::unit,
        .right = 77,
        .rightName = "项目余额表",
        .window = 714,
        .windowTitle = "单位往来_项目余额表",
        .paintedTitle = "项 目 余 额 表",
        .printTitle = "项目余额表",
        .purpose =
            "合同或工程项目的往来要分单位、分项目核对时用：一个单位的各个项目欠了多少，或一个项目有哪些单位没有结"
            "清。",
        .about =
            "一个科目（含下级科目）上各单位各项目的往来余额，按单位或按项目分组，每组有小计，最后是合计；可以只查一个"
            "单位，或一个范围内的项目。包含未记帐凭证时，起始月份以前的未记帐分录加进期初。",
        .exampleAccount = "220202",
        .dialog =
            {
                .id = 706,
                .title = "单位往来_项目余额表",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::unitOrAll, controls::months, controls::amountRange,
                             controls::side, grouping, projects, controls::unposted, controls::creditLimit},
                .checks =
                    {
                        {.passes = checks::unitKnownOrAll, .message = unitUnknown, .about = ParameterKey::unit},
                        amountsInOrder,
                    },
                .choices = {choices::projectRange},
            },
        .toolbar = unitTableToolbar,
        .subtitle = ofAccount,
        .detail = memberTo(10207),
        .find = [](const Conditions& c) -> const FindRule& {
          return findUnitAndProject.at(c.request.choice(ParameterKey::unitGrouping));
        },
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = unitsWithProjects},
        .groupings = {{.levels = {{.entity = Entity::unit, .subtotal = "小计"}, {.entity = Entity::project}},
                       .keys = {{.caption = "单位名称", .level = 0}, {.caption = "项目名称", .level = 1}}},
                      {.levels = {{.entity = Entity::project, .subtotal = "小计"}, {.entity = Entity::unit}},
                       .keys = {{.caption = "项目名称", .level = 0}, {.caption = "单位名称", .level = 1}}}},
        .grouping = [](const Conditions& c) { return c.request.choice(ParameterKey::unitGrouping); },
        .earlierUnposted = true,
        .order = alongUnits,
    });

constexpr auto clerkTable = balance(
    {
        .command = 10202,
        .area = Area::unit,
        .right = 77,
        .rightName = "业务员余额表",
        .window = 712,
        .windowTitle = "单位往来_业务员余额表",
        .paintedTitle = "业 务 员 余 额 表",
        .printTitle = "业务员余额表",
        .purpose = "考核业务员收款时用：各人经手的往来本期增加多少、收回多少、期末还有多少。",
        .about =
            "一个科目（含下级科目）的单位往来余额，每个业务员一行，没有业务员的分录在“其它”，排在最后，然后是合计。"
            "余额不记业务员，所以期初是起始月份以前的已记帐分录（含期初凭证）之和，发生额也由分录加出。包含未记帐凭证"
            "时，起始月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 704,
                .title = "单位往来_业务员余额表",
                .accountWhere = unitAccounts,
                .controls = ofAllUnits,
                .checks = {amountsInOrder},
            },
        .toolbar = toolbarWithoutFind,
        .subtitle = ofAccount,
        .detail = memberTo(10210, fillClerk),
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = allUnits},
        .groupings = {{.levels = {{.entity = Entity::clerk}}, .keys = {{.caption = "业务员", .level = 0}}}},
        .opening = BalanceOpening::lines,
        .earlierUnposted = true,
        .order = alongUnits,
    });

constexpr auto threeColumnTable = periods(
    {
        .command = 10201,
        .area = Area::unit,
        .right = 77,
        .rightName = "三栏式余额表",
        .window = 710,
        .windowTitle = "单位往来_三栏式余额表",
        .paintedTitle = "三 栏 式 余 额 表",
        .printTitle = "三栏式余额表",
        .purpose = "看一个单位的往来逐月怎样变化时用：哪些月份只有发货没有回款，余额是在上升还是下降。",
        .about = "一个单位在一个科目（含下级科目）上逐月的往来余额。显示信用额度时每行的余额与单位的额度比较。",
        .dialog =
            {
                .id = 702,
                .title = "单位往来_三栏式余额表",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::unit, controls::months, controls::unposted,
                             controls::creditLimit},
                .checks =
                    {
                        {.passes = checks::unitGiven, .message = unitEmpty, .about = ParameterKey::unit},
                        {.passes = checks::unitKnown, .message = unitUnknown, .about = ParameterKey::unit},
                    },
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科  目: {}\n单  位: {}", c.accountText(), c.unit.sEnterName);
            },
        .detail = periodTo(10208),
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = oneUnit},
        .order = alongUnits,
        .yearTotals = true,
    });

constexpr std::array tables = {&accountTable, &unitTable, &classTable, &deptTable, &projectTable, &clerkTable};
constexpr std::array threeColumnTables = {&threeColumnTable};

}  // namespace
}  // namespace unit_balances

std::span<const BalanceReport* const> unitBalances() { return unit_balances::tables; }
std::span<const PeriodReport* const> unitPeriods() { return unit_balances::threeColumnTables; }

}  // namespace tz
