// The general ledgers of the project area.
#include <fmt/format.h>

#include "core/ledger/balance_drill.h"
#include "core/ledger/balance_find.h"
#include "core/ledger/balance_report.h"
#include "core/ledger/detail_controls.h"
#include "core/ledger/period_report.h"

namespace tz {
namespace project_generals {
namespace {

constexpr std::string_view projectAccounts = "sAssBook IN ('D', 'CD', 'DC') ORDER BY sCode";
constexpr std::string_view deptProjectAccounts = "sAssBook IN ('CD', 'DC') ORDER BY sCode";

constexpr Message noProjectAccount{"没有项目核算科目！"};
constexpr Message noDeptProjectAccount{"没有部门项目核算科目！"};
constexpr Message noProjectOfClass{"没有查到符合要求的项目。"};
constexpr Message noProjectOfClassLoud{"没有查到符合要求的项目!"};
constexpr Message noDepts{"没有部门！"};
constexpr Message projectEmpty{"项目不能为空。"};
constexpr Message projectNotInClass{"该项目大类下没有该项目!"};

constexpr ControlSpec projects{.kind = controls::Kind::projectRange,
                               .key = ParameterKey::projectFrom,
                               .id = 2208,
                               .companion = 2209,
                               .caption = "项目范围"};
constexpr ControlSpec grouping{.kind = controls::Kind::analysis,
                               .key = ParameterKey::deptGrouping,
                               .id = 2467,
                               .companion = 2468,
                               .caption = "查询方式"};

constexpr Check projectsThere{
    .passes = checks::classHasProjects, .message = noProjectOfClass, .about = ParameterKey::projectClass};
constexpr Check classesThere{.passes = checks::classesDefined,
                             .message = messages::defineProjectClassFirst,
                             .about = ParameterKey::projectClass,
                             .atOpening = true};

constexpr PeriodForm printedClose{
    .text = months::text,
    .painted = months::painted,
    .printed = months::printedClose,
    .inFileName = months::inFileName,
    .inSubject = months::inSubject,
    .tells = ParameterKey::from,
};

std::string ofAccount(const Conditions& c) { return fmt::format("\n科目：{}", c.accountText()); }

Sql itemsOfDept(const Conditions& c) {
  const auto items = itemsOfClass(c);
  return c.dept.lDeptId == 0 ? items : items + Sql(" AND +lDeptId = ?", c.dept.lDeptId);
}

Sql itemsOfDepts(const Conditions& c) { return itemsOfDept(c) + " AND +lDeptId <> 0"; }

// By department, by project, or of one department alone.
std::size_t groupingOf(const Conditions& c) {
  constexpr std::size_t oneDept = 2;
  return c.dept.lDeptId == 0 ? c.request.choice(ParameterKey::deptGrouping) : oneDept;
}

constexpr FindRule findProjectOfAccount = finds::findBy(
    281, {.kind = finds::Kind::itemCombo, .key = ParameterKey::project, .id = 2208, .caption = "项    目:"},
    finds::productNotFound, {}, {}, "项目科目总帐查找");
constexpr FindRule findProject = finds::findBy(953,
                                               {.kind = finds::Kind::itemReference,
                                                .key = ParameterKey::project,
                                                .id = 8081,
                                                .companion = 8082,
                                                .caption = "项目："},
                                               finds::recordNotFound);
// What stands in the first column: departments, or projects.
constexpr FindRule findDeptOfLedger = finds::findBy(1928,
                                                    {.kind = finds::Kind::deptReference,
                                                     .key = ParameterKey::dept,
                                                     .id = 8081,
                                                     .companion = 8082,
                                                     .caption = "部门：",
                                                     .label = 8083},
                                                    finds::recordNotFound);
constexpr FindRule findProjectOfLedger = finds::findBy(2018,
                                                       {.kind = finds::Kind::itemReference,
                                                        .key = ParameterKey::project,
                                                        .id = 8081,
                                                        .companion = 8082,
                                                        .caption = "项目：",
                                                        .label = 8083},
                                                       finds::recordNotFound);

constexpr auto accountLedger = balance(
    {
        .command = 10215,
        .area = Area::project,
        .right = 16,
        .rightName = "科目总帐",
        .window = 889,
        .windowTitle = "项目管理_科目总帐",
        .paintedTitle = "科 目 总 帐",
        .printTitle = "项目科目总帐",
        .purpose = "看一个科目在各项目上的余额时用：例如生产成本在每个产品、在建工程在每项工程上各有多少。",
        .about =
            "一个科目（含下级科目）在一个项目大类的各项目上的总帐，每个项目一行，最后是合计。项目范围可限定项目编码的"
            "起止，两端都包括，空着的一端不限。包含未记帐凭证时，起始月份以前的未记帐分录加进期初。",
        .dialog =
            {
                .id = 804,
                .title = "项目管理_科目总帐",
                .accountWhere = projectAccounts,
                .noAccount = noProjectAccount,
                .controls = {controls::account, controls::classOfAccount, controls::months, projects,
                             controls::unposted},
                .checks =
                    {
                        {.passes = checks::classOfAccount,
                         .message = noProjectAccount,
                         .about = ParameterKey::projectClass},
                        projectsThere,
                    },
                .choices = {choices::projectClass, choices::projectRange},
            },
        .toolbar = groupToolbar,
        .subtitle = ofAccount,
        .detail = memberTo(10219),
        .find = always<findProjectOfAccount>,
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = itemsOfClass},
        .groupings = {{.levels = {{.entity = Entity::item}}, .keys = {{.caption = "项目名称", .level = 0}}}},
        .opening = BalanceOpening::latestRecord,
        .earlierUnposted = true,
        .order = alongItems,
    });

constexpr auto projectLedger = balance(
    {
        .command = 10216,
        .area = Area::project,
        .right = 16,
        .rightName = "项目总帐",
        .window = 890,
        .windowTitle = "项目管理_项目总帐",
        .paintedTitle = "项 目 总 帐",
        .printTitle = "项目总帐",
        .purpose = "看项目的全貌时用：每个项目在全部科目上的收入、成本和费用，项目行下面列出它的各个科目。",
        .about =
            "一个项目大类的各项目在全部科目上的总帐：每个项目一行，下面是它的各个科目，最后是合计。科目的余额方向各不"
            "相同，项目行按借为正、贷为负相加；合计是项目行之和。可以只查一个部门，部门为“全部”时包括所有部门和没有"
            "部门的余额。不显示明细行时只列项目；不显示零值行时，下面还有科目的项目仍列出。包含未记帐凭证时只加查询"
            "月份内的未记帐分录，期初不变。",
        .dialog =
            {
                .id = 803,
                .title = "项目管理_项目总帐",
                .controls = {controls::classOfAccount, controls::deptOrAll, controls::months, controls::unposted},
                .checks = {classesThere, projectsThere},
                .choices = {choices::deptOrAll, choices::projectClass},
            },
        .toolbar = groupAndZeroToolbar,
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("项  目：{}\n部  门：{}", c.projectClass.sName, c.dept.sDeptName);
            },
        .detail = projectTo(10220),
        .find = always<findProject>,
    },
    {
        .selects = {.dimension = itemsOfDept},
        .groupings = {{.levels = {{.entity = Entity::item}, {.entity = Entity::account}},
                       .keys = {{.caption = "项目名称", .level = 0},
                                {.caption = "科目编码", .level = 1, .code = true},
                                {.caption = "科目名称", .level = 1}},
                       .headed = true}},
        .order = alongItems,
    });

constexpr auto deptLedger = balance(
    {
        .command = 10218,
        .area = Area::project,
        .right = 16,
        .rightName = "部门项目总帐",
        .window = 910,
        .windowTitle = "项目管理_部门总帐",
        .paintedTitle = "部 门 项 目 总 帐",
        .printTitle = "项目部门总帐",
        .purpose = "项目由几个部门共同承担时用：一个科目在各部门各项目上的发生额和余额，可以按部门看，也可以按项目看。",
        .about =
            "一个科目（含下级科目）在各部门各项目上的总帐，按部门查时各部门的项目在一起，有部门小计，按项目查时各项目"
            "的部门在一起，有项目小计，最后是合计。只查一个部门时每个项目一行，没有小计。没有部门或没有项目的余额不列"
            "入。不显示明细行时只列小计，写明是哪个部门或项目。包含未记帐凭证时只加查询月份内的未记帐分录，期初不变。",
        .dialog =
            {
                .id = 802,
                .title = "项目管理_部门总帐",
                .accountWhere = deptProjectAccounts,
                .noAccount = noDeptProjectAccount,
                .controls = {controls::account, controls::classOfAccount, controls::deptOrAll, controls::months,
                             grouping, projects, controls::unposted},
                .checks =
                    {
                        {.passes = checks::accountsOffered,
                         .message = noDeptProjectAccount,
                         .about = ParameterKey::account,
                         .atOpening = true},
                        {.passes = checks::deptsDefined,
                         .message = noDepts,
                         .about = ParameterKey::dept,
                         .atOpening = true},
                        {.passes = checks::classOfAccount,
                         .message = noDeptProjectAccount,
                         .about = ParameterKey::projectClass},
                        projectsThere,
                    },
                .choices = {choices::deptOrAll, choices::projectClass, choices::projectRange},
            },
        .toolbar = groupToolbar,
        .period = printedClose,
        .subtitle = ofAccount,
        .detail = memberTo(10222),
        .find = [](const Conditions& c) -> const FindRule& {
          return groupingOf(c) == 0 ? findDeptOfLedger : findProjectOfLedger;
        },
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = itemsOfDepts},
        .groupings = {{.levels = {{.entity = Entity::dept, .subtotal = "部门小计"}, {.entity = Entity::item}},
                       .keys = {{.caption = "部门名称", .level = 0}, {.caption = "项目名称", .level = 1}}},
                      {.levels = {{.entity = Entity::item, .subtotal = "项目小计"}, {.entity = Entity::dept}},
                       .keys = {{.caption = "项目名称", .level = 0}, {.caption = "部门名称", .level = 1}}},
                      {.levels = {{.entity = Entity::item}}, .keys = {{.caption = "项目名称", .level = 0}}}},
        .grouping = groupingOf,
        .order = alongItems,
    });

