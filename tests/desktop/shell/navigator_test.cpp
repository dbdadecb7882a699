// The navigator driven by clicks and keys.
#include "desktop/shell/navigator.h"

#include <QImage>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>
#include <set>

#include "desktop/frame/globals.h"
#include "desktop/shell/command_table.h"
#include "desktop/support/window_script.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int personThreeColumns = 10190;
constexpr int departmentAnalysis = 10233;

class Navigator : public testing::Test {
 protected:
  void Open(const std::string& argument) {
    g_lpArgument = argument;
    window_ = std::make_unique<CQnCwAssistantDlg>(nullptr);
    window_->SetRunner({.obstacle = [](int command) { return QString(command == departmentAnalysis ? "不行" : ""); },
                        .run = [this](int command) { ran_.push_back(command); },
                        .help = [this](unsigned context) { help_ = context; }});
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    window_->activateWindow();
    ASSERT_TRUE(test::waitActive(window_.get()));
  }
  void TearDown() override {
    window_.reset();
    g_lpArgument.clear();
  }

  PictureButton* ButtonOf(int command) { return window_->findChild<PictureButton*>(QString::number(command)); }
  void Click(int command) { QTest::mouseClick(ButtonOf(command), Qt::LeftButton); }
  std::set<int> CommandsShown() {
    std::set<int> shown;
    for (const PictureButton* button : window_->findChildren<PictureButton*>()) {
      const bool ofArea = button->Look() == PictureLook::card || button->Look() == PictureLook::closeCard;
      if (ofArea && button->isVisible()) shown.insert(button->objectName().toInt());
    }
    return shown;
  }
  static std::set<int> CommandsOf(NavigatorArea area) {
    std::set<int> commands;
    for (const Command& command : commandsOf(area)) commands.insert(command.id);
    return commands;
  }

  std::unique_ptr<CQnCwAssistantDlg> window_;
  std::vector<int> ran_;
  unsigned help_ = 0;
};

TEST_F(Navigator, IsTheParentOfReportsWhileItLives) {
  Open("");
  EXPECT_EQ(g_pDlgWnd, window_.get());
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("辅助核算"));
  window_.reset();
  EXPECT_EQ(g_pDlgWnd, nullptr);
}

// A process without a result window: nothing is asked, and it is its owner's after it closed.
TEST_F(Navigator, ComesToTheFrontAsAProcess) {
  Open("");
  CProcess& process = *window_;
  EXPECT_FALSE(process.OnCommandQuery());
  EXPECT_FALSE(process.IsCreated());
  Click(10195);
  test::expectNamed(*window_);
  window_->showMinimized();
  process.RefreshDisplay();
  EXPECT_FALSE(window_->isMinimized());
  EXPECT_EQ(window_->CurrentArea(), NavigatorArea::unit);
  window_->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  process.RefreshDisplay();
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(Navigator, StartsInTheArchivesUnlessTheConsoleKeepsThem) {
  for (const std::string argument : {"", "-erp", "-ERPSINGLE2"}) {
    Open(argument);
    EXPECT_EQ(window_->CurrentArea(), NavigatorArea::archive) << argument;
    ASSERT_NE(ButtonOf(10177), nullptr) << argument;
    EXPECT_EQ(ButtonOf(10182)->geometry(), QRect(24, 125, 112, 32)) << argument;
  }
  for (const std::string argument : {"-ERPCONSOLE", "-erpSingle"}) {
    Open(argument);
    EXPECT_EQ(window_->CurrentArea(), NavigatorArea::person) << argument;
    EXPECT_EQ(ButtonOf(10177), nullptr) << argument;
    EXPECT_EQ(ButtonOf(10182)->geometry(), QRect(80, 82, 138, 30)) << argument;
    EXPECT_EQ(ButtonOf(10239)->geometry(), QRect(482, 310, 80, 36)) << argument;
  }
}

TEST_F(Navigator, AreasExchangeTheirCommandsByClickAndByKey) {
  Open("");
  for (const AreaPicture& area : areaPictures()) {
    Click(area.command);
    EXPECT_EQ(CommandsShown(), CommandsOf(area.area));
    EXPECT_TRUE(ButtonOf(area.command)->isChecked());
  }
  QTest::keyClick(ButtonOf(10182), Qt::Key_Return);
  EXPECT_EQ(CommandsShown(), CommandsOf(NavigatorArea::person));
  QTest::keyClick(ButtonOf(10234), Qt::Key_Space);
  EXPECT_EQ(CommandsShown(), CommandsOf(NavigatorArea::plan));
  EXPECT_FALSE(ButtonOf(10182)->isChecked());
}

TEST_F(Navigator, RunsACommandByClickEnterAndSpace) {
  Open("");
  Click(10182);
  Click(personThreeColumns);
  ButtonOf(10194)->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Enter);
  QTest::keyClick(window_->focusWidget(), Qt::Key_Space);
  EXPECT_EQ(ran_, (std::vector{personThreeColumns, 10194, 10194}));
}

