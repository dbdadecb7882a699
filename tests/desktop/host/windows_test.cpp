// The windows of a ledger among each other, by clicks and keys: where they open and how large, what the list and the
// status line call them, how they are laid out and closed, and what is asked before they go. Run once more on a screen
// of 1920 x 1080, which leaves them room to stand aside.
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include "desktop/frame/fit_window.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/host/desktop.h"
#include "desktop/host/desktop_bar.h"
#include "desktop/host/host_ledger.h"

namespace tz::test {
namespace {

constexpr int personDetails = 10190;

class Windows : public HostTest {
 protected:
  void SetUp() override { startDesktop(); }
  void TearDown() override {
    messages_.answer = true;
    desktop_.reset();
    deleteClosed();
  }
  void startDesktop() {
    open_.MakeCurrent({2006, 3, 31});
    desktop_ = std::make_unique<Desktop>(settings_, open_, everybody());
    desktop_->Show();
    navigator_ = qobject_cast<CQnCwAssistantDlg*>(g_pDlgWnd);
    navigator_->OnTzAssistantPerson();
  }
  ReportWindow* openReport() {
    inModal([](QWidget& dialog) {
      control<QLineEdit>(dialog, "8052").setText("销售部");
      control<QLineEdit>(dialog, "2111").setText("张三");
      click(dialog, "1");
    });
    click(*navigator_, QString::number(personDetails));
    auto* opened = qobject_cast<ReportWindow*>(navigator_->findChildren<ReportWindow*>().back());
    EXPECT_TRUE(QTest::qWaitForWindowExposed(opened));
    return opened;
  }
  // Alt+W, and then a letter of the menu.
  static void chooseInList(QWidget& window, int key) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
    QTest::keyClick(&window, Qt::Key_W, Qt::AltModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, static_cast<Qt::Key>(key));
    QCoreApplication::processEvents();
  }
  [[nodiscard]] std::size_t shown() const {
    const auto reports = navigator_->findChildren<ReportWindow*>();
    return static_cast<std::size_t>(
        std::ranges::count_if(reports, [](QWidget* report) { return report->isVisible(); }));
  }
  static QRect screenOf(const QWidget& window) { return window.screen()->availableGeometry(); }

  HostSettings settings_;
  OpenLedger open_{address()};
  std::unique_ptr<Desktop> desktop_;
  QPointer<CQnCwAssistantDlg> navigator_;
  RecordedMessages messages_;
};

TEST_F(Windows, StepAsideAndSayWhatTheyAreAbout) {
  ReportWindow* first = openReport();
  ReportWindow* second = openReport();
  const QMargins frame = frameOf(*first);
  const QRect outer = first->geometry().marginsAdded(frame);
  EXPECT_TRUE(screenOf(*first).contains(outer));
  if (screenOf(*first).width() > 1400) {
    EXPECT_LE((outer.center() - screenOf(*first).center()).manhattanLength(), 4) << "in the middle";
    const QPoint aside = second->pos() - first->pos();
    EXPECT_EQ(aside, QPoint(titleBarHeight(*first), titleBarHeight(*first))) << aside.x() << ", " << aside.y();
  }
  EXPECT_TRUE(screenOf(*second).contains(second->geometry().marginsAdded(frame)));
  const QSize asked(first->width() - first->Grid().width() + first->Grid().AskedWidth(), 0);
  EXPECT_GE(first->width(), std::min(asked.width(), roomFor(*first).width())) << "every column shows";

  // As a person drags it; raised by the list it stays there.
  second->move(second->pos() + QPoint(90, 90));
  const QPoint dragged = second->pos();
  const QString subject = "122101 职工借款 张三 2006.03";
  EXPECT_EQ(second->ListEntry(), "个人往来_三栏明细帐 — " + subject);
  EXPECT_EQ(second->windowTitle(), "个人往来_三栏明细帐");
  EXPECT_EQ(control<QLabel>(*second, "subject").text(), subject);
  EXPECT_TRUE(control<QLabel>(*second, "subject").isVisible());
  EXPECT_EQ(QAccessible::queryAccessibleInterface(second)->text(QAccessible::Description), subject);

  QTest::mouseClick(&control<QToolButton>(*navigator_, "windows"), Qt::LeftButton);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->actions()[2]->text(), "&3　" + second->ListEntry());
  EXPECT_TRUE(menu->actions()[0]->isChecked());
  QTest::keyClick(menu, Qt::Key_3);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == second; }));
  EXPECT_EQ(second->pos(), dragged);

  // Another subject, in a format with more columns: it gets their room, unless a person has sized the window.
  for (ReportWindow* window : {second, first}) {
    const bool sized = window == first;
    const QSize drawn = first->size() - QSize(11, 7);
    if (sized) window->resize(drawn);
    window->SetConditions(ReportLedger::zhangSan("122105"));
    window->RefreshDisplay();
    EXPECT_EQ(window->Subject(), "122105 样机款 张三 2006.01–2006.03");
    EXPECT_EQ(control<QLabel>(*window, "subject").text(), window->Subject());
    if (sized) {
      EXPECT_EQ(window->size(), drawn);
    } else {
      EXPECT_EQ(window->width(), std::min(window->width() - window->Grid().width() + window->Grid().AskedWidth(),
                                          roomFor(*window).width()));
      EXPECT_TRUE(screenOf(*window).width() < 1400 || screenOf(*window).contains(window->frameGeometry()));
    }
  }
}

