// The detail ledgers of the department area and their condition dialogs.
#include <array>
#include <fmt/format.h>

#include "core/ledger/amount_layout.h"
#include "core/ledger/definitions.h"
#include "core/ledger/detail_controls.h"
#include "core/ledger/detail_manual.h"
#include "core/ledger/detail_toolbar.h"

namespace tz {
namespace department_details {
namespace {

constexpr std::array ofAccount = {controls::account, controls::months, controls::unposted};
constexpr std::array ofDept = {controls::dept, controls::months, controls::unposted};
constexpr std::array ofAccountAndDept = {controls::account, controls::dept, controls::months, controls::unposted};
constexpr std::array ofParentAndDept = {controls::account, controls::dept, controls::months, controls::analysis,
                                        controls::unposted};

constexpr Message databaseNotOpenInEnglish{"The Database is not Opened!"};
constexpr Message noDeptAccount{"没有部门核算科目！"};
constexpr Message noDeptParentAccount{"没有符合条件的的部门核算科目！"};
constexpr Message deptEmptyPlain{"部门不能为空，请重新输入。"};
constexpr Message deptUnknownPlain{"没有该部门，请重新输入。"};
constexpr Message deptEmptySpaced{"部门不能为空, 请重新输入!"};
constexpr Message deptUnknownSpaced{"非法的部门, 请重新输入!"};

constexpr std::array plainChecks = {
    Check{.passes = checks::deptGiven, .message = deptEmptyPlain, .about = ParameterKey::dept},
    Check{.passes = checks::deptKnown, .message = deptUnknownPlain, .about = ParameterKey::dept},
};
constexpr std::array spacedChecks = {
    Check{.passes = checks::deptGiven, .message = deptEmptySpaced, .about = ParameterKey::dept},
    Check{.passes = checks::deptKnown, .message = deptUnknownSpaced, .about = ParameterKey::dept},
};

constexpr DialogSpec accountDialog = {
    .id = 538,
    .title = "部门管理_科目明细帐",
    .accountWhere = "sAssBook LIKE '%C%' ORDER BY sCode",
    .noAccount = noDeptAccount,
    .controls = ofAccount,
    .databaseNotOpen = databaseNotOpenInEnglish,
};
constexpr DialogSpec deptDialog = {
    .id = 539,
    .title = "部门管理_部门明细帐",
    .controls = ofDept,
    .checks = spacedChecks,
    .databaseNotOpen = databaseNotOpenInEnglish,
};
constexpr DialogSpec threeColumnDialog = {
    .id = 540,
    .title = "部门管理_三栏式明细帐",
    .accountWhere = "sAssBook LIKE '%C%' AND bEnd != 0 ORDER BY sCode",
    .noAccount = noDeptAccount,
    .controls = ofAccountAndDept,
    .checks = plainChecks,
    .databaseNotOpen = databaseNotOpenInEnglish,
};
constexpr DialogSpec multiColumnDialog = {
    .id = 541,
    .title = "部门管理_多栏式明细帐",
    .accountWhere = "sAssBook LIKE '%C%' AND bEnd = 0 ORDER BY sCode",
    .noAccount = noDeptParentAccount,
    .controls = ofParentAndDept,
    .checks = spacedChecks,
    .databaseNotOpen = databaseNotOpenInEnglish,
};

Sql oneDept(const Conditions& c) { return Sql("lDeptId = ? AND lDeptId <> 0", c.dept.lDeptId); }

// Lines of person accounts carry a department too: they are no department accounting.
Sql deptAccounts(const Conditions& /*conditions*/) {
  return "+lCodeId IN (SELECT Code.lId FROM Code WHERE sAssBook LIKE '%C%')";
}

// Opening "%s AND lDeptId <> 0 AND byPeroid = %d ORDER BY lDeptId"; posted lines "%s AND lDeptId <> 0 AND lTieId IN ( …
// ) ORDER BY lDeptId, lTieId", unposted lines "ORDER BY lDeptId, dtDate, lTieId".
constexpr DetailMember accountMember = {
    .selects =
        {
            .accounts = chosenAccount,
            .dimension = [](const Conditions&) { return Sql("lDeptId <> 0"); },
            .groups = {{Entity::dept, "小计"}},
            .order = "s.lTieId",
            .unpostedOrder = "s.dtDate, s.lTieId",
        },
    .openingCaption = "部门期初",
};

// Opening ") AND lDeptId = %d AND mBegin IS NOT NULL AND byPeroid = %d ORDER BY lCodeId"; posted lines ") AND lDeptId =
// %d AND lTieId IN ( … ) ORDER BY lCodeId, lTieId", unposted lines "ORDER BY lCodeId, dtDate, lTieId".
constexpr DetailMember deptMember = {
    .selects =
        {
            .accounts = deptAccounts,
            .dimension = oneDept,
            .balancesOnly = "mBegin IS NOT NULL",
            .groups = {{Entity::account, "小计"}},
            .order = "s.lTieId",
            .unpostedOrder = "s.dtDate, s.lTieId",
        },
    .openingCaption = "科目期初",
};

// Opening "%s AND lDeptId = %ld AND byPeroid = %d and mBegin <> 0 "; posted lines "%s AND lDeptId = %ld AND lTieId IN
// ( … ) ORDER BY lTieId", unposted lines "ORDER BY dtDate".
constexpr DetailMember threeColumnMember = {
    .selects =
        {
            .accounts = chosenAccount,
            .dimension = oneDept,
            .balancesOnly = "mBegin <> 0",
            .order = "s.lTieId",
            .unpostedOrder = "s.dtDate",
        },
    .openingCaption = "部门期初",
};

// The opening of period 1 and the posted lines "%s AND lDeptId = %ld AND lTieId IN ( … byPeroid < %d AND byPeroid <> 0
// )"; posted lines "… ORDER BY dtDate, lTieId", unposted lines "ORDER BY dtDate".
constexpr DetailMember multiColumnMember = {
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
};

constexpr ReportDefinition accountLedger = {
    .command = 10229,
    .area = Area::department,
    .right = 11,
    .rightName = "科目明细帐",
    .window = 542,
    .windowTitle = "部门管理_科目明细帐",
    .paintedTitle = "科 目 明 细 帐",
    .printTitle = "科目明细帐",
    .about =
        "一个科目（含下级科目）的部门逐笔明细，按部门分段，已记帐分录按凭证排列，未记帐分录按分录日期"
        "排列。每个部门一段，有部门期初和小计，最后是合计。",
    .rules = detailRules,
    .dialog = &accountDialog,
    .toolbar = detailToolbar,
    .subtitle = [](const Conditions& c) { return fmt::format("\n科目：{}", c.accountText()); },
    .formats = detailFormats,
    .compute = computeDetail<accountMember>,
};
constexpr ReportDefinition deptLedger = {
    .command = 10230,
    .area = Area::department,
    .right = 11,
    .rightName = "部门明细帐",
    .window = 543,
    .windowTitle = "部门管理_部门明细帐",
    .paintedTitle = "部 门 明 细 帐",
    .printTitle = "部门明细帐",
    .about =
        "一个部门在全部部门科目上的逐笔明细，按科目分段，已记帐分录按凭证排列，未记帐分录按分录日期排"
        "列。每个科目一段，有科目期初和小计，最后是合计。",
    .rules = detailRules,
    .dialog = &deptDialog,
    .toolbar = detailToolbar,
    .subtitle = [](const Conditions& c) { return fmt::format("\n部门：{}", c.dept.sDeptName); },
    .formats = formatsOfManyAccounts,
    .compute = computeDetail<deptMember>,
};
constexpr ReportDefinition threeColumnLedger = {
    .command = 10231,
    .area = Area::department,
    .right = 11,
    .rightName = "三栏式明细帐",
    .window = 901,
    .windowTitle = "部门管理_三栏明细帐",
    .paintedTitle = "三 栏 式 明 细 帐",
    .printTitle = "部门三栏式明细帐",
    .about =
        "一个部门在一个科目（含下级科目）上的逐笔明细，已记帐分录按凭证排列，未记帐分录按分录日期排列"
        "，随时看到余额。",
    .rules = detailRules,
    .dialog = &threeColumnDialog,
    .toolbar = detailToolbar,
    .subtitle =
        [](const Conditions& c) { return fmt::format("科  目：{}\n部  门：{}", c.accountText(), c.dept.sDeptName); },
    .formats = detailFormats,
    .compute = computeDetail<threeColumnMember>,
};
constexpr ReportDefinition multiColumnLedger = {
    .command = 10232,
    .area = Area::department,
    .right = 11,
    .rightName = "多栏式明细帐",
    .window = 545,
    .windowTitle = "部门管理_多栏明细帐",
    .paintedTitle = "多 栏 式 明 细 帐",
    .printTitle = "部门三栏明细帐",
    .about =
        "一个部门在一个非末级科目上的逐笔明细，按分录日期排列，每个下级科目在右边各占一栏。期初由年初"
        "余额加上起始月份以前的已记帐分录得出。",
    .rules = multiColumnRules,
    .dialog = &multiColumnDialog,
    .toolbar = detailToolbar,
    .subtitle =
        [](const Conditions& c) { return fmt::format("上级科目:{}\n部门:{}", c.accountText(), c.dept.sDeptName); },
    .formats = multiColumnFormats,
    .compute = computeDetail<multiColumnMember>,
};
constexpr std::array ledgers = {
    DetailReport{accountLedger, &accountMember},
    DetailReport{deptLedger, &deptMember},
    DetailReport{threeColumnLedger, &threeColumnMember},
    DetailReport{multiColumnLedger, &multiColumnMember},
};

}  // namespace
}  // namespace department_details

std::span<const DetailReport> departmentDetails() { return department_details::ledgers; }

}  // namespace tz
