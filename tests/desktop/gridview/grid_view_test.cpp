// The grid's view: head, painting, keys and mouse, selection, clipboard.
#include "desktop/gridview/grid_view.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

#include "desktop/gridview/grid_view_header.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

// 日期 | 借方 (数量, 金额) | 方向; row 1 is unposted, row 2 the total.
CTzGrid smallLedger() {
  CTzGrid grid;
  grid.AddColumn({.caption = "日期", .width = 100, .kind = ColumnKind::date});
  grid.AddColumn({.caption = "数量", .group = "借方", .width = 100, .kind = ColumnKind::debitQuantity});
  grid.AddColumn({.caption = "金额", .group = "借方", .width = 100, .kind = ColumnKind::debitAmount});
  grid.AddColumn({.caption = "方向", .width = 60});
  grid.SetRows(3);
  grid.SetDate(0, 0, Date{2006, 3, 1});
  grid.SetNumber(0, 1, 3);
  grid.SetNumber(0, 2, 1234567.5);
  grid.SetText(0, 3, "借");
  grid.SetText(1, 0, "one\ttwo\nthree");
  grid.SetNumber(1, 2, -20);
  grid.SetBackground(1, lightGreen);
  grid.SetText(2, 0, "合计");
  grid.SetNumber(2, 2, 1234547.5);
  grid.SetRowKind(2, RowKind::total);
  return grid;
}

CTzGrid longLedger(std::int64_t rows) {
  CTzGrid grid;
  grid.AddColumn({.caption = "摘要", .width = 200});
  grid.AddColumn({.caption = "金额", .width = 100, .kind = ColumnKind::debitAmount});
  grid.SetRows(rows);
  for (std::int64_t row = 0; row < rows; ++row) grid.SetNumber(row, 1, 1);
  return grid;
}

