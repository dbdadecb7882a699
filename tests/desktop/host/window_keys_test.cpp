// The keys that help promises, from every place of every window: the navigator, a report's grid and its fields.
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTextBrowser>
#include <array>

#include "desktop/gridview/grid_view.h"
#include "desktop/host/desktop.h"
#include "desktop/host/host_ledger.h"
#include "desktop/manual/open_manual.h"
#include "desktop/report/search_window.h"
#include "desktop/report/window_commands.h"
#include "desktop/shell/command_table.h"

namespace tz::test {
namespace {

class WindowKeys : public HostTest {
 protected:
  void SetUp() override {
    open_.MakeCurrent({2006, 3, 31});
    desktop_ = std::make_unique<Desktop>(settings_, open_, everybody());
    desktop_->Show();
    navigator_ = qobject_cast<CQnCwAssistantDlg*>(g_pDlgWnd);
    navigator_->OnTzAssistantPerson();
    for (const char* command : {"10190", "10190"}) {
      inModal([](QWidget& dialog) {
        control<QLineEdit>(dialog, "8052").setText("销售部");
        control<QLineEdit>(dialog, "2111").setText("张三");
        click(dialog, "1");
      });
      click(*navigator_, command);
    }
    const auto reports = navigator_->findChildren<ReportWindow*>();
    ASSERT_EQ(reports.size(), 2);
    first_ = reports[0];
    second_ = reports[1];
  }
  void TearDown() override {
    closeManual();
    desktop_.reset();
    deleteClosed();
  }

  // Itself: to the toolkit a window is active also while one that belongs to it is.
  static void expectActive(QWidget& window) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }))
        << fromQt(window.windowTitle());
  }
  // A report's places for the focus: the grid, a combo that finds as one types, the combo of formats.
  static std::vector<QWidget*> placesOf(ReportWindow& report) {
    return {&report.Grid(), &control<QWidget>(report, "2206"), &control<QWidget>(report, "2201")};
  }
  static void focus(QWidget& place) {
    place.window()->activateWindow();
    expectActive(*place.window());
    place.setFocus();
    ASSERT_EQ(place.window()->focusWidget(), &place);
  }
  // Back to a dialog beside which the manual stands, and out of it.
  static void leave(QWidget& dialog) {
    dialog.activateWindow();
    expectActive(dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  }
  static void expectPage(const char* page, const char* anchor) {
    auto* manual = openManual();
    ASSERT_NE(manual, nullptr);
    EXPECT_EQ(manual->Place(), (ManualPlace{page, anchor}));
    EXPECT_NE(manualText(page), "");
    const QString heading = "# " + QString::fromUtf8(anchor);
    EXPECT_TRUE(*anchor == '\0' || manualText(page).contains(heading + "\n")) << anchor;
  }
  static void press(QWidget& place, int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&place, static_cast<Qt::Key>(key), modifiers);
  }

  HostSettings settings_;
  OpenLedger open_{address()};
  std::unique_ptr<Desktop> desktop_;
  CQnCwAssistantDlg* navigator_ = nullptr;
  ReportWindow* first_ = nullptr;
  ReportWindow* second_ = nullptr;
  RecordedMessages messages_;
};