TEST_F(Navigator, ACommandThatNothingRunsIsPaleAndSaysSo) {
  Open("");
  Click(10225);
  PictureButton* analysis = ButtonOf(departmentAnalysis);
  ASSERT_NE(analysis, nullptr);
  EXPECT_FALSE(analysis->IsAvailable());
  EXPECT_EQ(analysis->toolTip(), "不行");
  EXPECT_EQ(analysis->accessibleDescription(), "不行");
  const QImage pale = analysis->grab().toImage();
  Click(departmentAnalysis);
  QTest::keyClick(analysis, Qt::Key_Space);
  EXPECT_TRUE(ran_.empty());
  EXPECT_EQ(QToolTip::text(), "不行");
  QToolTip::hideText();
  analysis->SetAvailable(true);
  EXPECT_NE(analysis->grab().toImage(), pale);

  window_->SetRunner({});
  EXPECT_FALSE(ButtonOf(10226)->IsAvailable());
  EXPECT_TRUE(ButtonOf(10239)->IsAvailable());
}

TEST_F(Navigator, EnterAndEscLeaveItOpen) {
  Open("");
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  QTest::keyClick(window_.get(), Qt::Key_Return);
  ButtonOf(10182)->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(Navigator, TheExitPictureAndTheCaptionCloseIt) {
  Open("");
  Click(10239);
  EXPECT_FALSE(window_->isVisible());
  Open("");
  EXPECT_TRUE(window_->close());
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(Navigator, F1AsksForHelp) {
  Open("");
  QTest::keyClick(window_->focusWidget(), Qt::Key_F1);
  EXPECT_EQ(help_, 0x30498U);
}

// Follows the arrow keys from every picture reached, beginning with the current area.
TEST_F(Navigator, ArrowsAndTabReachEveryPicture) {
  Open("");
  for (const AreaPicture& area : areaPictures()) {
    Click(area.command);
    std::set<QWidget*> enabled;
    for (PictureButton* button : window_->findChildren<PictureButton*>()) {
      if (button->isEnabled()) enabled.insert(button);
    }

    std::vector<QWidget*> open{ButtonOf(area.command)};
    std::set<QWidget*> reached(open.begin(), open.end());
    while (!open.empty()) {
      QWidget* from = open.back();
      open.pop_back();
      for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        from->setFocus();
        QTest::keyClick(from, key);
        if (reached.insert(window_->focusWidget()).second) open.push_back(window_->focusWidget());
      }
    }
    EXPECT_EQ(reached, enabled) << area.command;

    reached.clear();
    for (std::size_t step = 0; step < enabled.size(); ++step) {
      QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
      reached.insert(window_->focusWidget());
    }
    EXPECT_EQ(reached, enabled) << area.command;
  }
}

TEST_F(Navigator, TheLayoutGrowsWithTheWindow) {
  Open("");
  const QSize size = window_->size();
  EXPECT_EQ(size, pictureSize(navigatorGround) + QSize(6, 15));
  window_->resize(size * 2 + QSize(100, 0));
  QTest::qWait(0);
  EXPECT_EQ(ButtonOf(10182)->geometry(), QRect(50 + 48, 250, 224, 64));
}

TEST_F(Navigator, FocusByKeyboardIsMarked) {
  Open("");
  const QImage before = ButtonOf(10225)->grab().toImage();
  ButtonOf(10182)->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Down);
  ASSERT_EQ(window_->focusWidget(), ButtonOf(10225));
  EXPECT_NE(ButtonOf(10225)->grab().toImage(), before);
}

}  // namespace
}  // namespace tz
