// The combos above the grid for each kind of member.
#include "desktop/report/condition_combos.h"

#include <array>

#include "desktop/picking/useful_combox.h"
#include "desktop/support/member_ledger.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

using Kind = ControlSpec::Kind;

constexpr std::array clerkControls = {
    ControlSpec{.kind = Kind::accountCombo, .key = ParameterKey::account, .id = 2206, .caption = "科目"},
    ControlSpec{.kind = Kind::clerkCombo, .key = ParameterKey::clerk, .id = 2213, .caption = "业务员"},
};
constexpr std::array memberControls = {
    ControlSpec{.kind = Kind::deptCombo, .key = ParameterKey::dept, .id = 2207, .caption = "部门", .all = true},
    ControlSpec{
        .kind = Kind::unitReference, .key = ParameterKey::unit, .id = 2115, .companion = 2028, .caption = "单位"},
};
constexpr std::array classControls = {
    ControlSpec{.kind = Kind::unitClassCombo, .key = ParameterKey::unitClass, .id = 2210, .caption = "分类"},
};

DialogSpec dialogOf(std::span<const ControlSpec> controls, std::string_view accounts) {
  return {.id = 9999, .title = "条件", .accountWhere = accounts, .controls = controls};
}

std::vector<std::string> entries(const QWidget& combos, const QString& id) {
  const auto& combo = control<CUsefulCombox>(combos, id);
  std::vector<std::string> all;
  for (int i = 0; i < combo.count(); ++i) all.push_back(fromQt(combo.itemText(i)));
  return all;
}

TEST(ConditionCombos, MembersNeedNoAccount) {
  const MemberLedger ledger;
  const DialogSpec dialog = dialogOf(memberControls, "");
  ConditionCombos combos(dialog, nullptr);
  combos.Fill(ledger.db);
  EXPECT_EQ(entries(combos, "2207"), (std::vector<std::string>{"全部", "销售部", "采购部"}));
  EXPECT_EQ(entries(combos, "2212"), (std::vector<std::string>{"宏达钢材", "江源机械", "远山贸易"}));  // by code
  Request request;
  request.set(ParameterKey::dept, "采购部");
  request.set(ParameterKey::unit, "远山贸易");
  combos.Show(combos.Read(request, ledger.db));
  EXPECT_EQ(control<CUsefulCombox>(combos, "2207").CurrentText(), "采购部");
  EXPECT_EQ(control<CUsefulCombox>(combos, "2212").CurrentText(), "远山贸易");

  std::vector<std::pair<ParameterKey, std::string>> chosen;
  QObject::connect(&combos, &ConditionCombos::chosen, &combos,
                   [&](ParameterKey key, const MemberChoice& member) { chosen.emplace_back(key, member.text); });
  QTest::keyClick(&control<CUsefulCombox>(combos, "2212"), Qt::Key_Up);
  ASSERT_EQ(chosen.size(), 1U);
  EXPECT_EQ(chosen[0], std::pair(ParameterKey::unit, std::string("江源机械")));
}

TEST(ConditionCombos, UnitClassesEndWithOther) {
  const MemberLedger ledger;
  const DialogSpec dialog = dialogOf(classControls, "");
  ConditionCombos combos(dialog, nullptr);
  combos.Fill(ledger.db);
  EXPECT_EQ(entries(combos, "2212"), (std::vector<std::string>{"客户", "供应商", "其它"}));
}

// A clerk that the other account does not have must not stay in the request.
TEST(ConditionCombos, ClerksFollowTheAccount) {
  const MemberLedger ledger;
  const DialogSpec dialog = dialogOf(clerkControls, "sAssBook = 'B' AND bEnd <> 0 ORDER BY sCode");
  ConditionCombos combos(dialog, nullptr);
  combos.Fill(ledger.db);
  Request request;
  request.set(ParameterKey::account, "112201");
  request.set(ParameterKey::clerk, "李娜");
  combos.Show(combos.Read(request, ledger.db));
  EXPECT_EQ(control<CUsefulCombox>(combos, "2213").CurrentText(), "李娜");
  request.set(ParameterKey::account, "112202 运费");
  combos.FollowAccount(request, ledger.db);
  EXPECT_EQ(entries(combos, "2213"), (std::vector<std::string>{"王强", "其它"}));
  EXPECT_EQ(request.text(ParameterKey::clerk), "王强");
}

}  // namespace
}  // namespace tz::test
