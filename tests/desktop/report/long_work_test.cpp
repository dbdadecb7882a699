// Long work: the window stays alive, takes nothing but what stops the work, and keeps what it showed.
#include "desktop/report/long_work.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QToolButton>

#include "core/reports/cancellation.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/export_file.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {
namespace {

class LongWorkTest : public ::testing::Test {
 protected:
  LongWorkTest() {
    window_ = new ReportWindow(counted_.definition, nullptr);
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(ReportLedger::zhangSan());
    window_->RefreshDisplay();
    before_ = ReportLedger::json(window_->Shown()->report);
    CountedReport::before = untilStopped;
  }
  ~LongWorkTest() override {
    deleteClosed();
    delete window_;
  }
  // Computes anew, and meanwhile does that.
  void computeWhile(const std::function<void()>& meanwhile) {
    QTimer::singleShot(0, meanwhile);
    window_->RefreshDisplay();
  }
  [[nodiscard]] std::string status() const { return fromQt(control<QLabel>(*window_, "status").text()); }

  ReportLedger ledger_;
  CountedReport counted_;
  QPointer<ReportWindow> window_;
  std::string before_;
};

TEST_F(LongWorkTest, EscStopsItAndLeavesWhatWasShown) {
  computeWhile([this] {
    EXPECT_TRUE(LongWork::Running());
    QTest::keyClick(&window_->Grid(), Qt::Key_Escape);
  });
  EXPECT_FALSE(LongWork::Running());
  EXPECT_EQ(CountedReport::runs, 2);
  EXPECT_EQ(ReportLedger::json(window_->Shown()->report), before_);
  EXPECT_EQ(status(), "已停止，仍列示原来的内容");
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(LongWorkTest, ProgressAndTheStopButtonAppearAfterAMomentAndMoveNothing) {
  const QRect grid = window_->Grid().geometry();
  auto& stop = control<QToolButton>(*window_, "stop");
  EXPECT_TRUE(stop.isHidden());
  QTimer clicker;
  QObject::connect(&clicker, &QTimer::timeout, [&] {
    if (stop.isHidden()) return;
    EXPECT_NE(status().find("正在计算"), std::string::npos);
    EXPECT_EQ(window_->Grid().geometry(), grid);
    QTest::mouseClick(&stop, Qt::LeftButton);
  });
  clicker.start(20);
  window_->RefreshDisplay();
  EXPECT_TRUE(stop.isHidden());
  EXPECT_EQ(ReportLedger::json(window_->Shown()->report), before_);
}

TEST_F(LongWorkTest, NothingElseBeginsMeanwhile) {
  computeWhile([this] {
    window_->RefreshDisplay();
    window_->OnCommand(50031);  // would open the condition dialog and hang the test
    auto& format = control<QComboBox>(*window_, "2206");
    QTest::keyClick(&format, Qt::Key_Down);
    QTest::mouseClick(&window_->Grid(), Qt::LeftButton);
    EXPECT_EQ(CountedReport::runs, 2);
    QTest::keyClick(window_, Qt::Key_Escape);
  });
  EXPECT_EQ(CountedReport::runs, 2);
}

TEST_F(LongWorkTest, ClosingTheWindowStopsItAndThenCloses) {
  computeWhile([this] {
    window_->close();
    ASSERT_FALSE(window_.isNull());
    EXPECT_TRUE(window_->isVisible());
  });
  ASSERT_FALSE(window_.isNull());
  EXPECT_EQ(ReportLedger::json(window_->Shown()->report), before_);
  QCoreApplication::processEvents();
  deleteClosed();
  EXPECT_TRUE(window_.isNull());
}

TEST_F(LongWorkTest, AModalWindowThatWorksIsStoppedAndStaysOpen) {
  QDialog dialog(window_);
  dialog.open();
  ASSERT_TRUE(waitActive(&dialog));
  LongWork work(dialog);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_TRUE(work.Cancelled());
  EXPECT_TRUE(dialog.isVisible());
}

TEST_F(LongWorkTest, ABusyBoxWithACancelButtonShowsWhereTheReportAsksForIt) {
  counted_.definition.busyBox = true;
  computeWhile([this] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(fromQt(box->findChild<QLabel*>()->text()), "正在查询数据,请稍侯.....");
    click(*box, "2");
  });
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(ReportLedger::json(window_->Shown()->report), before_);
}

TEST_F(LongWorkTest, ExportWritesWholeFilesAndTellsFailures) {
  const TempFolder folder;
  const std::string csv = folder.file("明细帐.csv");
  window_->ExportTo({toQt(csv), FileForm::csv});
  QFile file(toQt(csv));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_NE(file.readAll().indexOf("未记帐"), -1);
  EXPECT_NE(status().find("已输出到"), std::string::npos);
  window_->ExportTo({toQt(folder.file("没有/这个/文件夹.csv")), FileForm::csv});
  EXPECT_NE(status().find("没有"), std::string::npos) << status();
  EXPECT_EQ(status().find("已输出到"), std::string::npos);
  // Never over the ledger that is shown.
  const QString ledger = toQt(g_lpszQnZwDBName);
  const auto bytes = [&ledger] {
    QFile kept(ledger);
    return kept.open(QIODevice::ReadOnly) ? kept.readAll() : QByteArray();
  };
  const QByteArray before = bytes();
  for (const auto form : {FileForm::csv, FileForm::xlsx}) {
    window_->ExportTo({ledger, form});
    EXPECT_NE(status().find("所查的帐套"), std::string::npos) << status();
  }
  EXPECT_EQ(bytes(), before);
}

}  // namespace
}  // namespace tz::test