TEST_F(WindowKeys, CtrlTabGoesRoundFromEveryPlace) {
  for (std::size_t place = 0; place < placesOf(*first_).size(); ++place) {
    SCOPED_TRACE(place);
    QWidget& inNavigator = control<QWidget>(*navigator_, place == 0 ? "10182" : "10190");
    focus(inNavigator);
    press(inNavigator, Qt::Key_Tab, Qt::ControlModifier);
    expectActive(*first_);
    focus(*placesOf(*first_)[place]);
    press(*placesOf(*first_)[place], Qt::Key_Tab, Qt::ControlModifier);
    expectActive(*second_);
    focus(*placesOf(*second_)[place]);
    press(*placesOf(*second_)[place], Qt::Key_Tab, Qt::ControlModifier);
    expectActive(*navigator_);
    press(inNavigator, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    expectActive(*second_);
    press(*placesOf(*second_)[place], Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    expectActive(*first_);
  }
}

// Each key of the toolbar that its help lists: it is the window's, whatever a field would do with it.
TEST_F(WindowKeys, TheToolbarsKeysAreTheWindowsInEveryField) {
  for (QWidget* place : placesOf(*first_)) {
    focus(*place);
    for (const QAction* action : first_->ToolBar().actions()) {
      const ReportCommand* command = findReportCommand(action->objectName().toInt());
      if (command == nullptr || *command->shortcut == '\0' || command->command == WindowCommand::close) continue;
      SCOPED_TRACE(fromQt(place->objectName()) + " " + command->shortcut);
      const QKeyCombination keys = QKeySequence(QLatin1String(command->shortcut))[0];
      QSignalSpy ran(action, &QAction::triggered);
      constexpr std::array dialogs = {"50000", "50001", "50020", "50031"};
      const bool opensModal = std::ranges::find(dialogs, action->objectName()) != dialogs.end();
      if (opensModal) inModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
      press(*place, keys.key(), keys.keyboardModifiers());
      EXPECT_EQ(ran.size(), action->isEnabled() ? 1 : 0);
      if (action->objectName() == "50009") closeManual();
      focus(*place);
    }
  }
  auto& account = control<QComboBox>(*first_, "2206");
  EXPECT_EQ(account.lineEdit()->text(), "122101 职工借款");
  focus(account);
  const QPointer<ReportWindow> closed = first_;
  press(account, Qt::Key_W, Qt::ControlModifier);
  deleteClosed();
  EXPECT_TRUE(closed.isNull());
}

// For all windows at once, remembered, and from fields that would keep such keys.
TEST_F(WindowKeys, TextsGrowAndShrinkByKeysAndByTheMenu) {
  const auto* label = first_->findChild<QLabel*>("1006");
  const int usualRow = second_->Grid().RowHeight();
  const int usualLabel = label->font().pixelSize();
  const QSize usualNavigator = navigator_->size();
  for (QWidget* place : placesOf(*first_)) {
    focus(*place);
    press(*place, Qt::Key_Equal, Qt::ControlModifier);
    press(*place, Qt::Key_Plus, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(HostSettings().TextSize(), 130);
    EXPECT_EQ(label->font().pixelSize(), (usualLabel * 130 + 50) / 100);
    EXPECT_GT(second_->Grid().RowHeight(), usualRow) << "windows that do not have the focus too";
    EXPECT_GE(place->height(), place->fontMetrics().height());
    EXPECT_GT(navigator_->width(), usualNavigator.width());
    press(*place, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(HostSettings().TextSize(), 115);
    press(*place, Qt::Key_0, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(label->font().pixelSize(), usualLabel);
    EXPECT_EQ(second_->Grid().RowHeight(), usualRow);
    EXPECT_EQ(navigator_->size(), usualNavigator);
  }
  const auto choose = [&](const QString& size) {
    for (auto* menu : navigator_->findChildren<QMenu*>()) {
      if (menu->title() != QStringLiteral("文字大小")) continue;
      menu->popup(navigator_->pos());
      for (QAction* action : menu->actions()) {
        if (action->text() != size) continue;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        return;
      }
    }
    ADD_FAILURE() << fromQt(size);
  };
  choose("150 %");
  EXPECT_EQ(HostSettings().TextSize(), 150);
  choose("100 %");
  QApplication::processEvents();
  EXPECT_EQ(label->font().pixelSize(), usualLabel);
}

// Also while the manual is open already, and from each area.
TEST_F(WindowKeys, F1InTheNavigatorIsItsPage) {
  focus(first_->Grid());
  press(first_->Grid(), Qt::Key_F1, Qt::NoModifier);
  for (const AreaPicture& area : areaPictures()) {
    SCOPED_TRACE(area.hint);
    auto& button = control<QWidget>(*navigator_, QString::number(area.command));
    click(*navigator_, button.objectName());
    const auto commands = commandsOf(area.area);
    for (QWidget* place : {&button, &control<QWidget>(*navigator_, QString::number(commands.front().id))}) {
      focus(*place);
      press(*place, Qt::Key_F1, Qt::NoModifier);
      auto* manual = openManual();
      ASSERT_NE(manual, nullptr);
      expectActive(*manual);
      EXPECT_EQ(manual->Place(), (ManualPlace{"start", "导航窗口"}));
      QTest::keyClick(manual, Qt::Key_Escape);
      EXPECT_EQ(openManual(), nullptr);
    }
  }
}

// F1 wherever the focus is, and the Help button: each window opens the page that tells of it, in one window for all.
TEST_F(WindowKeys, F1OpensThePageOfEachWindow) {
  for (QWidget* place : placesOf(*first_)) {
    focus(*place);
    press(*place, Qt::Key_F1, Qt::NoModifier);
    expectPage("reports/10190", "");
  }
  const QPointer<QWidget> before = openManual();
  focus(second_->Grid());
  second_->findChild<QAction*>("50009")->trigger();
  EXPECT_EQ(openManual(), before);

  inModal([&](QWidget& dialog) {
    QTest::keyClick(&control<QWidget>(dialog, "2111"), Qt::Key_F1);
    expectPage("reports/10190", "条件");
    inModal([&](QWidget& reference) {
      QTest::keyClick(reference.focusWidget(), Qt::Key_F1);
      expectPage("conditions", "输入");
      leave(reference);
    });
    click(dialog, "2007");
    control<QLineEdit>(dialog, "8052").setText("没有的部");
    const MessageHandler recorded = setMessageHandler({});
    inModal([&](QWidget& box) {
      QTest::keyClick(&box, Qt::Key_F1);
      expectPage("reports/10190", "提示与拒绝");
      leave(box);
    });
    click(dialog, "1");
    setMessageHandler(recorded);
    leave(dialog);
  });
  focus(first_->Grid());
  press(first_->Grid(), Qt::Key_F5, Qt::NoModifier);

  inModal([&](QWidget& preview) {
    QTest::keyClick(&preview, Qt::Key_F1);
    expectPage("printing", "");
    leave(preview);
  });
  focus(first_->Grid());
  press(first_->Grid(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);

  focus(first_->Grid());
  press(first_->Grid(), Qt::Key_K, Qt::ControlModifier);
  auto* search = navigator_->findChild<SearchWindow*>();
  ASSERT_NE(search, nullptr);
  expectActive(*search);
  QTest::keyClick(search->focusWidget(), Qt::Key_F1);
  expectPage("search", "");
}

TEST_F(WindowKeys, F1OpensThePageOfFinding) {
  inModal([](QWidget& dialog) { click(dialog, "1"); });
  click(*navigator_, "10183");
  auto* table = navigator_->findChildren<ReportWindow*>().back();
  inModal([&](QWidget& find) {
    QTest::keyClick(find.focusWidget(), Qt::Key_F1);
    expectPage("tables", "定位和查找");
    leave(find);
  });
  focus(table->Grid());
  press(table->Grid(), Qt::Key_F, Qt::ControlModifier);
}

// A dialog that waits for an answer leaves the manual beside it free: it scrolls, follows links and closes; and it
// stays when the dialog goes.
TEST_F(WindowKeys, TheManualIsFreeBesideADialog) {
  inModal([&](QWidget& dialog) {
    QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
    auto* manual = openManual();
    ASSERT_NE(manual, nullptr);
    expectActive(*manual);
    auto& page = control<QTextBrowser>(*manual, "page");
    page.verticalScrollBar()->setValue(0);
    QTest::keyClick(&page, Qt::Key_PageDown);
    EXPECT_GT(page.verticalScrollBar()->value(), 0);
    QTest::mouseClick(&control<QAbstractButton>(*manual, "home"), Qt::LeftButton);
    EXPECT_EQ(manual->Place().page, "index");
    QTest::keyClick(manual, Qt::Key_Escape);
    EXPECT_EQ(openManual(), nullptr);
    dialog.activateWindow();
    expectActive(dialog);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
    leave(dialog);
  });
  focus(first_->Grid());
  press(first_->Grid(), Qt::Key_F5, Qt::NoModifier);
  auto* manual = openManual();
  ASSERT_NE(manual, nullptr);
  EXPECT_TRUE(manual->isVisible());
  QTest::mouseClick(&control<QAbstractButton>(*manual, "back"), Qt::LeftButton);
  desktop_->Close();
  EXPECT_EQ(openManual(), nullptr);
}

}  // namespace
}  // namespace tz::test