class GridViewTest : public testing::Test {
 protected:
  void Show(CTzGrid grid, QSize size = {640, 320}) {
    grid_ = std::move(grid);
    view_.SetGrid(&grid_);
    view_.resize(size);
    view_.show();
    view_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view_));
    view_.setFocus();
  }
  void TearDown() override { applyTheme(ThemeChoice::light); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(&view_, key, modifiers); }
  QColor ColourIn(std::int64_t row, int column) {
    const QPoint corner = view_.CellRect(row, column).topLeft() + QPoint(4, 5);
    return view_.viewport()->grab().toImage().pixelColor(corner);
  }
  bool HasPixel(std::int64_t row, int column, QColor colour) {
    const QImage cell = view_.viewport()->grab(view_.CellRect(row, column)).toImage();
    for (int y = 0; y < cell.height(); ++y) {
      for (int x = 0; x < cell.width(); ++x) {
        if (cell.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  }

  CTzGrid grid_;
  GridView view_;
};

TEST_F(GridViewTest, GroupsSpanTheirColumnsAndSingleCaptionsBothLevels) {
  Show(smallLedger());
  const GridViewHeader& header = *view_.Header();
  const QRect date = header.CaptionRect(0);
  const QRect quantity = header.CaptionRect(1);
  const QRect amount = header.CaptionRect(2);
  EXPECT_EQ(date.height(), header.height());
  EXPECT_EQ(quantity.top(), header.height() / 2);
  EXPECT_EQ(header.GroupRect({QStringLiteral("借方"), 1, 2}),
            QRect(quantity.left(), 0, quantity.width() + amount.width(), header.height() / 2));
  EXPECT_EQ(header.geometry().bottom() + 1, view_.viewport()->geometry().top());
  EXPECT_EQ(header.CaptionRect(3).width(), 60);

  Show(longLedger(1));
  EXPECT_EQ(header.CaptionRect(0).height(), header.height());
  EXPECT_LT(header.height(), date.height());
}

TEST_F(GridViewTest, ColumnsWidenForTheirContentsAndByTheMouse) {
  CTzGrid grid = longLedger(2000);
  grid.SetNumber(1999, 1, -98765432109876.25);
  Show(std::move(grid), {320, 320});
  GridViewHeader& header = *view_.Header();
  const int figure = header.CaptionRect(1).width();
  EXPECT_GT(figure, view_.fontMetrics().horizontalAdvance(QStringLiteral("-98,765,432,109,876.25")));

  const QPoint edge(header.CaptionRect(0).right() + 1, header.height() / 2);
  QTest::mousePress(&header, Qt::LeftButton, {}, edge);
  QTest::mouseMove(&header, edge - QPoint(80, 0));
  QTest::mouseRelease(&header, Qt::LeftButton, {}, edge - QPoint(80, 0));
  EXPECT_EQ(header.CaptionRect(0).width(), 120);
  EXPECT_EQ(header.CaptionRect(1).width(), figure);
  view_.Refresh();
  EXPECT_EQ(header.CaptionRect(0).width(), 120) << "a refresh keeps the width that was drawn";
  QTest::mouseDClick(&header, Qt::LeftButton, {}, edge - QPoint(80, 0));
  EXPECT_EQ(header.CaptionRect(0).width(), view_.fontMetrics().horizontalAdvance(QStringLiteral("摘要")) + 14)
      << "cells are empty: the caption alone asks for room";
}

TEST_F(GridViewTest, RoomToSpareGoesToTheSummaryUntilItIsDrawn) {
  Show(longLedger(3), {500, 320});
  const GridViewColumns& columns = view_.Columns();
  EXPECT_EQ(columns.TotalWidth(), view_.viewport()->width());
  EXPECT_EQ(columns.WidthOf(1), 100);
  EXPECT_EQ(view_.CellRect(0, 1).right(), view_.viewport()->rect().right());
  view_.resize(2000, 320);
  EXPECT_LT(columns.TotalWidth(), 700) << "figures stay near their dates";
  EXPECT_EQ(columns.WidthOf(1), 200) << "twice as wide at most";
  view_.resize(620, 320);
  EXPECT_EQ(columns.TotalWidth(), view_.viewport()->width()) << "no strip stays empty";
  view_.SetColumnWidth(0, 150);
  EXPECT_EQ(columns.TotalWidth(), 250);
}

// A screen reader sees the whole grid, also what is out of sight.
TEST_F(GridViewTest, EveryCellIsToldToAScreenReader) {
  Show(smallLedger());
  QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(&view_);
  ASSERT_NE(whole->tableInterface(), nullptr);
  QAccessibleTableInterface& table = *whole->tableInterface();
  EXPECT_EQ(table.rowCount(), 3);
  EXPECT_EQ(table.columnCount(), 4);
  EXPECT_EQ(whole->childCount(), 12);
  QAccessibleInterface* cell = table.cellAt(0, 2);
  EXPECT_EQ(cell->text(QAccessible::Name), "1,234,567.50");
  EXPECT_EQ(cell->text(QAccessible::Description), "借方 金额");
  EXPECT_EQ(table.cellAt(0, 0)->text(QAccessible::Name), "2006.03.01");
  EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 2);
  EXPECT_EQ(whole->indexOfChild(cell), 2);
  EXPECT_EQ(whole->child(2), cell);
  EXPECT_EQ(whole->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
  EXPECT_EQ(table.cellAt(3, 0), nullptr);

  EXPECT_TRUE(table.selectRow(1));
  EXPECT_TRUE(table.isRowSelected(1));
  EXPECT_EQ(table.selectedRows(), QList<int>{1});
  EXPECT_EQ(table.selectedCellCount(), 4);
  EXPECT_EQ(whole->focusChild(), table.cellAt(1, 3));
  EXPECT_TRUE(table.cellAt(1, 0)->state().selected);
  EXPECT_FALSE(cell->state().selected);

  Show(longLedger(1'000'000));
  EXPECT_FALSE(cell->isValid()) << "that column is gone";
  EXPECT_EQ(table.rowCount(), 1'000'000);
  EXPECT_EQ(table.cellAt(999'999, 1)->text(QAccessible::Name), "1.00");
  EXPECT_TRUE(table.cellAt(999'999, 1)->state().offscreen);
  EXPECT_TRUE(table.selectColumn(1));
  EXPECT_EQ(table.selectedCells().size(), 1000);
}

TEST_F(GridViewTest, RowColoursFollowTheTheme) {
  Show(smallLedger());
  EXPECT_EQ(ColourIn(0, 0), currentTheme().surface);
  EXPECT_EQ(ColourIn(1, 0), QColor(224, 255, 224));
  EXPECT_EQ(ColourIn(2, 0), currentTheme().header);
  EXPECT_TRUE(HasPixel(1, 2, currentTheme().negative));
  EXPECT_FALSE(HasPixel(0, 2, currentTheme().negative));

  applyTheme(ThemeChoice::dark);
  const QColor dark = ColourIn(1, 0);
  EXPECT_GT(dark.green(), dark.red());
  EXPECT_GT(dark.green(), dark.blue());
  EXPECT_LT(dark.lightness(), 80) << "light text must stand out on it";
  EXPECT_NE(dark, ColourIn(0, 0));
}

TEST_F(GridViewTest, AFigureWithoutRoomShowsNoWrongDigits) {
  Show(smallLedger());
  const QImage wide = view_.viewport()->grab(view_.CellRect(0, 2)).toImage();
  GridViewHeader& header = *view_.Header();
  const QPoint edge(header.CaptionRect(2).right() + 1, header.height() - 4);
  QTest::mousePress(&header, Qt::LeftButton, {}, edge);
  QTest::mouseMove(&header, edge - QPoint(60, 0));
  QTest::mouseRelease(&header, Qt::LeftButton, {}, edge - QPoint(60, 0));
  const QImage narrow = view_.viewport()->grab(view_.CellRect(0, 2)).toImage();

  CTzGrid other = smallLedger();
  other.SetNumber(0, 2, 7654321.25);
  view_.SetGrid(&other);
  EXPECT_EQ(view_.viewport()->grab(view_.CellRect(0, 2)).toImage(), narrow) << "any figure too wide looks the same";
  EXPECT_NE(wide.copy(narrow.rect()), narrow);
  view_.SetGrid(&grid_);
}

TEST_F(GridViewTest, KeysMoveAndSelect) {
  Show(longLedger(1000));
  QSignalSpy moved(&view_, &GridView::currentChanged);
  Press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(view_.Current(), (GridCell{0, 0}));
  Press(Qt::Key_Down);
  Press(Qt::Key_End);
  EXPECT_EQ(view_.Current(), (GridCell{1, 1}));
  EXPECT_EQ(grid_.GetCurrentRow(), 1);
  EXPECT_EQ(moved.count(), 3);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(view_.Current().row, view_.viewport()->height() / view_.RowHeight());
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(view_.Current(), (GridCell{999, 1}));
  EXPECT_TRUE(view_.viewport()->rect().contains(view_.CellRect(999, 1)));
  Press(Qt::Key_Down);
  EXPECT_EQ(view_.Current().row, 999) << "there is nothing below the last row";
  Press(Qt::Key_Up, Qt::ShiftModifier);
  Press(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_EQ(view_.Selection(), (GridRange{998, 999, 0, 1}));
  Press(Qt::Key_Up);
  EXPECT_EQ(view_.Selection(), (GridRange{997, 997, 0, 0}));
}

TEST_F(GridViewTest, TheMouseSelectsAndDoubleClickOpens) {
  Show(smallLedger());
  QSignalSpy opened(&view_, &GridView::rowActivated);
  QSignalSpy clicked(&view_, &GridView::cellClicked);
  QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(0, 1).center());
  QTest::mouseMove(view_.viewport(), view_.CellRect(1, 2).center());
  QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(1, 2).center());
  EXPECT_EQ(view_.Selection(), (GridRange{0, 1, 1, 2}));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, Qt::ShiftModifier, view_.CellRect(2, 3).center());
  EXPECT_EQ(view_.Selection(), (GridRange{0, 2, 1, 3}));
  EXPECT_EQ(clicked.count(), 0) << "neither a drag nor what extends a selection is a click";
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(2, 3).center());
  ASSERT_EQ(clicked.count(), 1);
  EXPECT_EQ(clicked[0], (QVariantList{qint64{2}, 3}));
  QTest::mouseClick(view_.Header(), Qt::LeftButton, {}, view_.Header()->CaptionRect(2).center());
  EXPECT_EQ(view_.Selection(), (GridRange{0, 2, 2, 2}));

  QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(1, 0).center());
  Press(Qt::Key_Return);
  ASSERT_EQ(opened.count(), 2);
  EXPECT_EQ(opened[0], QVariantList{qint64{1}});
  EXPECT_EQ(view_.Current(), (GridCell{1, 0}));
  QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(2, 0).bottomLeft() + QPoint(5, 30));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, view_.CellRect(2, 0).bottomLeft() + QPoint(5, 30));
  EXPECT_EQ(opened.count(), 2) << "below the last row there is nothing to open";
  EXPECT_EQ(clicked.count(), 1) << "nor to click";
}

