// Rows that a report leaves out on request, in its real window: buttons, keys and menu; and the range of accounts of a
// unit's balances, which its dialog unfolds.
#include <QAction>
#include <QMenu>
#include <QToolBar>

#include "desktop/picking/useful_combox.h"
#include "desktop/report/open_report.h"
#include "desktop/report/sample_report.h"

namespace tz::test {
namespace {

constexpr int groupRows = static_cast<int>(WindowCommand::groupRows);
constexpr int zeroRows = static_cast<int>(WindowCommand::zeroRows);

class RowToggles : public SampleReport {
 protected:
  void ClickButton(int command) {
    QTest::mouseClick(Window().ToolBar().widgetForAction(Window().ActionOf(command)), Qt::LeftButton);
  }
  bool On(int command) { return Window().ActionOf(command)->isChecked(); }
  QAction* InMenu(int command) {
    for (QAction* entry : View().actions()) {
      if (entry->data().toInt() == command) return entry;
    }
    return nullptr;
  }
  std::string Shown() { return ReportLedger::json(Report()); }
  // What the command line would print.
  std::string Computed(const Request& request) {
    Session session{.db = *g_pDB, .ledger = g_lpszQnZwDBName, .logon = g_tmLogonTime};
    return ReportLedger::json(std::get<ComputedReport>(runReport(Window().Definition(), request, session)));
  }
  std::int64_t Count(RowKind kind) {
    std::int64_t rows = 0;
    for (std::int64_t row = 0; row < Report().grid.GetRows(); ++row)
      rows += Report().grid.RowKindAt(row) == kind ? 1 : 0;
    return rows;
  }
};

TEST_F(RowToggles, LeaveOutRowsByButtonKeyAndMenuAndBringThemBack) {
  Open(10216, {{ParameterKey::projectClass, "01"}, {ParameterKey::from, "4"}, {ParameterKey::to, "9"}});
  const auto all = Shown();
  const auto rows = Report().grid.GetRows();
  const auto projects = Count(RowKind::heading);
  const auto total = Report().grid.NumberAt(Report().grid.GetRows() - 1, 4);
  EXPECT_GT(projects, 1);
  EXPECT_FALSE(On(groupRows) || On(zeroRows)) << "everything is shown at first";
  ClickButton(groupRows);
  EXPECT_TRUE(On(groupRows));
  EXPECT_TRUE(InMenu(groupRows)->isChecked());
  EXPECT_EQ(View().RowCount(), projects + 1);
  EXPECT_EQ(Report().grid.NumberAt(projects, 4), total) << "sums stay";
  EXPECT_NE(Told("1013").find("不显示明细行"), std::string::npos);
  auto request = Window().GetRequest();
  EXPECT_TRUE(request.flag(ParameterKey::hideDetails));
  EXPECT_EQ(Shown(), Computed(request));

  Press(Qt::Key_G, Qt::ControlModifier);
  EXPECT_FALSE(On(groupRows));
  EXPECT_EQ(Shown(), all);
  Press(Qt::Key_L, Qt::ControlModifier);
  EXPECT_TRUE(On(zeroRows));
  EXPECT_LT(Report().grid.GetRows(), rows);
  request = Window().GetRequest();
  EXPECT_EQ(Shown(), Computed(request));
  // Other conditions of the same window leave it so.
  Press(Qt::Key_1, Qt::AltModifier);
  EXPECT_TRUE(On(zeroRows));
  EXPECT_TRUE(Window().GetRequest().flag(ParameterKey::hideZero));
  InMenu(zeroRows)->trigger();
  EXPECT_FALSE(On(zeroRows) || InMenu(zeroRows)->isChecked());
  EXPECT_FALSE(Window().GetRequest().flag(ParameterKey::hideZero));

  Open(10218, {{ParameterKey::account, "6001"}});
  EXPECT_EQ(Window().ActionOf(zeroRows), nullptr);
  EXPECT_EQ(InMenu(zeroRows), nullptr);
  const auto subtotals = Count(RowKind::subtotal);
  ClickButton(groupRows);
  EXPECT_EQ(View().RowCount(), subtotals + 1);
  EXPECT_EQ(Report().grid.TextAt(0, 0), "销售部") << "a group without its rows names itself";

  Open(10226, {{ParameterKey::account, "6601"}});
  EXPECT_EQ(Window().ActionOf(groupRows), nullptr);
  EXPECT_EQ(InMenu(groupRows), nullptr);
  const auto before = Shown();
  Window().OnCommand(groupRows);
  EXPECT_EQ(Shown(), before) << "not every report has them";
}

TEST_F(RowToggles, ARangeOfAccountsGoesAlongToTheLedger) {
  Open(10197, {{ParameterKey::unit, "江淮重工集团"}});
  const auto all = Report().grid.GetRows();
  inModal([](QWidget& dialog) {
    const auto& from = control<CUsefulCombox>(dialog, "2203");
    EXPECT_FALSE(from.isVisible());
    EXPECT_EQ(control<QAbstractButton>(dialog, "unfold").text(), "科目范围>>");
    click(dialog, "unfold");
    EXPECT_TRUE(from.isVisible());
    EXPECT_EQ(dialog.focusWidget()->objectName(), "2203");
    for (const char* end : {"2203", "2204"}) {
      auto& combo = control<CUsefulCombox>(dialog, end);
      combo.setFocus();
      enterText(combo, QStringLiteral("1122"));
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    }
    expectNamed(dialog);
    click(dialog, "1");
  });
  Press(Qt::Key_F5);
  EXPECT_EQ(Window().GetRequest().text(ParameterKey::accountTo), "1122");
  EXPECT_LE(Report().grid.GetRows(), all);
  EXPECT_NE(Told("1013").find("科目范围: 1122 至 1122"), std::string::npos);
  for (std::int64_t row = 0; row + 1 < Report().grid.GetRows(); ++row) {
    EXPECT_TRUE(Report().grid.TextAt(row, 0).starts_with("1122")) << row;
  }
  std::optional<DetailTarget> leadsTo;
  QObject::connect(&Window(), &ReportWindow::detailWanted, [&](const DetailTarget& target) { leadsTo = target; });
  View().SetCurrent(0, 0);
  Press(Qt::Key_Return);
  ASSERT_TRUE(leadsTo);
  EXPECT_EQ(leadsTo->command, 10204);
  Session session{.db = *g_pDB, .ledger = g_lpszQnZwDBName, .logon = g_tmLogonTime};
  const auto outcome = runReport(*findReport(10204), leadsTo->conditions, session);
  EXPECT_TRUE(std::holds_alternative<ComputedReport>(outcome)) << "the ledger takes the accounts that go along";
}

}  // namespace
}  // namespace tz::test
