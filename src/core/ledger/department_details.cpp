// The detail ledgers of the department area.
#include <fmt/format.h>

#include "core/ledger/detail_controls.h"
#include "core/ledger/detail_report.h"

namespace tz {
namespace department_details {
namespace {

constexpr Message databaseNotOpenInEnglish{"The Database is not Opened!"};
constexpr Message noDeptAccount{"没有部门核算科目！"};
constexpr Message noDeptParentAccount{"没有符合条件的的部门核算科目！"};
constexpr Message deptEmptyPlain{"部门不能为空，请重新输入。"};
constexpr Message deptUnknownPlain{"没有该部门，请重新输入。"};
constexpr Message deptEmptySpaced{"部门不能为空, 请重新输入!"};
constexpr Message deptUnknownSpaced{"非法的部门, 请重新输入!"};

constexpr Checks spacedChecks = {
    {.passes = checks::deptGiven, .message = deptEmptySpaced, .about = ParameterKey::dept},
    {.passes = checks::deptKnown, .message = deptUnknownSpaced, .about = ParameterKey::dept},
};

Sql oneDept(const Conditions& c) { return Sql("lDeptId = ? AND lDeptId <> 0", c.dept.lDeptId); }

constexpr auto accountLedger = detail(
    {
        .command = 10229,
        .area = Area::department,
        .right = 11,
        .rightName = "科目明细帐",
        .window = 542,
        .windowTitle = "部门管理_科目明细帐",
        .paintedTitle = "科 目 明 细 帐",
        .printTitle = "科目明细帐",
        .purpose = "核对一个科目的部门明细时用：每个部门的每一笔都列出，合计与总帐一致。",
        .about = "一个科目（含下级科目）的部门逐笔明细，按部门分段，已记帐分录按凭证排列，未记帐分录按分录日期"
                 "排列。每个部门一段，有部门期初和小计，最后是合计。",
        .dialog =
            {
                .id = 538,
                .title = "部门管理_科目明细帐",
                .accountWhere = "sAssBook LIKE '%C%' ORDER BY sCode",
                .noAccount = noDeptAccount,
                .controls = {controls::account, controls::months, controls::unposted},
                .databaseNotOpen = databaseNotOpenInEnglish,
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科目：{}", c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = [](const Conditions&) { return Sql("lDeptId <> 0"); },
                .groups = {{.entity = Entity::dept, .subtotal = "小计"}},
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate, s.lTieId",
            },
        .openingCaption = "部门期初",
    });

constexpr auto deptLedger = detail(
    {
        .command = 10230,
        .area = Area::department,
        .right = 11,
        .rightName = "部门明细帐",
        .window = 543,
        .windowTitle = "部门管理_部门明细帐",
        .paintedTitle = "部 门 明 细 帐",
        .printTitle = "部门明细帐",
        .purpose = "部门核对自己的费用时用：一个部门在全部科目上的每一笔，按科目分段，可以打印出来请部门确认。",
        .about = "一个部门在全部部门科目上的逐笔明细，按科目分段，已记帐分录按凭证排列，未记帐分录按分录日期排"
                 "列。每个科目一段，有科目期初和小计，最后是合计。",
        .dialog =
            {
                .id = 539,
                .title = "部门管理_部门明细帐",
                .controls = {controls::dept, controls::months, controls::unposted},
                .checks = spacedChecks,
                .databaseNotOpen = databaseNotOpenInEnglish,
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n部门：{}", c.dept.sDeptName); },
    },
    {
        .selects =
            {
                .accounts = deptAccounts,
                .dimension = oneDept,
                .balancesOnly = "mBegin IS NOT NULL",
                .groups = {{.entity = Entity::account, .subtotal = "小计"}},
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate, s.lTieId",
            },
        .openingCaption = "科目期初",
    });

constexpr auto threeColumnLedger = detail(
    {
        .command = 10231,
        .area = Area::department,
        .right = 11,
        .rightName = "三栏式明细帐",
        .window = 901,
        .windowTitle = "部门管理_三栏明细帐",
        .paintedTitle = "三 栏 式 明 细 帐",
        .printTitle = "部门三栏式明细帐",
        .purpose = "查一个部门的一项费用是怎样形成的时用：按凭证一笔一笔列下来，每一笔后面都有余额。",
        .about = "一个部门在一个科目（含下级科目）上的逐笔明细，已记帐分录按凭证排列，未记帐分录按分录日期排列"
                 "，随时看到余额。",
        .exampleAccount = "660101",
        .dialog =
            {
                .id = 540,
                .title = "部门管理_三栏式明细帐",
                .accountWhere = "sAssBook LIKE '%C%' AND bEnd != 0 ORDER BY sCode",
                .noAccount = noDeptAccount,
                .controls = {controls::account, controls::dept, controls::months, controls::unposted},
                .checks =
                    {
                        {.passes = checks::deptGiven, .message = deptEmptyPlain, .about = ParameterKey::dept},
                        {.passes = checks::deptKnown, .message = deptUnknownPlain, .about = ParameterKey::dept},
                    },
                .databaseNotOpen = databaseNotOpenInEnglish,
            },
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科  目：{}\n部  门：{}", c.accountText(), c.dept.sDeptName);
            },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneDept,
                .balancesOnly = "mBegin <> 0",
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "部门期初",
    });

constexpr auto multiColumnLedger = detail(
    {
        .command = 10232,
        .area = Area::department,
        .right = 11,
        .rightName = "多栏式明细帐",
        .window = 545,
        .windowTitle = "部门管理_多栏明细帐",
        .paintedTitle = "多 栏 式 明 细 帐",
        .printTitle = "部门三栏明细帐",
        .purpose =
            "费用科目设了下级（如管理费用下的办公费、差旅费）时用：一个部门的每一笔记在哪个明细科目上，右边分栏看"
            "清。",
        .about = "一个部门在一个非末级科目上的逐笔明细，按分录日期排列，每个下级科目在右边各占一栏。期初由年初"
                 "余额加上起始月份以前的已记帐分录得出。",
        .dialog =
            {
                .id = 541,
                .title = "部门管理_多栏式明细帐",
                .accountWhere = "sAssBook LIKE '%C%' AND bEnd = 0 ORDER BY sCode",
                .noAccount = noDeptParentAccount,
                .controls = {controls::account, controls::dept, controls::months, controls::analysis,
                             controls::unposted},
                .checks = spacedChecks,
                .databaseNotOpen = databaseNotOpenInEnglish,
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("上级科目:{}\n部门:{}", c.accountText(), c.dept.sDeptName); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneDept,
                .order = "s.dtDate, s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingSource = OpeningSource::yearStart,
        .openingCaption = "部门期初",
        .columnFlag = 'C',
    });

constexpr std::array ledgers = {&accountLedger, &deptLedger, &threeColumnLedger, &multiColumnLedger};

}  // namespace
}  // namespace department_details

std::span<const DetailReport* const> departmentDetails() { return department_details::ledgers; }

}  // namespace tz