TEST_F(Windows, AreLaidOutAndClosedFromEveryWindow) {
  std::vector<QPointer<ReportWindow>> reports;
  for (int number = 0; number < 3; ++number) reports.emplace_back(openReport());
  const auto expectApart = [&] {
    for (const auto& report : reports) {
      EXPECT_TRUE(screenOf(*report).contains(report->geometry().marginsAdded(frameOf(*report))));
      if (screenOf(*report).width() < 1400) continue;
      for (const auto& other : reports) EXPECT_TRUE(report == other || report->pos() != other->pos());
    }
  };
  const QSize own = reports[0]->size();
  reports[1]->showMaximized();
  chooseInList(*reports[1], Qt::Key_T);
  EXPECT_FALSE(reports[1]->isMaximized());
  expectApart();
  EXPECT_EQ(QApplication::activeWindow(), reports[1]) << "whoever asked for it keeps the keyboard";
  const QSize beside = reports[0]->size();
  // A window that was wide gives way down to the least that its template allows.
  const int least = 2 * reports[0]->minimumSize().grownBy(frameOf(*reports[0])).width();
  const QRect first = reports[0]->geometry();
  EXPECT_TRUE(screenOf(*reports[0]).width() < least || !first.intersects(reports[1]->geometry()));
  EXPECT_TRUE(messages_.all.empty());
  chooseInList(*navigator_, Qt::Key_S);
  expectApart();
  EXPECT_EQ(reports[0]->size(), own) << "as it was before";
  chooseInList(*reports[2], Qt::Key_A);
  deleteClosed();
  for (const auto& report : reports) EXPECT_TRUE(report.isNull());
  EXPECT_TRUE(messages_.all.empty());
  EXPECT_TRUE(navigator_->isVisible());
  EXPECT_FALSE(settings_.WindowSize(personDetails).isValid()) << beside.width() << ": nobody has drawn it";

  // Nothing to lay out or to close.
  QTest::mouseClick(&control<QToolButton>(*navigator_, "windows"), Qt::LeftButton);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (const QAction* action : menu->actions()) EXPECT_EQ(action->isEnabled(), action->objectName().isEmpty());
  menu->close();
}

TEST_F(Windows, OpenAsAPersonLeftThem) {
  ReportWindow* window = openReport();
  const QSize drawn = window->size() - QSize(31, 17);
  window->resize(drawn);
  window->close();
  deleteClosed();
  window = openReport();
  EXPECT_EQ(window->size(), drawn);
  window->showMaximized();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->size() != drawn; }));
  window->close();
  deleteClosed();
  window = openReport();
  EXPECT_TRUE(window->isMaximized());
  EXPECT_EQ(settings_.WindowSize(personDetails), drawn);
  window->showNormal();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window->size() == drawn; })) << window->width() << " x " << window->height();
  window->close();
  deleteClosed();
  EXPECT_FALSE(openReport()->isMaximized());
}

