// The detail ledgers of the unit area.
#include <fmt/format.h>

#include "core/ledger/detail_controls.h"
#include "core/ledger/detail_report.h"

namespace tz {
namespace unit_details {
namespace {

constexpr std::string_view unitAccounts = "sAssBook LIKE '%B%' AND lId>0 ORDER BY sCode";

constexpr ControlSpec accountLists{.kind = controls::Kind::accountLists,
                                   .key = ParameterKey::account,
                                   .id = 2301,
                                   .companion = 2302,
                                   .caption = "科目范围"};
constexpr ControlSpec projects{.kind = controls::Kind::projectRange,
                               .key = ParameterKey::projectFrom,
                               .id = 2208,
                               .companion = 2209,
                               .caption = "统计条件",
                               .unfoldedCaption = "统计条件"};

constexpr Message noUnitAccount{"没有单位核算科目！"};
constexpr Message noUnitParentAccount{"没有单位核算上级科目！"};
constexpr Message noAccountUnderSuite{.text = messages::noMatchingAccount.text, .caption = "岚川财务软件"};
constexpr Message unitEmpty{"单位不能为空"};
constexpr Message unitWanted{"请输入单位"};
constexpr Message unitUnknown{"非法的单位"};

std::string clerkName(const Conditions& c) { return c.clerk.shown(); }

Sql oneUnit(const Conditions& c) { return Sql("lEnterId = ? AND lEnterId <> 0", c.unit.lId); }

constexpr auto accountLedger = detail(
    {
        .command = 10203,
        .area = Area::unit,
        .right = 78,
        .rightName = "科目明细帐",
        .window = 542,
        .windowTitle = "部门管理_科目明细帐",
        .paintedTitle = "科 目 明 细 帐",
        .printTitle = "单位往来_科目明细帐",
        .purpose = "核对一个往来科目的全部单位明细时用：科目下每个单位的每一笔都列出，合计与总帐一致。",
        .about = "一个科目（含下级科目）的单位往来逐笔明细，按单位分段，段内按分录日期排列。每个单位一段，有单"
                 "位期初和小计，最后是合计。",
        .dialog =
            {
                .id = 617,
                .title = "单位往来_科目明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::months, controls::unposted},
                .messageCaption = "岚川财务软件",
            },
        .noAccountInWindow = noAccountUnderSuite,
        .subtitle = [](const Conditions& c) { return fmt::format("\n科  目: {}", c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions&) { return Sql("lEnterId <> 0"); },
                .groups = {{.entity = Entity::unit, .subtotal = "小计"}},
                .order = "s.dtDate, s.lTieId",
            },
        .openingCaption = "单位期初",
    });

constexpr auto unitLedger = detail(
    {
        .command = 10204,
        .area = Area::unit,
        .right = 78,
        .rightName = "单位明细帐",
        .window = 639,
        .windowTitle = "单位往来_单位明细帐",
        .paintedTitle = "单 位 明 细 帐",
        .printTitle = "单位明细帐",
        .purpose = "与一个单位逐笔对帐时用：它在所选科目上的全部分录，按科目分段，可以打印或输出给对方。",
        .about = "一个单位在所选科目上的往来逐笔明细，按科目分段，段内按凭证排列；不选科目即全部单位科目。列出"
                 "到终止月份为止有已记帐分录的科目，包含未记帐凭证时也列出只有未记帐分录的科目；只有期初而从无"
                 "分录的科目不列。",
        .dialog =
            {
                .id = 618,
                .title = "单位往来_单位明细帐",
                .accountWhere = "sAssBook = 'B' ORDER BY sCode",
                .noAccount = noUnitAccount,
                .controls = {controls::unit, controls::months, accountLists, controls::unposted},
                .checks =
                    {
                        {.passes = checks::unitGiven, .message = unitEmpty, .about = ParameterKey::unit},
                        {.passes = checks::unitKnown, .message = unitUnknown, .about = ParameterKey::unit},
                        {.passes = checks::accountsPicked, .message = noUnitAccount, .about = ParameterKey::account},
                    },
                .messageCaption = "岚川财务软件",
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n单  位: {}", c.unit.sEnterName); },
    },
    {
        .selects =
            {
                .accounts = pickedAccounts,
                .dimension = oneUnit,
                .balancesOnly = "mBegin <> 0",
                .groups = {{.entity = Entity::account, .subtotal = "科目小计"}},
                .order = "s.lTieId",
            },
        .openingCaption = "科目期初",
        .listed = Listed::postedAccounts,
    });

constexpr auto classLedger = detail(
    {
        .command = 10205,
        .area = Area::unit,
        .right = 78,
        .rightName = "分类明细帐",
        .window = 633,
        .windowTitle = "单位往来_分类明细帐",
        .paintedTitle = "分 类 明 细 帐",
        .printTitle = "分类明细帐",
        .purpose = "查一类单位的往来明细时用：例如全部国外客户在应收帐款上的每一笔。",
        .about = "一个单位分类在一个科目（含下级科目）上的往来逐笔明细，按单位分段，段内按分录日期排列。“其它”"
                 "是没有分类的单位；没有指定分类时取第一个。",
        .dialog =
            {
                .id = 620,
                .title = "单位往来_分类明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::unitClass, controls::months, controls::unposted},
                .choices = {choices::unitClass},
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("分  类: {}\n科  目:{}", c.unitClass.sName, c.accountText());
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension =
                    [](const Conditions& c) {
                      return Sql("lEnterId <> 0 AND +lEnterId IN (SELECT Enter.lId FROM Enter WHERE lClassId = ?)",
                                 c.unitClass.lId);
                    },
                .balancesOnly = "mBegin IS NOT NULL",
                .groups = {{.entity = Entity::unit, .subtotal = "单位小计"}},
                .order = "s.dtDate, s.lTieId",
            },
        .openingCaption = "单位期初",
    });

constexpr auto deptLedger = detail(
    {
        .command = 10206,
        .area = Area::unit,
        .right = 78,
        .rightName = "部门明细帐",
        .window = 634,
        .windowTitle = "单位往来_部门明细帐",
        .paintedTitle = "部 门 明 细 帐",
        .printTitle = "部门明细帐",
        .purpose = "查一个部门的单位往来明细时用：这个部门的应收、应付是怎样一笔笔形成的。",
        .about = "一个部门在一个科目（含下级科目）上的单位往来逐笔明细，按单位分段，段内按分录日期排列。没有指"
                 "定部门时取第一个。",
        .dialog =
            {
                .id = 625,
                .title = "单位往来_部门明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::deptList, controls::months, controls::unposted},
                .choices = {choices::dept},
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("部  门: {}\n科  目:{}", c.dept.sDeptName, c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions& c) { return Sql("lDeptId = ? AND lEnterId <> 0", c.dept.lDeptId); },
                .balancesOnly = "mBegin <> 0",
                .groups = {{.entity = Entity::unit, .subtotal = "单位小计"}},
                .order = "s.dtDate, s.lTieId",
            },
        .openingCaption = "单位期初",
    });

constexpr auto projectLedger = detail(
    {
        .command = 10207,
        .area = Area::unit,
        .right = 78,
        .rightName = "项目明细帐",
        .window = 637,
        .windowTitle = "单位往来_项目明细帐",
        .paintedTitle = "项 目 明 细 帐",
        .printTitle = "项目往来明细帐",
        .purpose = "按项目核对往来时用：每个项目下各单位的开票、收款逐笔列出，项目与单位都有小计。",
        .about = "一个科目（含下级科目）的单位往来逐笔明细，按项目、再按单位分段，段内按分录日期排列。每个单位"
                 "有单位小计，每个项目有项目小计，最后是合计。统计条件可限定项目编码的起止，两端都包括，空着的"
                 "一端不限。",
        .exampleAccount = "220202",
        .dialog =
            {
                .id = 623,
                .title = "单位往来_项目明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::months, projects, controls::unposted},
                .choices = {choices::projectRange},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科  目: {}", c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions& c) { return "lEnterId <> 0 AND " + projectsOf(c.projects); },
                .groups = {{.entity = Entity::project, .subtotal = "项目小计"},
                           {.entity = Entity::unit, .subtotal = "单位小计"}},
                .order = "s.dtDate, s.lTieId",
            },
        .openingCaption = "单位期初",
    });

constexpr auto threeColumnLedger = detail(
    {
        .command = 10208,
        .area = Area::unit,
        .right = 78,
        .rightName = "三栏式明细帐",
        .window = 632,
        .windowTitle = "单位往来_三栏明细帐",
        .paintedTitle = "三 栏 式 明 细 帐",
        .printTitle = "三栏式明细帐",
        .purpose = "查一个单位在一个科目上的帐时用：按日期一笔一笔列下来，每一笔后面都有余额。对帐时最常用。",
        .about = "一个单位在一个科目（含下级科目）上的往来逐笔明细，按分录日期排列，随时看到余额。",
        .dialog =
            {
                .id = 619,
                .title = "单位往来_三栏明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::unit, controls::months, controls::unposted},
                .checks =
                    {
                        {.passes = checks::unitGiven, .message = unitWanted, .about = ParameterKey::unit},
                        {.passes = checks::unitKnown, .message = unitUnknown, .about = ParameterKey::unit},
                    },
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("单  位: {}\n科  目:{}", c.unit.sEnterName, c.accountText());
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneUnit,
                .balancesOnly = "mBegin IS NOT NULL",
                .order = "s.dtDate, s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "单位期初",
    });

constexpr auto multiColumnLedger = detail(
    {
        .command = 10209,
        .area = Area::unit,
        .right = 78,
        .rightName = "多栏式明细帐",
        .window = 635,
        .windowTitle = "单位往来_多栏式明细帐",
        .paintedTitle = "多 栏 式 明 细 帐",
        .printTitle = "单位往来多栏帐",
        .purpose = "往来科目设了下级（如货款、质保金、运费）时用：一个单位的每一笔记在哪个下级科目上，右边分栏看清。",
        .about = "一个单位在一个非末级科目上的往来逐笔明细，按分录日期排列，每个下级科目在右边各占一栏。",
        .dialog =
            {
                .id = 624,
                .title = "单位往来_多栏式明细帐",
                .accountWhere = "sAssBook LIKE '%B%' AND bEnd = 0 ORDER BY sCode",
                .noAccount = noUnitParentAccount,
                .controls = {controls::account, controls::unit, controls::months, controls::analysis,
                             controls::unposted},
                .checks =
                    {
                        {.passes = checks::unitKnown, .message = unitUnknown, .about = ParameterKey::unit},
                    },
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("上级科目: {}\n单    位:{}", c.accountText(), c.unit.sEnterName);
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneUnit,
                .order = "s.dtDate, s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "单位期初",
        .columnFlag = 'B',
    });

constexpr auto clerkLedger = detail(
    {
        .command = 10210,
        .area = Area::unit,
        .right = 78,
        .rightName = "业务员明细帐",
        .window = 636,
        .windowTitle = "单位往来_业务员明细帐",
        .paintedTitle = "业 务 员 明 细 帐",
        .printTitle = "业务员明细帐",
        .purpose = "业务员对帐、交接时用：他经手的每一笔往来，按单位列出。",
        .about = "一个业务员经手的单位往来逐笔明细，按单位分段，段内按分录日期排列，每个单位有单位小记。只列他"
                 "经手的分录；余额不记业务员，所以期初是单位的全部期初。“其它”是没有业务员的分录；没有指定业务"
                 "员时取第一个。",
        .dialog =
            {
                .id = 621,
                .title = "单位往来_业务员明细帐",
                .accountWhere = unitAccounts,
                .controls = {controls::account, controls::clerk, controls::months, controls::unposted},
                .choices = {choices::clerk},
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("业务员: {}\n科 目:{}", clerkName(c), c.accountText()); },
    },
    {
        .selects = {
            .accounts = chosenAccount,
            .dimension = [](const Conditions&) { return Sql("lEnterId <> 0"); },
            // Balances know no clerk, so the opening is the unit's.
            .linesOnly = [](const Conditions& c) { return Sql("sName = ?", c.clerk.name); },
            .balancesOnly = "mBegin IS NOT NULL",
            .groups = {{.entity = Entity::unit, .subtotal = "单位小记"}},
            .order = "s.dtDate, s.lTieId",
        },
        .openingCaption = "单位期初",
        .listed = Listed::clerksUnits,
    });

constexpr std::array ledgers = {&accountLedger, &unitLedger,        &classLedger,       &deptLedger,
                                &projectLedger, &threeColumnLedger, &multiColumnLedger, &clerkLedger};

}  // namespace
}  // namespace unit_details

std::span<const DetailReport* const> unitDetails() { return unit_details::ledgers; }

}  // namespace tz