TEST_F(GridViewTest, CopiesCellsAsASpreadsheetTakesThem) {
  Show(smallLedger());
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            "2006.03.01\t3\t1234567.50\t借\n"
            "one two three\t\t-20.00\t\n"
            "合计\t\t1234547.50\t");
}

LineSums lastOf(const QSignalSpy& summed) { return summed.last().at(0).value<LineSums>(); }

TEST_F(GridViewTest, SumsTheLinesOfTheSelectionByKind) {
  Show(smallLedger());
  QSignalSpy summed(&view_, &GridView::selectionSummaryChanged);
  view_.SelectAll();
  ASSERT_TRUE(summed.wait());
  const LineSums sums = lastOf(summed);
  EXPECT_EQ(sums.rows, 3);
  EXPECT_EQ(sums.lines, 2) << "the total is no line";
  EXPECT_EQ(sums.of(ColumnKind::debitAmount), (LineSums::Figures{1234547.5, 2}));
  EXPECT_EQ(sums.of(ColumnKind::debitQuantity), (LineSums::Figures{3, 1}));
  EXPECT_EQ(sums.of(ColumnKind::creditAmount), LineSums::Figures{});
}

// 借方 | 贷方 | 余额 | two sub-accounts, in which amounts stand once more.
TEST_F(GridViewTest, AmountsThatStandTwiceCountOnceAndBalancesNever) {
  CTzGrid grid;
  for (const ColumnKind kind : {ColumnKind::debitAmount, ColumnKind::creditAmount, ColumnKind::amount,
                                ColumnKind::repeatedAmount, ColumnKind::repeatedAmount}) {
    grid.AddColumn({.caption = "额", .width = 80, .kind = kind});
  }
  grid.SetRows(2);
  for (const int column : {0, 2, 3}) grid.SetNumber(0, column, 7);
  for (const int column : {1, 2, 4}) grid.SetNumber(1, column, 5);
  Show(std::move(grid));
  QSignalSpy summed(&view_, &GridView::selectionSummaryChanged);
  for (const auto& [left, right] : {std::pair{0, 4}, {3, 4}, {0, 1}}) {
    view_.SelectPlaces({0, 1, left, right});
    ASSERT_TRUE(summed.wait());
    EXPECT_EQ(lastOf(summed).of(ColumnKind::debitAmount), (LineSums::Figures{7, 1})) << left;
    EXPECT_EQ(lastOf(summed).of(ColumnKind::creditAmount), (LineSums::Figures{5, 1})) << left;
  }
  view_.SelectPlaces({0, 1, 2, 2});
  ASSERT_TRUE(summed.wait());
  EXPECT_EQ(lastOf(summed).lines, 2);
  EXPECT_EQ(lastOf(summed).figures, LineSums{}.figures);
}