constexpr auto threeColumnLedger = periods(
    {
        .command = 10217,
        .area = Area::project,
        .right = 16,
        .rightName = "三栏式总帐",
        .window = 909,
        .windowTitle = "项目管理_三栏总帐",
        .paintedTitle = "三 栏 式 总 帐",
        .printTitle = "项目三栏总帐",
        .purpose = "看一个项目在一个科目上逐月怎样变化时用：成本是哪几个月发生的，余额到了多少。",
        .about =
            "一个项目在一个科目（含下级科目）上全年逐月的总帐；可以只查一个部门，部门空着或为“全部”时包括所有部门和"
            "没有部门的余额。",
        .dialog =
            {
                .id = 801,
                .title = "项目三栏总帐",
                .accountWhere = projectAccounts,
                .noAccount = noProjectAccount,
                .controls = {controls::account, controls::project, controls::deptNameOrAll, controls::unposted},
                .checks =
                    {
                        classesThere,
                        {.passes = checks::projectGiven, .message = projectEmpty, .about = ParameterKey::project},
                        {.passes = checks::classOrFirst,
                         .message = projectNotInClass,
                         .about = ParameterKey::projectClass},
                        {.passes = checks::classHasProjects,
                         .message = noProjectOfClassLoud,
                         .about = ParameterKey::projectClass},
                        {.passes = checks::projectKnown, .message = projectNotInClass, .about = ParameterKey::project},
                    },
                .choices = {choices::deptOrAll},
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科  目：{}\n项  目：{}", c.accountText(), c.project.fields.at(1));
            },
        .detail = periodOfProjectTo(10221, 10220),
    },
    {
        .selects = {.accounts = chosenAccount, .dimension = oneItemOfDept},
        .order = alongItems,
    });

constexpr std::array ledgers = {&accountLedger, &projectLedger, &deptLedger};
constexpr std::array threeColumnLedgers = {&threeColumnLedger};

}  // namespace
}  // namespace project_generals

std::span<const BalanceReport* const> projectGenerals() { return project_generals::ledgers; }
std::span<const PeriodReport* const> projectPeriods() { return project_generals::threeColumnLedgers; }

}  // namespace tz
