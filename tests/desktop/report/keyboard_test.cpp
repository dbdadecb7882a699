// The keyboard alone: Tab and Enter through every condition dialog, the keys of a report's toolbar.
#include <QLineEdit>
#include <QMenu>
#include <set>

#include "core/catalogue/catalogue.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/query/condition_store.h"
#include "desktop/query/query_dialog.h"
#include "desktop/report/report_ledger.h"
#include "support/refusal_cases.h"

namespace tz::test {
namespace {

// The reading order of a dialog: row by row, from left to right. Controls of one row overlap in height.
bool standsBefore(const QWidget& window, const QWidget* one, const QWidget* other) {
  const QRect a(one->mapTo(&window, QPoint()), one->size());
  const QRect b(other->mapTo(&window, QPoint()), other->size());
  const bool sameRow = a.top() < b.bottom() && b.top() < a.bottom();
  return sameRow ? a.left() < b.left() || a.top() < b.top() : a.top() < b.top();
}

std::set<QWidget*> tabTargets(const QWidget& window) {
  std::set<QWidget*> targets;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool stops = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
    const auto* radio = qobject_cast<QRadioButton*>(widget);
    if (stops && widget->isVisible() && widget->isEnabled() && (radio == nullptr || radio->isChecked())) {
      targets.insert(widget);
    }
  }
  return targets;
}

void goRound(QWidget& window) {
  if (auto* unfold = window.findChild<QAbstractButton*>(QStringLiteral("unfold"))) unfold->click();
  QApplication::processEvents();
  expectNamed(window);
  const auto targets = tabTargets(window);
  control<QWidget>(window, "2").setFocus();
  QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  QWidget* first = window.focusWidget();
  std::set<QWidget*> reached{first};
  for (std::size_t step = 1; step < targets.size(); ++step) {
    QWidget* before = window.focusWidget();
    QTest::keyClick(before, Qt::Key_Tab);
    QWidget* now = window.focusWidget();
    reached.insert(now);
    EXPECT_TRUE(standsBefore(window, before, now)) << fromQt(before->objectName() + " " + now->objectName());
  }
  EXPECT_EQ(reached, targets);
  EXPECT_EQ(window.focusWidget()->objectName(), "2");
  QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(window.focusWidget()->objectName(), "1");
}

class Keyboard : public ::testing::Test {
 protected:
  Keyboard() {
    fillRefusalLedger(ledger_);
    db_.Open(ledger_.address());
  }
  TestLedger ledger_{Engine::sqlite};
  CQnCwDB db_;
  Session session_{.db = db_, .ledger = ledger_.address(), .logon = {2006, 3, 15}};
  TempFolder folder_;
  RecordedMessages messages_;
};

TEST_F(Keyboard, TabGoesThroughEveryDialogInReadingOrder) {
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->dialog.id);
    CTzQueryDialog dialog(report->dialog, session_, nullptr);
    FileConditionStore saved(folder_.path() / "conditions.json");
    dialog.OfferSaved(saved, report->command);
    Request secondMethod;
    secondMethod.set(ParameterKey::analysis, "amount");
    for (const auto& request : {Request(), secondMethod}) {
      dialog.SetRequest(request);
      inModal([](QWidget& window) {
        goRound(window);
        QTest::keyClick(&window, Qt::Key_Escape);
      });
      EXPECT_FALSE(dialog.DoModal());
      EXPECT_EQ(messages_.takeLast(), "");
    }
  }
}

// From the table round to the table.
TEST_F(Keyboard, TabGoesThroughEveryWindowInReadingOrder) {
  g_pDB = &db_;
  g_lpszQnZwDBName = ledger_.address();
  g_tmLogonTime = session_.logon;
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->command);
    ReportWindow window(*report, nullptr);
    ASSERT_TRUE(window.CreateTheDialog(nullptr));
    window.show();
    ASSERT_TRUE(waitActive(&window));
    window.Grid().setFocus();
    const auto targets = tabTargets(window);
    std::set<QWidget*> reached;
    for (std::size_t step = 0; step < targets.size(); ++step) {
      QWidget* before = window.focusWidget();
      QTest::keyClick(before, Qt::Key_Tab);
      QWidget* now = window.focusWidget();
      reached.insert(now);
      EXPECT_TRUE(step == 0 || standsBefore(window, before, now))
          << fromQt(before->objectName() + " " + now->objectName());
    }
    EXPECT_EQ(reached, targets);
    EXPECT_EQ(window.focusWidget(), &window.Grid());
  }
  g_pDB = nullptr;
}

// Enter on each field and on the last one confirms: the dialog closes or says what it lacks.
TEST_F(Keyboard, EnterGoesThroughEveryDialogAndConfirms) {
  for (const ReportDefinition* report : catalogue()) {
    SCOPED_TRACE(report->dialog.id);
    CTzQueryDialog dialog(report->dialog, session_, nullptr);
    bool confirmed = false;
    inModal([&](QWidget& window) {
      std::set<QWidget*> passed;
      while (window.isVisible() && messages_.all.empty() && passed.insert(window.focusWidget()).second) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
      }
      confirmed = !window.isVisible() || !messages_.all.empty();
      EXPECT_GE(passed.size(), report->dialog.controls.size() - 1);
      if (window.isVisible()) click(window, "2");
    });
    dialog.DoModal();
    EXPECT_TRUE(confirmed);
    messages_.all.clear();
  }
}

TEST(ToolBarKeys, ReachTheirCommands) {
  const ReportLedger ledger;
  RecordedMessages messages;
  auto* window = new ReportWindow(*findReport(10190), nullptr);
  window->SetConditions(ReportLedger::zhangSan());
  ASSERT_TRUE(window->CreateTheDialog(nullptr));
  window->RefreshDisplay();
  ASSERT_TRUE(waitActive(window));
  expectNamed(*window);
  QStringList opened;
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    inModal([&](QWidget& modal) {
      opened << modal.windowTitle();
      QTest::keyClick(&modal, Qt::Key_Escape);
    });
    QTest::keyClick(&window->Grid(), key, modifiers);
    // The modal window may be the active one for a while after it has closed.
    EXPECT_TRUE(QTest::qWaitFor([&] {
      window->activateWindow();
      return window->isActiveWindow();
    }));
  };
  press(Qt::Key_F5, Qt::NoModifier);
  press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(fromQt(opened.join("|")), "个人往来_三栏式明细帐|输出到文件");
  // Each entry of the grid's menu has a letter of its own, whoever added it.
  QTest::keyClick(&window->Grid(), Qt::Key_Menu);
  const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  std::set<QString> letters;
  for (const QAction* entry : menu->actions()) {
    if (entry->isSeparator()) continue;
    const QString letter = entry->text().section(QLatin1Char('&'), 1).left(1);
    EXPECT_TRUE(!letter.isEmpty() && letters.insert(letter).second) << fromQt(entry->text());
  }
  QTest::keyClick(menu, Qt::Key_Escape);
  QTest::keyClick(&window->Grid(), Qt::Key_Escape);
  QTest::keyClick(&window->Grid(), Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  const QPointer<ReportWindow> closed = window;
  QTest::keyClick(&window->Grid(), Qt::Key_W, Qt::ControlModifier);
  deleteClosed();
  EXPECT_TRUE(closed.isNull());
}

}  // namespace
}  // namespace tz::test
