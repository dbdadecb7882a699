// Where one is after a new report, and the same report worked with the mouse: focus, first row, chosen entries,
// toolbar.
#include <QAbstractItemView>
#include <QScrollBar>
#include <QToolBar>

#include "desktop/gridview/grid_view.h"
#include "desktop/manual/open_manual.h"
#include "desktop/picking/useful_combox.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {
namespace {

class ReportPlace : public ::testing::Test {
 protected:
  ReportPlace() {
    // Enough lines that the first one can be out of sight.
    std::string lines = "lId | lTieId | lCodeId | lDeptId | lPersonId | mMoney | bDirect | sDigest | dtDate\n";
    for (int i = 100; i < 200; ++i) lines += std::to_string(i) + "|1|1|1|1|1|1|多笔|2006-01-05\n";
    ledger_.ledger().fill("RegSub", lines);
    window_ = new ReportWindow(counted_.definition, nullptr);
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(ReportLedger::zhangSan());
    window_->RefreshDisplay();
    EXPECT_TRUE(waitActive(window_));
  }
  ~ReportPlace() override { delete window_; }

  GridView& grid() { return window_->Grid(); }
  void scrollAway() {
    grid().SetCurrent(window_->Shown()->report.grid.GetRows() - 1, 3);
    ASSERT_GT(grid().verticalScrollBar()->value(), 0);
  }
  void expectAtBeginning() {
    EXPECT_EQ(grid().verticalScrollBar()->value(), 0);
    EXPECT_EQ(grid().horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(grid().viewport()->rect().contains(grid().CellRect(0, 0)));
    EXPECT_LE(grid().Current().row, 0) << "the cell of the last report is not this one's";
    EXPECT_LE(grid().Selection().bottom, 0);
  }
  void clickCommand(int command) {
    auto* action = window_->findChild<QAction*>(QString::number(command));
    ASSERT_NE(action, nullptr);
    QTest::mouseClick(window_->ToolBar().widgetForAction(action), Qt::LeftButton);
  }
  // Chooses an entry of a combo as the mouse does.
  void chooseByMouse(int id, const char* entry) {
    auto& combo = control<CUsefulCombox>(*window_, QString::number(id));
    QTest::mouseClick(&combo, Qt::LeftButton, {}, {combo.width() - 10, combo.height() / 2});
    ASSERT_TRUE(combo.view()->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    const QPoint place = combo.view()->visualRect(combo.model()->index(combo.findText(entry), 0)).center();
    QTest::mouseMove(combo.view()->viewport(), place);
    QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, place);
  }

  ReportLedger ledger_;
  CountedReport counted_;
  RecordedMessages messages_;
  QPointer<ReportWindow> window_;
};

TEST_F(ReportPlace, ANewReportHasTheFocusInItsGridAndShowsItsFirstRow) {
  EXPECT_EQ(window_->focusWidget(), &grid());
  expectAtBeginning();
  scrollAway();
  window_->SetConditions(ReportLedger::zhangSan());
  window_->RefreshDisplay();  // as a drill-down into the open window
  EXPECT_EQ(window_->focusWidget(), &grid());
  expectAtBeginning();
}

TEST_F(ReportPlace, TheSameAfterTheConditionsWereAskedByMouse) {
  constexpr int query = 50031;
  scrollAway();
  inModal([](QWidget& dialog) { click(dialog, "1"); });
  clickCommand(query);
  EXPECT_EQ(CountedReport::runs, 2);
  EXPECT_EQ(window_->focusWidget(), &grid());
  expectAtBeginning();
  // Given up, everything stays where it was.
  scrollAway();
  const auto place = grid().Current();
  inModal([](QWidget& dialog) { click(dialog, "2"); });
  clickCommand(query);
  EXPECT_EQ(CountedReport::runs, 2);
  EXPECT_EQ(grid().Current(), place);
  EXPECT_GT(grid().verticalScrollBar()->value(), 0);
}

TEST_F(ReportPlace, CombosAreChosenByMouse) {
  scrollAway();
  chooseByMouse(2206, "122105 样机款");
  EXPECT_EQ(CountedReport::runs, 2);
  EXPECT_EQ(window_->Shown()->request.text(ParameterKey::account), "122105");
  expectAtBeginning();
  chooseByMouse(2207, "采购部");
  EXPECT_EQ(CountedReport::runs, 2) << "a person is wanted first";
  chooseByMouse(2208, "赵六");
  EXPECT_EQ(window_->Shown()->request.text(ParameterKey::person), "赵六");
}

TEST_F(ReportPlace, TheToolbarIsClicked) {
  constexpr int help = 50009;
  constexpr int close = 50010;
  clickCommand(help);
  ASSERT_NE(openManual(), nullptr);
  EXPECT_EQ(openManual()->Place().page, "reports/10190");
  closeManual();
  clickCommand(close);
  deleteClosed();
  EXPECT_TRUE(window_.isNull());
}

}  // namespace
}  // namespace tz::test
