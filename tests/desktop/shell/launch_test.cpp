// How report windows come and go: from the navigator through the condition dialog, from another report, and with the
// host.
#include "desktop/shell/launch.h"

#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/projstat/statistics_launch_checks.h"
#include "desktop/frame/process_window.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_ledger.h"
#include "desktop/shell/launch_window_list.h"
#include "desktop/shell/navigator.h"

namespace tz::test {
namespace {

constexpr int personDetail = 10190;

class LaunchTest : public ::testing::Test {
 protected:
  LaunchTest() : launcher_(everybody(), findCounted) {
    counted_ = &report_.definition;
    navigator_.SetRunner({[this](int command) { return toQt(launcher_.Obstacle(command)); },
                          [this](int command) { launcher_.Launch(command); },
                          {}});
    QObject::connect(&navigator_, &QDialog::finished, &launcher_, &ReportLauncher::CloseAll);
    navigator_.show();
    navigator_.OnTzAssistantPerson();
  }
  ~LaunchTest() override { deleteClosed(); }

  static const ReportDefinition* findCounted(int command) { return command == personDetail ? counted_ : nullptr; }

  // Clicks the command in the navigator and answers its condition dialog.
  void launch(const std::function<void(QWidget&)>& answer) {
    inModal(answer);
    click(navigator_, QString::number(personDetail));
  }
  // The report in a slot; null when it is empty.
  [[nodiscard]] ReportWindow* slotted() const { return qobject_cast<ReportWindow*>(launcher_.SlotOf(personDetail)); }
  static void cancel(QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }
  static void confirm(QWidget& dialog) {
    control<QLineEdit>(dialog, "8052").setText("销售部");
    control<QLineEdit>(dialog, "2111").setText("张三");
    click(dialog, "1");
  }

  ReportLedger ledger_;
  CountedReport report_;
  static inline const ReportDefinition* counted_ = nullptr;
  CQnCwAssistantDlg navigator_{nullptr};
  ReportLauncher launcher_;
  RecordedMessages messages_;
};

TEST_F(LaunchTest, NothingOpensWhileAReportIsComputed) {
  const LongWork work(navigator_);
  launcher_.Launch(personDetail);
  EXPECT_EQ(launcher_.LaunchFromReport({personDetail, ReportLedger::zhangSan()}, nullptr), nullptr);
  EXPECT_TRUE(launcher_.Windows().empty());
}

TEST_F(LaunchTest, ACancelledFirstQueryLeavesNothing) {
  launch(cancel);
  EXPECT_TRUE(launcher_.Windows().empty());
  EXPECT_EQ(launcher_.SlotOf(personDetail), nullptr);
  EXPECT_TRUE(navigator_.findChildren<ReportWindow*>().empty());
}

TEST_F(LaunchTest, ConfirmedConditionsOpenAWindowWithTheCoresRows) {
  launch(confirm);
  ASSERT_EQ(launcher_.Windows().size(), 1);
  const ReportWindow* window = slotted();
  ASSERT_EQ(launcher_.Windows().front(), window);
  EXPECT_EQ(window->parentWidget(), &navigator_);
  EXPECT_TRUE(window->isVisible());
  ASSERT_NE(window->Shown(), nullptr);
  Request march;  // the dialog opens on the first account and the logon month
  march.set(ParameterKey::account, "122101");
  march.set(ParameterKey::dept, "销售部");
  march.set(ParameterKey::person, "张三");
  EXPECT_EQ(ReportLedger::json(window->Shown()->report), ledger_.computed(march));
}

TEST_F(LaunchTest, WithoutTheRightNothingHappens) {
  ReportLauncher refused(Operator{.name = "王", .rights = {3, 5}}, findCounted);
  refused.Launch(personDetail);  // a dialog would hang the test
  EXPECT_TRUE(refused.Windows().empty());
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(LaunchTest, ALaunchOfAnOpenReportMakesANewWindowThatTakesTheSlot) {
  launch(confirm);
  ReportWindow* first = slotted();
  launch(confirm);
  ReportWindow* second = slotted();
  EXPECT_NE(first, second);
  EXPECT_EQ(launcher_.Windows().size(), 2);
  first->close();
  EXPECT_EQ(launcher_.SlotOf(personDetail), second);
  second->close();
  EXPECT_EQ(launcher_.SlotOf(personDetail), nullptr);
  EXPECT_TRUE(launcher_.Windows().empty());
}

TEST_F(LaunchTest, ADrillDownTakesTheOpenWindowAndOpensAClosedOneAgain) {
  ReportWindow* window = launcher_.LaunchFromReport({personDetail, ReportLedger::zhangSan()}, &navigator_);
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->ConditionsSet());
  EXPECT_EQ(window->Shown()->report.grid.GetRows(), 10);

  Request january = ReportLedger::zhangSan();
  january.set(ParameterKey::to, "1");
  EXPECT_EQ(launcher_.LaunchFromReport({personDetail, january}, &navigator_), window);
  EXPECT_EQ(window->Shown()->report.period, "月份: 2006.01 - 2006.01");
  EXPECT_EQ(launcher_.Windows().size(), 1);

  const QPointer<ReportWindow> closed = window;
  window->close();
  EXPECT_EQ(launcher_.SlotOf(personDetail), nullptr);
  EXPECT_NE(launcher_.LaunchFromReport({personDetail, january}, &navigator_), closed.data());
  deleteClosed();
  EXPECT_TRUE(closed.isNull());
  EXPECT_EQ(launcher_.Windows().size(), 1);
}

TEST_F(LaunchTest, TheNavigatorTakesItsReportsWithIt) {
  launcher_.LaunchFromReport({personDetail, ReportLedger::zhangSan()}, &navigator_);
  launch(confirm);
  ASSERT_EQ(launcher_.Windows().size(), 2);
  navigator_.close();
  EXPECT_TRUE(launcher_.Windows().empty());
  deleteClosed();
  EXPECT_TRUE(navigator_.findChildren<ReportWindow*>().empty());
}

TEST_F(LaunchTest, ClosingTheNavigatorDuringWorkStopsItAndThenClosesAll) {
  ReportWindow* window = launcher_.LaunchFromReport({personDetail, ReportLedger::zhangSan()}, &navigator_);
  CountedReport::before = untilStopped;
  QTimer::singleShot(0, [this] {
    navigator_.close();
    EXPECT_TRUE(navigator_.isVisible());
  });
  window->RefreshDisplay();
  QCoreApplication::processEvents();
  EXPECT_FALSE(navigator_.isVisible());
  EXPECT_TRUE(launcher_.Windows().empty());
}

TEST_F(LaunchTest, CommandsSayWhatIsMissingBeforeTheyOpen) {
  static ReportDefinition statistics = *findReport(personDetail);
  statistics.launchChecks = statisticsChecks;
  ReportLauncher launcher(everybody(), [](int) -> const ReportDefinition* { return &statistics; });
  launcher.Launch(personDetail);
  EXPECT_EQ(messages_.takeLast(), "请先定义项目大类!");
  ledger_.ledger().keeper().execute("DROP TABLE ProjClass");
  launcher.Launch(personDetail);
  EXPECT_TRUE(messages_.takeLast().starts_with("请先定义项目大类!\n\n帐套不完整。"));
  EXPECT_TRUE(launcher.Windows().empty());
}

// A window that is no report.
class PlainWindow : public ProcessWindow {
 public:
  static constexpr int key = 1156;
  explicit PlainWindow(bool opens = true) : ProcessWindow(key, {120, 60}, nullptr), opens_(opens) {
    setWindowTitle(QStringLiteral("查找"));
    toolBar_ = new QToolBar;
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(toolBar_);
  }
  bool OnInitDialog() override {
    ProcessInitDialog();
    if (!opens_) EndDialog(Rejected);
    return opens_;
  }
  [[nodiscard]] QToolBar* CommandBar() const override { return toolBar_; }

