// A query that somebody stopped: a window that has shown nothing yet says so and what to do, another keeps what it
// shows.
#include <QLabel>

#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {
namespace {

class Stopped : public ::testing::Test {
 protected:
  Stopped() {
    window_->SetConditions(ReportLedger::zhangSan());
    if (!window_->CreateTheDialog(nullptr)) throw std::runtime_error("no window");
  }
  ~Stopped() override {
    window_->close();
    deleteClosed();
  }

  void runAndStop() {
    CountedReport::before = untilStopped;
    QTimer::singleShot(0, [this] { QTest::keyClick(window_, Qt::Key_Escape); });
    window_->RefreshDisplay();
    CountedReport::before = {};
  }
  std::string status() { return fromQt(control<QLabel>(*window_, "status").text()); }
  // Whether something is written in the middle of the grid.
  bool saysSomething() {
    const QImage picture = window_->Grid().viewport()->grab().toImage();
    const QRgb ground = picture.pixel(2, 2);
    const int middle = picture.height() / 2;
    for (int y = middle - 15; y < middle + 15; ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixel(x, y) != ground) return true;
      }
    }
    return false;
  }

  ReportLedger ledger_;
  CountedReport report_;
  RecordedMessages messages_;
  ReportWindow* window_ = new ReportWindow(report_.definition, nullptr);
};

TEST_F(Stopped, AFirstRunLeavesAWindowThatSaysSo) {
  EXPECT_FALSE(saysSomething());
  runAndStop();
  EXPECT_EQ(window_->Shown(), nullptr);
  EXPECT_EQ(status(), "已停止");
  EXPECT_TRUE(saysSomething());
  // As the window says: F5, and the dialog opens on the same conditions.
  ASSERT_TRUE(waitActive(window_));
  inModal([](QWidget& dialog) { click(dialog, "1"); });
  QTest::keyClick(&window_->Grid(), Qt::Key_F5);
  ASSERT_NE(window_->Shown(), nullptr);
  EXPECT_EQ(status(), "共 10 行");
}

TEST_F(Stopped, AQueryOnceMoreKeepsWhatIsShown) {
  window_->RefreshDisplay();
  const std::string shown = ReportLedger::json(window_->Shown()->report);
  runAndStop();
  EXPECT_EQ(status(), "已停止，仍列示原来的内容");
  EXPECT_EQ(ReportLedger::json(window_->Shown()->report), shown);
}

}  // namespace
}  // namespace tz::test