TEST_F(GridViewTest, TheMenuOpensByMouseAndKeysAndCopies) {
  Show(smallLedger());
  QAction own(QStringLiteral("输出"), &view_);
  view_.addAction(&own);
  const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
  view_.SetCurrent(0, 0);
  Press(Qt::Key_Menu);
  ASSERT_NE(menu(), nullptr);
  EXPECT_EQ(menu()->actions().back(), &own);
  QTest::keyClick(menu(), Qt::Key_A);
  EXPECT_EQ(view_.Selection(), (GridRange{0, 2, 0, 3}));
  Press(Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(menu(), nullptr);
  QTest::keyClick(menu(), Qt::Key_C);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("2006.03.01\t3"))) << "all of it";

  // Keys stand beside what they do; what nobody answers is not offered.
  const auto hasEntry = [&](const QString& text) {
    return std::ranges::any_of(menu()->actions(), [&](const QAction* one) { return one->text() == text; });
  };
  Press(Qt::Key_Menu);
  EXPECT_TRUE(hasEntry(QStringLiteral("连同标题复制(&H)\tCtrl+Shift+C")));
  EXPECT_FALSE(hasEntry(QStringLiteral("按此筛选(&F)")));
  QTest::keyClick(menu(), Qt::Key_Escape);
  const QSignalSpy filtered(&view_, &GridView::filterByWanted);
  view_.SetCurrent(1, 2);
  Press(Qt::Key_Menu);
  QTest::keyClick(menu(), Qt::Key_F);
  ASSERT_EQ(filtered.size(), 1);
  EXPECT_EQ(filtered[0], (QVariantList{qint64{1}, 2}));
  view_.SelectAll();

  // A right click takes the cell below it, but keeps a selection that it belongs to.
  const auto rightClick = [&](std::int64_t row, int column) {
    const QPoint place = view_.CellRect(row, column).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view_.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view_.viewport(), &event);
    ASSERT_NE(menu(), nullptr);
    QTest::keyClick(menu(), Qt::Key_Escape);
  };
  rightClick(1, 2);
  EXPECT_EQ(view_.Selection(), (GridRange{0, 2, 0, 3}));
  view_.SetCurrent(0, 0);
  rightClick(1, 2);
  EXPECT_EQ(view_.Selection(), (GridRange{1, 1, 2, 2}));
}

