// The detail ledgers of the project area.
#include <fmt/format.h>

#include "core/ledger/detail_controls.h"
#include "core/ledger/detail_report.h"

namespace tz {
namespace project_details {
namespace {

constexpr std::string_view projectAccounts = "sAssBook LIKE '%D%' ORDER BY sCode";

constexpr ControlSpec projectRange{.kind = controls::Kind::projectRange,
                                   .key = ParameterKey::projectFrom,
                                   .id = 2208,
                                   .companion = 2209,
                                   .caption = "项目范围",
                                   .unfoldedCaption = "项目范围"};
constexpr ControlSpec shownProjects{.kind = controls::Kind::projectRange,
                                    .key = ParameterKey::projectFrom,
                                    .id = 2208,
                                    .companion = 2209,
                                    .caption = "项目范围",
                                    .unfoldedCaption = "不显示项目",
                                    .foldedCaption = "显示项目"};
constexpr ControlSpec accountLists{.kind = controls::Kind::accountLists,
                                   .key = ParameterKey::account,
                                   .id = 2301,
                                   .companion = 2302,
                                   .caption = "显示科目",
                                   .unfoldedCaption = "不显示科目"};

constexpr Message noAccountCode{"没有查到符合要求的科目编号。"};
constexpr Message noQualifyingAccount{"没有查到符合要求的科目。"};
constexpr Message noQualifyingProjectAccount{"没有查到符合要求的项目核算科目。"};
constexpr Message noProjectAccount{"没有项目核算科目！"};
constexpr Message defineProjectClassFirstPlain{"请先定义项目大类"};
constexpr Message classNotChosen{"请选择项目大累"};
constexpr Message projectEmpty{"项目名称不能为空。"};
constexpr Message projectNotInClass{"该项目大类下没有该项目."};
constexpr Message deptNameUnknown{"非法的部门名称."};

std::string itemName(const Conditions& c) { return c.project.fields.at(1); }

constexpr auto accountLedger = detail(
    {
        .command = 10219,
        .area = Area::project,
        .right = 17,
        .rightName = "科目明细帐",
        .window = 906,
        .windowTitle = "项目管理_科目明细帐",
        .paintedTitle = "科 目 明 细 帐",
        .printTitle = "项目科目明细帐",
        .purpose = "核对一个科目的项目明细时用：每个项目的每一笔都列出，合计与总帐一致。",
        .about = "一个科目（含下级科目）的项目逐笔明细，按项目分段，已记帐分录按凭证排列，未记帐分录按分录日期"
                 "排列。每个项目一段，有项目期初和项目小计，最后是合计。项目范围可限定项目编码的起止，两端都包"
                 "括，空着的一端不限。",
        .dialog =
            {
                .id = 558,
                .title = "项目管理_科目明细帐",
                .accountWhere = projectAccounts,
                .noAccount = noAccountCode,
                .controls = {controls::account, controls::classOfAccount, controls::months, projectRange,
                             controls::unposted},
                .checks =
                    {
                        {.passes = checks::classOfAccount,
                         .message = noAccountCode,
                         .about = ParameterKey::projectClass},
                    },
                .choices = {choices::projectClass, choices::projectRange},
            },
        .subtitle = [](const Conditions& c) { return fmt::format("\n科目：{}", c.accountText()); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = itemsOfClass,
                .balancesOnly = "mBegin <> 0",
                .groups = {{.entity = Entity::item, .subtotal = "项目小计"}},
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "项目期初",
    });

constexpr auto projectLedger = detail(
    {
        .command = 10220,
        .area = Area::project,
        .right = 17,
        .rightName = "项目明细帐",
        .window = 905,
        .windowTitle = "项目管理_项目明细帐",
        .paintedTitle = "项 目 明 细 帐",
        .printTitle = "项目明细帐",
        .purpose = "项目结算、审计时用：一个项目的全部分录，可以限定部门和科目。",
        .about = "一个项目在所选科目上的逐笔明细，已记帐分录按凭证排列，未记帐分录按分录日期排列。不选科目即全"
                 "部项目科目；部门为“全部”时包括所有部门。",
        .dialog =
            {
                .id = 559,
                .title = "项目明细帐",
                .accountWhere = projectAccounts,
                .noAccount = noAccountCode,
                .controls = {controls::project, controls::deptNameOrAll, controls::months, accountLists,
                             controls::unposted},
                .checks =
                    {
                        {.passes = checks::classesDefined,
                         .message = messages::defineProjectClassFirst,
                         .about = ParameterKey::projectClass,
                         .atOpening = true},
                        {.passes = checks::projectGiven, .message = projectEmpty, .about = ParameterKey::project},
                        {.passes = checks::classOrFirst,
                         .message = projectNotInClass,
                         .about = ParameterKey::projectClass},
                        {.passes = checks::projectKnown, .message = projectNotInClass, .about = ParameterKey::project},
                        {.passes = checks::deptKnownOrAll, .message = deptNameUnknown, .about = ParameterKey::dept},
                        {.passes = checks::accountsPicked, .message = noAccountCode, .about = ParameterKey::account},
                    },
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("部  门：{}\n项  目：{}", c.dept.sDeptName, itemName(c)); },
    },
    {
        .selects =
            {
                .accounts = pickedAccounts,
                .dimension = oneItemOfDept,
                .balancesOnly = "mBegin <> 0",
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "项目期初",
    });

constexpr auto threeColumnLedger = detail(
    {
        .command = 10221,
        .area = Area::project,
        .right = 17,
        .rightName = "三栏式明细帐",
        .window = 902,
        .windowTitle = "项目管理_三栏明细帐",
        .paintedTitle = "三 栏 式 明 细 帐",
        .printTitle = "项目明细帐",
        .purpose = "查一个项目的一项成本或费用是怎样形成的时用：按凭证一笔一笔列下来，每一笔后面都有余额。",
        .about = "一个项目在一个科目（含下级科目）上的逐笔明细，已记帐分录按凭证排列，未记帐分录按分录日期排列"
                 "，随时看到余额。",
        .dialog =
            {
                .id = 562,
                .title = "项目三栏式明细帐",
                .accountWhere = projectAccounts,
                .noAccount = noQualifyingProjectAccount,
                .controls = {controls::account, controls::project, controls::months, controls::unposted},
                .checks =
                    {
                        {.passes = checks::classesDefined,
                         .message = defineProjectClassFirstPlain,
                         .about = ParameterKey::projectClass,
                         .atOpening = true},
                        {.passes = checks::projectGiven, .message = projectEmpty, .about = ParameterKey::project},
                        {.passes = checks::classChosen, .message = classNotChosen, .about = ParameterKey::projectClass},
                        {.passes = checks::projectKnown, .message = projectNotInClass, .about = ParameterKey::project},
                        {.passes = checks::accountGiven, .message = noProjectAccount, .about = ParameterKey::account},
                    },
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("科  目：{}\n项  目：{}", c.accountText(), itemName(c)); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneItem,
                .balancesOnly = "mBegin <> 0",
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "项目期初",
    });

constexpr auto deptLedger = detail(
    {
        .command = 10222,
        .area = Area::project,
        .right = 17,
        .rightName = "部门项目明细帐",
        .window = 903,
        .windowTitle = "项目管理_部门明细帐",
        .paintedTitle = "部 门 项 目 明 细 帐",
        .printTitle = "部门项目明细帐",
        .purpose = "部门与项目交叉核对时用：一个科目上每个部门的每个项目有哪些分录，项目和部门都有小结。",
        .about = "一个科目（含下级科目）的部门项目逐笔明细，按部门、再按项目分段。每个项目有项目小结，每个部门"
                 "有部门小结，最后是合计。没有部门或没有项目的分录不列入。可限定一个部门和项目编码的起止。",
        .dialog =
            {
                .id = 560,
                .title = "部门项目明细帐",
                .accountWhere = "sAssBook LIKE '%C%' AND sAssBook LIKE '%D%' ORDER BY sCode",
                .noAccount = noQualifyingAccount,
                .controls = {controls::account, controls::classOfAccount, controls::deptOrAll, controls::months,
                             shownProjects, controls::unposted},
                .checks =
                    {
                        {.passes = checks::classOfAccount,
                         .message = noQualifyingAccount,
                         .about = ParameterKey::projectClass},
                        {.passes = checks::deptKnownOrAll, .message = deptNameUnknown, .about = ParameterKey::dept},
                    },
                .choices = {choices::projectClass, choices::projectRange},
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
                .dimension =
                    [](const Conditions& c) {
                      const auto items = itemsOfClass(c);
                      return items +
                             (c.dept.lDeptId == 0 ? " AND lDeptId <> 0" : Sql(" AND lDeptId = ?", c.dept.lDeptId));
                    },
                .balancesOnly = "mBegin <> 0",
                .groups = {{.entity = Entity::dept, .subtotal = "部门小结"},
                           {.entity = Entity::item, .subtotal = "项目小结"}},
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "期初",
    });

constexpr auto multiColumnLedger = detail(
    {
        .command = 10223,
        .area = Area::project,
        .right = 17,
        .rightName = "多栏式明细帐",
        .window = 904,
        .windowTitle = "项目管理_多栏明细帐",
        .paintedTitle = "多 栏 式 明 细 帐",
        .printTitle = "项目明细帐",
        .purpose = "成本科目设了下级（如直接材料、直接人工）时用：一个项目的每一笔记在哪个下级科目上，右边分栏看清。",
        .about = "一个项目在一个非末级科目上的逐笔明细，每个下级科目在右边各占一栏；部门为“全部”时包括所有部门"
                 "。",
        .dialog =
            {
                .id = 561,
                .title = "项目多栏明细帐",
                .accountWhere = "sAssBook LIKE '%D%' AND bEnd = 0 ORDER BY sCode",
                .noAccount = noAccountCode,
                .controls = {controls::account, controls::project, controls::deptNameOrAll, controls::months,
                             controls::analysis, controls::unposted},
                .checks =
                    {
                        {.passes = checks::classesDefined,
                         .message = messages::defineProjectClassFirst,
                         .about = ParameterKey::projectClass,
                         .atOpening = true},
                        {.passes = checks::projectGiven, .message = projectEmpty, .about = ParameterKey::project},
                        {.passes = checks::classOrFirst,
                         .message = projectNotInClass,
                         .about = ParameterKey::projectClass},
                        {.passes = checks::projectKnown, .message = projectNotInClass, .about = ParameterKey::project},
                        {.passes = checks::deptKnownOrAll, .message = deptNameUnknown, .about = ParameterKey::dept},
                    },
                .messageCaption = "岚川财务软件",
            },
        .subtitle =
            [](const Conditions& c) { return fmt::format("科  目：{}\n项  目：{}", c.accountText(), itemName(c)); },
    },
    {
        .selects =
            {
                .accounts = chosenAccount,
                .dimension = oneItemOfDept,
                .balancesOnly = "mBegin <> 0",
                .order = "s.lTieId",
                .unpostedOrder = "s.dtDate",
            },
        .openingCaption = "项目期初",
        .columnFlag = 'D',
    });

constexpr std::array ledgers = {&accountLedger, &projectLedger, &threeColumnLedger, &deptLedger, &multiColumnLedger};

}  // namespace
}  // namespace project_details

std::span<const DetailReport* const> projectDetails() { return project_details::ledgers; }

}  // namespace tz
