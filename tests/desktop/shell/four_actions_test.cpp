// From the navigator to the voucher behind a balance, by keys alone: open, confirm, the row, the line.
#include "desktop/report/sample_report.h"
#include "desktop/report/voucher_paper.h"
#include "desktop/report/voucher_sheet.h"
#include "desktop/report/voucher_window.h"
#include "desktop/shell/launch.h"
#include "desktop/shell/navigator.h"

namespace tz::test {
namespace {

class FourActions : public SampleReport {
 protected:
  FourActions() : launcher_(everybody(), findReport) {
    // The month in which the first person of the first account has borrowed; dialogs start with it.
    g_tmLogonTime = {2025, 4, 30};
    navigator_.SetRunner({[this](int command) { return toQt(launcher_.Obstacle(command)); },
                          [this](int command) { launcher_.Launch(command); },
                          {}});
    navigator_.show();
  }
  ~FourActions() override {
    launcher_.CloseAll();
    deleteClosed();
  }
  // Presses Enter where the focus is.
  static void enter(QWidget* window, Qt::KeyboardModifiers with = {}) {
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(waitActive(window));
    ASSERT_NE(window->focusWidget(), nullptr);
    QTest::keyClick(window->focusWidget(), Qt::Key_Return, with);
  }

  CQnCwAssistantDlg navigator_{nullptr};
  ReportLauncher launcher_;
};

TEST_F(FourActions, LeadFromTheNavigatorToTheVoucherBehindABalance) {
  click(navigator_, QStringLiteral("10182"));
  control<QWidget>(navigator_, QStringLiteral("10183")).setFocus(Qt::TabFocusReason);

  inModal([](QWidget& dialog) { enter(&dialog, Qt::ControlModifier); });  // 2
  enter(&navigator_);                                                     // 1
  auto* table = qobject_cast<ReportWindow*>(launcher_.SlotOf(10183));
  ASSERT_NE(table, nullptr) << messages_.takeLast();
  EXPECT_EQ(table->Grid().Current(), (GridCell{0, 0}));
  enter(table);  // 3
  auto* ledger = qobject_cast<ReportWindow*>(launcher_.SlotOf(10184));
  ASSERT_NE(ledger, nullptr) << messages_.takeLast();
  enter(ledger);  // 4
  auto* voucher = qobject_cast<VoucherWindow*>(launcher_.SlotOf(VoucherWindow::templateId));
  ASSERT_NE(voucher, nullptr) << messages_.takeLast();

  ASSERT_TRUE(waitActive(voucher));
  const Subject& member = table->Shown()->report.subjects.of(0);
  const auto& line = voucher->Shown()->lines[static_cast<std::size_t>(voucher->Paper()->Sheet().CurrentRow())];
  EXPECT_EQ(line.dept.id, member.dept);
  EXPECT_EQ(line.person.id, member.person);
  EXPECT_TRUE(line.account.sCode.starts_with("1221"));
  EXPECT_EQ(line.debit() + line.credit(), 6000);
}

}  // namespace
}  // namespace tz::test
