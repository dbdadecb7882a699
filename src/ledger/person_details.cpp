// The detail ledgers of the person area and their condition dialogs.
#include <array>
#include <fmt/format.h>

#include "ledger/amount_layout.h"
#include "ledger/definitions.h"
#include "ledger/detail_engine.h"
#include "ledger/detail_toolbar.h"

namespace tz {
namespace {

constexpr std::array threeColumnControls = {
    ControlSpec{ControlSpec::Kind::accountCombo, ParameterKey::account, 2206, 0, "科目"},
    ControlSpec{ControlSpec::Kind::deptReference, ParameterKey::dept, 8052, 2006, "部门"},
    ControlSpec{ControlSpec::Kind::personReference, ParameterKey::person, 2111, 2007, "个人"},
    ControlSpec{ControlSpec::Kind::months, ParameterKey::from, 2201, 2202, "月份"},
    ControlSpec{ControlSpec::Kind::checkBox, ParameterKey::unposted, 2601, 0, "包含未记帐凭证"},
};

constexpr std::array threeColumnChecks = {
    Check{checks::deptGiven, MessageId::deptEmpty, ParameterKey::dept},
    Check{checks::deptKnown, MessageId::deptUnknown, ParameterKey::dept},
    Check{checks::deptActive, MessageId::deptWithoutActivity, ParameterKey::dept},
    Check{checks::personGiven, MessageId::personEmpty, ParameterKey::person},
    Check{checks::personKnown, MessageId::personUnknown, ParameterKey::person},
    Check{checks::personOfDept, MessageId::personOfOtherDept, ParameterKey::person},
    Check{checks::personActive, MessageId::personWithoutActivity, ParameterKey::person},
};

constexpr DialogSpec threeColumnDialog = {
    .id = 513,
    .title = "个人往来_三栏式明细帐",
    .accountWhere = "sAssBook LIKE '%A%' AND lId>0 ORDER BY sCode",
    .noAccount = MessageId::noPersonAccountThreeColumn,
    .controls = threeColumnControls,
    .checks = threeColumnChecks,
};

// Opening "%s AND lDeptId = %ld AND lPersonId = %ld AND byPeroid = %d "; posted lines "%s AND lDeptId = %ld AND
// lPersonId = %ld AND lTieId IN ( SELECT lTieId FROM RegMain WHERE byPeroid BETWEEN %d AND %d ) ORDER BY dtDate";
// unposted lines the same over UnregMain.
constexpr DetailMember threeColumnMember = {
    .dimension = [](const Conditions& c) { return Sql("lDeptId = ? AND lPersonId = ?", c.dept.lDeptId, c.person.lId); },
    .openingCaption = "个人期初",
    .postedOrder = "s.dtDate",
    .unpostedOrder = "s.dtDate",
};

}  // namespace

const ReportDefinition personThreeColumnDetail = {
    .command = 10190,
    .area = Area::person,
    .right = 4,
    .rightName = "三栏式明细帐",
    .window = 518,
    .windowTitle = "个人往来_三栏明细帐",
    .paintedTitle = "三 栏 式 明 细 帐",
    .printTitle = "三栏式明细帐",
    .dialog = &threeColumnDialog,
    .toolbar = detailToolbar,
    .subtitle =
        [](const Conditions& c) {
          return fmt::format("科目：{}\n部门：{}     个人：{}", c.accountText(), c.dept.sDeptName, c.person.sName);
        },
    .formats = detailFormats,
    .compute = [](Session& session, const Conditions& conditions,
                  CTzGrid& grid) { runDetailLedger(threeColumnMember, session, conditions, grid); },
};

const DetailMember* detailMember(int command) {
  return command == personThreeColumnDetail.command ? &threeColumnMember : nullptr;
}

}  // namespace tz
