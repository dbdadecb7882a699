// The grid by mouse alone: beyond its edges, in its header when it is scrolled, beside its cells.
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/grid_view_header.h"

namespace tz {
namespace {

constexpr int columns = 6;
constexpr std::int64_t rows = 500;

class GridViewMouse : public testing::Test {
 protected:
  GridViewMouse() {
    for (int column = 0; column < columns; ++column) {
      grid_.AddColumn({.caption = "金额", .width = 120, .kind = ColumnKind::amount});
    }
    grid_.SetRows(rows);
    view_.SetGrid(&grid_);
    view_.resize(400, 300);
    view_.show();
    view_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view_));
  }
  QPoint At(std::int64_t row, int column) { return view_.CellRect(row, column).center(); }
  void Press(QPoint place, Qt::KeyboardModifiers with = {}, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(view_.viewport(), button, with, place);
  }
  void Release(QPoint place) { QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, place); }

  CTzGrid grid_;
  GridView view_;
};

TEST_F(GridViewMouse, HeldOutsideItGoesOnScrollingUntilItIsLetGo) {
  Press(At(2, 1));
  const QPoint below(At(0, 1).x(), view_.viewport()->height() + 40);
  QTest::mouseMove(view_.viewport(), below);
  ASSERT_TRUE(QTest::qWaitFor([&] { return view_.Current().row > 40; }));
  EXPECT_EQ(view_.Selection().top, 2);
  EXPECT_EQ(view_.Selection().bottom, view_.Current().row);
  EXPECT_TRUE(view_.viewport()->rect().contains(At(view_.Current().row, 1)));
  Release(below);
  const auto reached = view_.Current();
  QTest::qWait(120);
  EXPECT_EQ(view_.Current(), reached);
  // Back inside, the pointer selects what is below it and scrolls no more.
  Press(At(reached.row, 1));
  QTest::mouseMove(view_.viewport(), below);
  QTest::mouseMove(view_.viewport(), At(reached.row - 3, 0));
  const auto inside = view_.Current();
  EXPECT_EQ(inside, (GridCell{reached.row - 3, 0}));
  QTest::qWait(120);
  EXPECT_EQ(view_.Current(), inside);
  Release(At(inside.row, 0));
}

TEST_F(GridViewMouse, AClickStartsAnewAndShiftGoesOnFromThere) {
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, At(3, 1));
  EXPECT_EQ(view_.Current(), (GridCell{3, 1}));
  EXPECT_EQ(view_.Selection(), (GridRange{3, 3, 1, 1}));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, Qt::ShiftModifier, At(6, 2));
  EXPECT_EQ(view_.Selection(), (GridRange{3, 6, 1, 2}));
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, Qt::ShiftModifier, At(1, 0));
  EXPECT_EQ(view_.Selection(), (GridRange{1, 3, 0, 1})) << "the first cell stays the corner";
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, Qt::ControlModifier, At(5, 1));
  EXPECT_EQ(view_.Selection(), (GridRange{5, 5, 1, 1})) << "there is one selection";
  // Other buttons and a pointer that only passes select nothing.
  Press(At(8, 2), {}, Qt::MiddleButton);
  QTest::mouseMove(view_.viewport(), At(9, 2));
  EXPECT_EQ(view_.Selection(), (GridRange{5, 5, 1, 1}));
}

TEST_F(GridViewMouse, TheHeaderMeansTheColumnBelowThePointer) {
  GridViewHeader& header = *view_.Header();
  view_.horizontalScrollBar()->setValue(view_.horizontalScrollBar()->maximum());
  ASSERT_GT(view_.horizontalScrollBar()->value(), 0);
  EXPECT_EQ(header.CaptionRect(columns - 1).right(), view_.CellRect(0, columns - 1).right());
  QTest::mouseClick(&header, Qt::LeftButton, {}, header.CaptionRect(columns - 1).center());
  EXPECT_EQ(view_.Selection(), (GridRange{0, rows - 1, columns - 1, columns - 1}));
  EXPECT_EQ(view_.verticalScrollBar()->value(), 0) << "a column is chosen without leaving one's place";
  // The edge that is drawn is the one below the pointer, and only while the button is held.
  const int before = header.CaptionRect(columns - 2).width();
  const QPoint edge(header.CaptionRect(columns - 2).right() + 1, header.height() / 2);
  QTest::mouseMove(&header, edge);
  EXPECT_EQ(header.cursor().shape(), Qt::SplitHCursor);
  QTest::mousePress(&header, Qt::LeftButton, {}, edge);
  QTest::mouseMove(&header, edge - QPoint(30, 0));
  QTest::mouseRelease(&header, Qt::LeftButton, {}, edge - QPoint(30, 0));
  QTest::mouseMove(&header, edge - QPoint(60, 0));
  EXPECT_EQ(header.CaptionRect(columns - 2).width(), before - 30);
  QTest::mouseMove(&header, header.CaptionRect(columns - 2).center());
  EXPECT_EQ(header.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GridViewMouse, TheWheelScrollsAndLeavesTheCurrentCell) {
  view_.SetCurrent(4, 1);
  const QPointF place = At(4, 1);
  QWheelEvent wheel(place, view_.viewport()->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(view_.viewport(), &wheel);
  EXPECT_GE(view_.verticalScrollBar()->value(), view_.RowHeight());
  EXPECT_EQ(view_.Current(), (GridCell{4, 1}));
}

// A new report begins at its beginning, whatever was seen of the last one.
TEST_F(GridViewMouse, ANewGridIsSeenFromItsFirstCell) {
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, At(3, 1));
  view_.SetCurrent(rows - 1, columns - 1);
  ASSERT_GT(view_.verticalScrollBar()->value(), 0);
  ASSERT_GT(view_.horizontalScrollBar()->value(), 0);
  CTzGrid other;
  for (int column = 0; column < columns; ++column) other.AddColumn({.caption = "数量", .width = 120});
  other.SetRows(rows);
  view_.SetGrid(&other);
  EXPECT_EQ(view_.verticalScrollBar()->value(), 0);
  EXPECT_EQ(view_.horizontalScrollBar()->value(), 0);
  EXPECT_TRUE(view_.viewport()->rect().contains(view_.CellRect(0, 0)));
  EXPECT_LE(view_.Selection().bottom, 0) << "nothing of the last report stays selected";
  view_.setFocus();
  QTest::keyClick(&view_, Qt::Key_Down);
  EXPECT_EQ(view_.Current(), (GridCell{0, 0})) << "the first key goes to the first cell";
  QTest::keyClick(&view_, Qt::Key_Down);
  EXPECT_EQ(view_.Current(), (GridCell{1, 0}));
  view_.SetGrid(&grid_);
}

}  // namespace
}  // namespace tz