 private:
  bool opens_;
  QToolBar* toolBar_ = nullptr;
};

TEST_F(LaunchTest, AWindowThatIsNoReportLivesAmongTheReports) {
  QObject::connect(&launcher_, &ReportLauncher::opened, &launcher_,
                   [this](ProcessWindow* window) { addWindowList(*window, launcher_); });
  auto* report = launcher_.LaunchFromReport({personDetail, ReportLedger::zhangSan()}, &navigator_);
  const QPointer<PlainWindow> plain = new PlainWindow;
  EXPECT_TRUE(launcher_.Open(plain));
  EXPECT_TRUE(waitActive(plain));
  EXPECT_EQ(plain->parentWidget(), &navigator_);
  EXPECT_EQ(launcher_.SlotOf(PlainWindow::key), plain);
  EXPECT_EQ(launcher_.Windows().size(), 2);

  QTest::mouseClick(plain->CommandBar()->findChild<QToolButton*>("windows"), Qt::LeftButton);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_GT(menu->actions().size(), 3);
  EXPECT_EQ(menu->actions()[2]->text(), "&3　查找");
  EXPECT_EQ(menu->actions()[1]->text(), "&2　个人往来_三栏明细帐 — 122101 职工借款 张三 2006.01–2006.03");
  menu->close();
  QTest::keyClick(plain, Qt::Key_Tab, Qt::ControlModifier);
  // Itself: to the toolkit a window is active also while one that belongs to it is.
  const auto active = [](const QWidget* window) {
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
  };
  EXPECT_TRUE(active(&navigator_));
  report->activateWindow();
  EXPECT_TRUE(active(report));
  QTest::keyClick(report, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(active(plain));

  QTest::keyClick(plain, Qt::Key_Escape);
  EXPECT_TRUE(plain->isVisible());
  launcher_.CloseAll();
  deleteClosed();
  EXPECT_TRUE(plain.isNull());
  EXPECT_EQ(launcher_.SlotOf(PlainWindow::key), nullptr);
  EXPECT_TRUE(launcher_.Windows().empty());
}

TEST_F(LaunchTest, AWindowThatClosesItselfInsteadOfOpeningLeavesNothing) {
  const QPointer<PlainWindow> plain = new PlainWindow(false);
  EXPECT_FALSE(launcher_.Open(plain));
  EXPECT_TRUE(launcher_.Windows().empty());
  EXPECT_EQ(launcher_.SlotOf(PlainWindow::key), nullptr);
  deleteClosed();
  EXPECT_TRUE(plain.isNull());
}

}  // namespace
}  // namespace tz::test