TEST_F(Windows, AreNotClosedWithTheNavigatorUnasked) {
  constexpr const char* exitCommand = "10239";
  openReport();
  openReport();
  const QSignalSpy finished(desktop_.get(), &Desktop::finished);
  messages_.answer = false;
  for (const bool byExit : {true, false}) {
    if (byExit) {
      click(*navigator_, exitCommand);
    } else {
      navigator_->close();
    }
    ASSERT_EQ(messages_.all.size(), 1);
    EXPECT_TRUE(messages_.all.back().asks() && messages_.all.back().defaultsToNo);
    EXPECT_EQ(messages_.takeLast(), "还有 2 个报表窗口开着，要全部关闭并退出吗？");
    EXPECT_TRUE(navigator_->isVisible());
    EXPECT_EQ(shown(), 2);
  }
  messages_.answer = true;
  navigator_->close();
  EXPECT_EQ(messages_.all.size(), 1);
  EXPECT_EQ(finished.size(), 1);
  EXPECT_EQ(shown(), 0);
  messages_.all.clear();
  deleteClosed();
  startDesktop();
  click(*navigator_, exitCommand);
  EXPECT_FALSE(navigator_->isVisible());
  EXPECT_TRUE(messages_.all.empty()) << "there is nothing to ask";
}

// Enter on the question that nobody has read keeps everything.
TEST_F(Windows, TheQuestionsDefaultKeepsThem) {
  openReport();
  setMessageHandler({});
  inModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
  navigator_->close();
  EXPECT_TRUE(navigator_->isVisible());
  EXPECT_EQ(shown(), 1);
  inModal([](QWidget& box) {
    QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&box] { return !box.isVisible(); }));
  });
  navigator_->close();
  EXPECT_FALSE(navigator_->isVisible());
}

// The ledger's name is whole as long as the navigator has room for it, and grows with it.
TEST_F(Windows, TheNavigatorsBarGrowsWithIt) {
  auto& ledger = control<QToolButton>(*navigator_, "ledger");
  const auto settle = [&](QSize size) {
    navigator_->resize(size);
    QTest::qWait(1);
    return navigator_->findChild<PictureButton*>("10239")->geometry();
  };
  const QSize usual = navigator_->minimumSize();
  QRect exit = settle(usual);
  EXPECT_EQ(ledger.text(), "华源机械 ▾");
  EXPECT_GE(ledger.width(), ledger.sizeHint().width());
  EXPECT_LT(ledger.geometry().bottom(), exit.top());
  const int height = ledger.fontMetrics().height();
  exit = settle(usual * 2);
  EXPECT_GT(ledger.fontMetrics().height(), height * 3 / 2);
  EXPECT_LT(ledger.geometry().bottom(), exit.top());
  EXPECT_LT(control<QWidget>(*navigator_, "who").geometry().right(), exit.left());
  EXPECT_EQ(control<QLabel>(*navigator_, "who").text(), "2006-03-31");
  EXPECT_TRUE(ledger.accessibleName().contains("华源机械"));
  // A name that is too long for the navigator at its usual size is whole in a larger one.
  const QString name = QStringLiteral("华东地区汽车零部件研究与制造集团（无锡）股份有限公司 & 子公司");
  auto& bar = *navigator_->findChild<DesktopBar*>();
  bar.SetLedger(name);
  EXPECT_EQ(ledger.text(), QString(name).replace("&", "&&") + " ▾");
  settle(usual);
  EXPECT_TRUE(ledger.text().contains("…")) << fromQt(ledger.text());
  EXPECT_TRUE(ledger.accessibleName().contains(name) && ledger.toolTip().contains(name));
  EXPECT_LE(ledger.geometry().right(), navigator_->findChild<PictureButton*>("10239")->geometry().right());
  QTest::keyClick(navigator_, Qt::Key_F10);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  menu->close();
}

}  // namespace
}  // namespace tz::test
