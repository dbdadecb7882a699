// The two-clearing reports of persons and units.
#include <algorithm>
#include <fmt/format.h>

#include "core/receivables/clearing_columns.h"
#include "core/receivables/clearing_drill.h"
#include "core/receivables/clearing_report.h"

namespace tz {
namespace clearing_reports {
namespace {

using Kind = ControlSpec::Kind;

constexpr Message noAccount{"没有查到符合要求的科目。"};
constexpr Message noPersonAccounts{"没有个人两清数据,不能查"};
constexpr Message deptEmpty{"部门不能为空,请重新输入。"};
constexpr Message deptUnknown{"非法的部门，请重新输入。"};
constexpr Message personUnknown{"非法的人员,请重新输入。"};
constexpr Message personOfOtherDept{"该用户不属于该部门，请重新输入其他名字。"};
constexpr Message unitUnknown{"非法的单位"};

constexpr std::array personToolbar = {
    WindowCommand::print,         WindowCommand::preview,         WindowCommand::exportFile,
    WindowCommand::separator,     WindowCommand::query,           WindowCommand::separator,
    WindowCommand::matchLines,    WindowCommand::reverseClearing, WindowCommand::undoMarks,
    WindowCommand::checkClearing, WindowCommand::separator,       WindowCommand::detail,
    WindowCommand::generalLedger, WindowCommand::separator,       WindowCommand::help,
    WindowCommand::close,
};
constexpr std::array unitToolbar = {
    WindowCommand::print,     WindowCommand::preview,       WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,     WindowCommand::separator,     WindowCommand::matchLines, WindowCommand::reverseClearing,
    WindowCommand::undoMarks, WindowCommand::checkClearing, WindowCommand::find,       WindowCommand::tabDate,
    WindowCommand::tabDept,   WindowCommand::tabProject,    WindowCommand::tabClerk,   WindowCommand::separator,
    WindowCommand::detail,    WindowCommand::generalLedger, WindowCommand::separator,  WindowCommand::help,
    WindowCommand::close,
};

void addColumns(const ReportDefinition& /*report*/, const Conditions& conditions, CTzGrid& grid) {
  const auto grouping = static_cast<ClearingGrouping>(conditions.request.choice(ParameterKey::clearingGrouping));
  (void)addClearingColumns(grid, conditions.format, grouping);
}

// What a record leaves out is the family's.
constexpr ClearingReport clearing(ReportDefinition report, const ClearingMember& member) {
  report.rules = clearingRules;
  report.columnMeanings = clearingMeanings;
  report.period = lastMonthPeriod;
  report.colours = {};
  report.formats = [](const Conditions& c) { return c.amounts.formats; };
  report.columns = addColumns;
  report.compute = computeClearing;
  report.busyBox = true;
  report.feature = clearingFeature;
  return {report, member};
}

constexpr auto personClearing = clearing(
    {
        .command = 10192,
        .area = Area::person,
        .right = 5,
        .rightName = "个人往来两清",
        .window = 523,
        .windowTitle = "个人往来_个人往来两清",
        .paintedTitle = "个 人 往 来 两 清",
        .printTitle = "个人往来两清",
        .purpose =
            "清理个人往来时用：一个人的借款和还款，哪些已经对上，哪些还挂着。对上的打上标记，以后只看没有对上的。",
        .about = "一个人在一个末级科目上的往来分录，哪些已经两清，哪些还没有。",
        .exampleAccount = "122101",
        .dialog =
            {
                .id = 522,
                .title = "个人往来_两清条件",
                .accountWhere = "sAssBook LIKE '%A%' AND lId>0 AND bEnd <> 0 ORDER BY sCode",
                .noAccount = noAccount,
                .controls =
                    {{.kind = Kind::accountCombo, .key = ParameterKey::account, .id = 2206, .caption = "科  目"},
                     {.kind = Kind::deptReference,
                      .key = ParameterKey::dept,
                      .id = 8052,
                      .companion = 2006,
                      .caption = "部  门"},
                     {.kind = Kind::personReference,
                      .key = ParameterKey::person,
                      .id = 2111,
                      .companion = 2007,
                      .caption = "姓  名"},
                     {.kind = Kind::month, .key = ParameterKey::month, .id = 8022, .caption = "月  份"}},
                .checks =
                    {
                        {.passes = checks::accountsOffered,
                         .message = noPersonAccounts,
                         .about = ParameterKey::account,
                         .atOpening = true},
                        {.passes = checks::deptGiven, .message = deptEmpty, .about = ParameterKey::dept},
                        {.passes = checks::deptKnown, .message = deptUnknown, .about = ParameterKey::dept},
                        {.passes = checks::personKnown, .message = personUnknown, .about = ParameterKey::person},
                        {.passes = checks::personOfDept, .message = personOfOtherDept, .about = ParameterKey::person},
                        {.passes = checks::accountGiven, .message = noAccount, .about = ParameterKey::account},
                    },
            },
        .toolbar = personToolbar,
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科目：{}\n部门：{}     个人：{}", c.accountText(), c.dept.sDeptName, c.person.sName);
            },
        .detail = clearingVoucher(ClearingKind::person),
        .generalLedger = clearingLedger(ClearingKind::person),
    },
    {
        .kind = ClearingKind::person,
        .lines =
            [](const Conditions& c) {
              return Sql("lCodeId = ? AND lDeptId = ? AND lPersonId = ? AND lPersonId <> 0", c.account.lId,
                         c.dept.lDeptId, c.person.lId);
            },
        .marked = 0x82EEB3,
        .closing = lightGreen,
    });

constexpr auto unitClearing = clearing(
    {
        .command = 10211,
        .area = Area::unit,
        .right = 79,
        .rightName = "单位往来两清",
        .window = 887,
        .windowTitle = "单位往来_单位往来两清",
        .paintedTitle = "单 位 往 来 两 清",
        .printTitle = "单位往来两清",
        .purpose =
            "清理单位往来时用：发货和收款、收货和付款，哪些已经对上，哪些还挂着。对上的打上标记，以后只看没有对上的。",
        .about =
            "一个单位在一个末级科目上的往来分录，哪些已经两清，哪些还没有；可以按部门、项目或业务员分组，各组有小计。",
        .exampleAccount = "112201",
        .dialog =
            {
                .id = 717,
                .title = "单位往来_两清条件",
                .accountWhere = "sAssBook LIKE '%B%' AND bEnd <> 0 ORDER BY sCode",
                .noAccount = noAccount,
                .controls =
                    {{.kind = Kind::accountCombo, .key = ParameterKey::account, .id = 2206, .caption = "科    目:"},
                     {.kind = Kind::unitReference,
                      .key = ParameterKey::unit,
                      .id = 2111,
                      .companion = 2007,
                      .caption = "单位名称:"},
                     {.kind = Kind::month, .key = ParameterKey::month, .id = 8022, .caption = "截止月份:"}},
                .checks =
                    {
                        {.passes = checks::unitKnown, .message = unitUnknown, .about = ParameterKey::unit},
                    },
            },
        .toolbar = unitToolbar,
        .subtitle =
            [](const Conditions& c) {
              return fmt::format("科  目：{}\n单  位：{}", c.accountText(), c.unit.sEnterName);
            },
        .detail = clearingVoucher(ClearingKind::unit),
        .generalLedger = clearingLedger(ClearingKind::unit),
    },
    {
        .kind = ClearingKind::unit,
        .lines =
            [](const Conditions& c) {
              return Sql("lEnterId = ? AND lEnterId <> 0 AND lCodeId = ?", c.unit.lId, c.account.lId);
            },
        .marked = lightGreen,
        .closing = 0xC0FFFF,
        .showsDirection = true,
    });

constexpr std::array reports = {&personClearing, &unitClearing};

}  // namespace
}  // namespace clearing_reports

std::span<const ClearingReport* const> clearingReports() { return clearing_reports::reports; }

const ClearingReport& clearingReport(ClearingKind kind) {
  return **std::ranges::find_if(clearing_reports::reports,
                                [&](const ClearingReport* report) { return report->member.kind == kind; });
}

}  // namespace tz