TEST_F(GridViewTest, AMillionRowsScrollSelectAndSum) {
  Show(longLedger(1'000'000));
  QSignalSpy summed(&view_, &GridView::selectionSummaryChanged);
  view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->maximum());
  EXPECT_EQ(view_.CellRect(999'999, 0).bottom(), view_.viewport()->rect().bottom());
  EXPECT_TRUE(HasPixel(999'999, 1, currentTheme().text));
  view_.SelectAll();
  EXPECT_EQ(view_.Selection(), (GridRange{0, 999'999, 0, 1}));
  EXPECT_EQ(ColourIn(999'998, 0), currentTheme().selection);
  for (int turn = 0; turn < 20 && (summed.isEmpty() || lastOf(summed).lines != 1'000'000); ++turn) summed.wait(500);
  EXPECT_EQ(lastOf(summed).of(ColumnKind::debitAmount), (LineSums::Figures{1e6, 1'000'000}));
}

TEST_F(GridViewTest, KeepsItsPlaceWhenTheGridIsFilledAnew) {
  Show(longLedger(100));
  ASSERT_TRUE(view_.SetCurrent(90, 1));
  EXPECT_FALSE(view_.SetCurrent(100, 0));
  EXPECT_FALSE(view_.SetCurrent(0, 2));
  grid_ = longLedger(50);
  view_.Refresh();
  EXPECT_EQ(view_.Current(), (GridCell{49, 1}));
  EXPECT_EQ(grid_.GetCurrentRow(), 49);
  grid_.Clear();
  view_.Refresh();
  EXPECT_FALSE(view_.Current().valid());
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, {20, 20});
  view_.viewport()->grab();
  view_.SetGrid(nullptr);
  const QImage nothing = view_.viewport()->grab().toImage();
  EXPECT_EQ(nothing.pixelColor(0, nothing.height() / 2), currentTheme().accent) << "the focus shows";
  EXPECT_TRUE(view_.Selection().empty());
}

TEST_F(GridViewTest, HidesZerosExceptInTotals) {
  CTzGrid grid = smallLedger();
  grid.SetNumber(0, 1, 0);
  grid.SetNumber(2, 1, 0);
  Show(std::move(grid));
  EXPECT_TRUE(HasPixel(0, 1, currentTheme().text));
  view_.SetHideZeros(true);
  EXPECT_FALSE(HasPixel(0, 1, currentTheme().text));
  EXPECT_TRUE(HasPixel(2, 1, currentTheme().text));
}

}  // namespace
}  // namespace tz
