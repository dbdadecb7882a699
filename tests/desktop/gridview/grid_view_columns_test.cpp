// The columns of the grid: those that stay in sight, those that a person hides, moves and fits, and the lines between.
#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "desktop/gridview/grid_view.h"
#include "desktop/gridview/grid_view_header.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr std::int64_t wideRows = 200;
constexpr int firstFigures = 3;  // from this column on

// 日期 | 凭证 | 摘要 | 借方 (数量, 金额) | 贷方 (数量, 金额) | 方向 | 余额
CTzGrid wideLedger() {
  CTzGrid grid;
  grid.AddColumn({.caption = "日期", .width = 90, .kind = ColumnKind::date});
  grid.AddColumn({.caption = "凭证", .width = 70});
  grid.AddColumn({.caption = "摘要", .width = 140});
  grid.AddColumn({.caption = "数量", .group = "借方", .width = 130, .kind = ColumnKind::debitQuantity});
  grid.AddColumn({.caption = "金额", .group = "借方", .width = 130, .kind = ColumnKind::debitAmount});
  grid.AddColumn({.caption = "数量", .group = "贷方", .width = 130, .kind = ColumnKind::creditQuantity});
  grid.AddColumn({.caption = "金额", .group = "贷方", .width = 130, .kind = ColumnKind::creditAmount});
  grid.AddColumn({.caption = "方向", .width = 60});
  grid.AddColumn({.caption = "余额", .width = 130, .kind = ColumnKind::amount});
  grid.SetRows(wideRows);
  for (std::int64_t row = 0; row < wideRows; ++row) {
    grid.SetDate(row, 0, Date{2006, 3, 1});
    grid.SetText(row, 1, "记-1");
    grid.SetText(row, 2, "摘要");
    for (const int column : {3, 4, 5, 6, 8}) grid.SetNumber(row, column, column);
  }
  grid.SetBackground(1, lightGreen);
  grid.SetRowKind(2, RowKind::subtotal);
  return grid;
}

class GridViewColumnsTest : public testing::Test {
 protected:
  GridViewColumnsTest() : grid_(wideLedger()) {
    view_.SetGrid(&grid_);
    view_.resize(700, 320);
    view_.show();
    view_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view_));
    view_.setFocus();
  }
  void TearDown() override { applyTheme(ThemeChoice::light); }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&view_, key, modifiers); }
  GridViewHeader& Header() { return *view_.Header(); }
  QScrollBar& Bar() { return *view_.horizontalScrollBar(); }
  void ScrollToTheEnd() { Bar().setValue(Bar().maximum()); }
  // What stands from left to right.
  std::vector<int> Order() { return view_.Columns().Shown(); }
  void Drag(int column, QPoint to) {
    const QPoint from = Header().CaptionRect(column).center();
    QTest::mousePress(&Header(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&Header(), (from + to) / 2);
    QTest::mouseMove(&Header(), to);
    QTest::mouseRelease(&Header(), Qt::LeftButton, {}, to);
  }
  QPoint RightHalf(int column) { return Header().CaptionRect(column).center() + QPoint(20, 0); }
  QColor ColourIn(std::int64_t row, int column) {
    const QPoint corner = view_.CellRect(row, column).topLeft() + QPoint(4, 5);
    return view_.viewport()->grab().toImage().pixelColor(corner);
  }
  static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  void OpenHeaderMenu(int column) {
    const QPoint place = Header().CaptionRect(column).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Header().mapToGlobal(place));
    QApplication::sendEvent(&Header(), &event);
    ASSERT_NE(menu(), nullptr);
  }
  static QAction* Entry(const QString& text) {
    const auto entries = menu()->actions();
    const auto found = std::ranges::find_if(entries, [&](const QAction* one) { return one->text().startsWith(text); });
    return found == entries.end() ? nullptr : *found;
  }
  static void Click(const QString& text) {
    QAction* entry = Entry(text);
    ASSERT_NE(entry, nullptr) << text.toStdString();
    QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(entry).center());
  }

  CTzGrid grid_;
  GridView view_;
};

TEST_F(GridViewColumnsTest, KeyColumnsStayWhileTheOthersScroll) {
  const QRect date = view_.CellRect(0, 0);
  const int edge = view_.CellRect(0, 2).right() + 1;
  ScrollToTheEnd();
  ASSERT_GT(Bar().value(), 0);
  EXPECT_EQ(view_.CellRect(0, 0), date);
  EXPECT_EQ(Header().CaptionRect(0).left(), date.left());
  EXPECT_EQ(view_.CellRect(0, 8).right(), view_.viewport()->rect().right());

  // What lies below them is neither hit nor seen; the rule between is stronger than those between columns.
  ASSERT_LT(view_.CellRect(0, 3).left(), edge);
  EXPECT_EQ(view_.CellAt({edge - 5, 10}), (GridCell{0, 2}));
  EXPECT_EQ(view_.VisiblePart({0, 3}).left(), view_.VisiblePart({0, 3}).isValid() ? edge : 0);
  const QImage seen = view_.viewport()->grab().toImage();
  EXPECT_EQ(seen.pixelColor(edge - 1, 10), currentTheme().strongRule);
  EXPECT_EQ(seen.pixelColor(edge - 2, 10), currentTheme().strongRule);
  EXPECT_EQ(Header().grab().toImage().pixelColor(edge - 1, 10), currentTheme().strongRule);
  QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, {edge - 5, 10});
  EXPECT_EQ(view_.Current(), (GridCell{0, 2}));
  QTest::mouseClick(&Header(), Qt::LeftButton, {}, {edge / 2, 10});
  EXPECT_EQ(view_.Current().column, 1);

  // By key a cell comes out from below them, and the scrolled part stays where it was while keys go among them.
  view_.SetCurrent(0, 2);
  EXPECT_EQ(Bar().value(), Bar().maximum());
  Press(Qt::Key_Right);
  EXPECT_EQ(view_.Current().column, firstFigures);
  EXPECT_EQ(view_.CellRect(0, firstFigures).left(), edge);
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(&view_)->focusChild();
  EXPECT_EQ(cell->rect().topLeft(), view_.viewport()->mapToGlobal(view_.CellRect(0, firstFigures).topLeft()));
  ScrollToTheEnd();
  EXPECT_TRUE(cell->state().offscreen) << "below the columns that stay";

  // A figure of which only the end could be seen shows no digit.
  grid_.SetNumber(3, 4, 1234567.5);
  grid_.SetNumber(4, 4, 7654567.5);
  Bar().setValue(200);
  const auto endOf = [&](std::int64_t row) { return view_.viewport()->grab(view_.VisiblePart({row, 4})).toImage(); };
  ASSERT_LT(view_.VisiblePart({3, 4}).width(), view_.CellRect(3, 4).width());
  EXPECT_EQ(endOf(3), endOf(4));
  EXPECT_NE(endOf(3), endOf(5)) << "a short one is seen whole";

  // Where they would take more than about half of the room, fewer stay.
  view_.resize(400, 320);
  EXPECT_EQ(view_.Columns().FrozenCount(), 2);
  view_.resize(120, 320);
  EXPECT_EQ(view_.Columns().FrozenCount(), 0);
  view_.resize(2000, 320);
  EXPECT_FALSE(view_.Columns().Scrolls()) << "nothing scrolls beside them";
}

TEST_F(GridViewColumnsTest, GroupCaptionsStandInTheMiddleOfWhatIsSeen) {
  const auto middleOfText = [&](const QRect& place) {
    const QImage head = Header().grab(place.adjusted(2, 2, -3, -3)).toImage();
    int first = head.width();
    int last = 0;
    for (int x = 0; x < head.width(); ++x) {
      for (int y = 0; y < head.height(); ++y) {
        if (head.pixelColor(x, y) == currentTheme().header) continue;
        first = std::min(first, x);
        last = std::max(last, x);
      }
    }
    return place.left() + 2 + (first + last) / 2;
  };
  const auto& debit = view_.Columns().Groups().front();
  EXPECT_NEAR(middleOfText(Header().VisiblePart(debit)), Header().GroupRect(debit).center().x(), 3);
  Bar().setValue(120);
  const QRect seen = Header().VisiblePart(debit);
  EXPECT_EQ(seen.left(), view_.Columns().FrozenWidth());
  EXPECT_NEAR(seen.width(), 140, 3);
  EXPECT_NEAR(middleOfText(seen), seen.center().x(), 3);
}

TEST_F(GridViewColumnsTest, TheCurrentRowStandsOutWhateverItsGround) {
  view_.resize(1400, 800);
  for (const ThemeChoice theme : {ThemeChoice::light, ThemeChoice::dark}) {
    applyTheme(theme);
    for (const std::int64_t row : {0, 1, 2}) {  // plain, unposted, subtotal
      SCOPED_TRACE(row);
      view_.SetCurrent(row + 10, 4);
      std::set<QRgb> looks{ColourIn(row, 0).rgb(), currentTheme().selection.rgb()};
      view_.SetCurrent(row, 4);
      EXPECT_EQ(ColourIn(row, 0), ColourIn(row, 8)) << "the whole row";
      looks.insert(ColourIn(row, 0).rgb());
      looks.insert(ColourIn(row, 4).rgb());
      view_.clearFocus();
      looks.insert(ColourIn(row, 0).rgb());
      view_.setFocus();
      EXPECT_EQ(looks.size(), 5U) << "usual, selected, current, both, and current without the keys";
    }
    view_.SelectAll();
    view_.SelectPlaces({0, 5, 0, 8});
    EXPECT_NE(ColourIn(5, 0), ColourIn(4, 0));
  }
}

TEST_F(GridViewColumnsTest, ColumnsAreHiddenShownAndPutBackByTheirMenu) {
  OpenHeaderMenu(5);
  EXPECT_EQ(Entry(QStringLiteral("贷方 数量"))->isChecked(), true);
  Click(QStringLiteral("贷方 数量"));
  ASSERT_NE(menu(), nullptr) << "it stays open for the next one";
  Click(QStringLiteral("方向"));
  QTest::keyClick(menu(), Qt::Key_Escape);
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 3, 4, 6, 8}));
  EXPECT_EQ(view_.CellRect(0, 5), QRect());
  EXPECT_TRUE(view_.SetCurrent(0, 5)) << "goes beside it";
  EXPECT_EQ(view_.Current(), (GridCell{0, 6}));

  // What is copied and told is what is shown.
  view_.SelectPlaces({0, 0, 4, 6});
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("4.00\t6.00\t8.00"));
  QAccessibleTableInterface& table = *QAccessible::queryAccessibleInterface(&view_)->tableInterface();
  EXPECT_EQ(table.columnCount(), 7);
  EXPECT_EQ(table.columnDescription(5), QStringLiteral("贷方 金额"));

  // By keys alone: the grid's menu has the same below "列". The current column goes, the one beside it is current.
  Press(Qt::Key_Menu);
  ASSERT_NE(menu(), nullptr);
  QTest::keyClick(menu(), Qt::Key_G);
  QTest::keyClick(menu(), Qt::Key_H);
  EXPECT_FALSE(view_.Columns().IsShown(8));
  EXPECT_EQ(view_.Current(), (GridCell{0, 6}));
  for (const int column : {0, 1, 2, 3, 4}) view_.ShowColumn(column, false);
  view_.ShowColumn(6, false);
  EXPECT_EQ(Order(), std::vector{6}) << "the last one stays";
  OpenHeaderMenu(6);
  EXPECT_FALSE(Entry(QStringLiteral("贷方 金额"))->isEnabled());
  EXPECT_FALSE(Entry(QStringLiteral("隐藏此列"))->isEnabled());
  Click(QStringLiteral("恢复默认列"));
  EXPECT_EQ(Order().size(), 9U);
}

TEST_F(GridViewColumnsTest, ColumnsAreMovedByMouseAndKeys) {
  view_.resize(1400, 320);
  // Past the middle of another it comes behind that one; a group parted by it bears its caption twice.
  QSignalSpy moved(&view_, &GridView::columnsArranged);
  const GridCell before = view_.Current();
  Drag(8, RightHalf(3));
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 3, 8, 4, 5, 6, 7}));
  EXPECT_EQ(view_.Current(), before) << "nothing is selected by it";
  ASSERT_EQ(view_.Columns().Groups().size(), 3U);
  EXPECT_EQ(view_.Columns().Groups()[1].caption, QStringLiteral("借方"));
  EXPECT_EQ(moved.count(), 1);

  // A mark shows where; far from the head, or with Esc, it stays where it was.
  QTest::mousePress(&Header(), Qt::LeftButton, {}, Header().CaptionRect(8).center());
  QTest::mouseMove(&Header(), RightHalf(5));
  const int mark = Header().CaptionRect(5).right() + 1;
  EXPECT_EQ(Header().grab().toImage().pixelColor(mark, 4), currentTheme().accent);
  Press(Qt::Key_Escape);
  QTest::mouseRelease(&Header(), Qt::LeftButton, {}, RightHalf(5));
  Drag(8, RightHalf(5) + QPoint(0, 200));
  EXPECT_EQ(moved.count(), 1);

  view_.SelectPlaces({0, 0, 3, 5});
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("3\t8.00\t4.00")) << "in the order of the screen";
  view_.SetCurrent(0, 7);
  for (int step = 0; step < 2; ++step) Press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 3, 8, 4, 7, 5, 6}));
  EXPECT_EQ(view_.Current(), (GridCell{0, 7}));
  Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 3, 8, 4, 5, 7, 6}));
  Press(Qt::Key_Right);
  EXPECT_EQ(view_.Current(), (GridCell{0, 6})) << "keys go by what is seen";
  view_.ResetColumns();
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

// Held at the edge, the columns scroll below the one that is moved.
TEST_F(GridViewColumnsTest, AColumnIsMovedBeyondWhatIsSeen) {
  QTest::mousePress(&Header(), Qt::LeftButton, {}, Header().CaptionRect(firstFigures).center());
  QTest::mouseMove(&Header(), {Header().width() - 4, 10});
  EXPECT_TRUE(QTest::qWaitFor([&] { return Bar().value() == Bar().maximum(); }));
  QTest::mouseRelease(&Header(), Qt::LeftButton, {}, {Header().width() - 4, 10});
  EXPECT_EQ(Order().back(), firstFigures);
}

TEST_F(GridViewColumnsTest, FittedColumnsShowAllTheyHold) {
  grid_.SetText(150, 2, std::string(400, 'w'));
  grid_.SetNumber(151, 8, -98765432109876.25);
  view_.Refresh();
  const auto widthOf = [&](int column) { return Header().CaptionRect(column).width(); };
  const auto textWidth = [&](const QString& text) { return view_.fontMetrics().horizontalAdvance(text); };
  const int before = widthOf(2);
  view_.SetCurrent(0, 2);
  Press(Qt::Key_Menu);
  QTest::keyClick(menu(), Qt::Key_W);
  EXPECT_GT(widthOf(2), before) << "wider than it would be by itself";
  view_.SetColumnWidth(8, 40);
  OpenHeaderMenu(0);
  Click(QStringLiteral("所有列宽适合内容"));
  EXPECT_GT(widthOf(8), textWidth(QStringLiteral("-98,765,432,109,876.25")));
  EXPECT_EQ(widthOf(1), textWidth(QStringLiteral("记-1")) + 2 * GridViewColumns::margin + 1) << "and no wider";
  // They grow with the texts.
  view_.SetColumnWidth(8, 300);
  setTextSize(150);
  EXPECT_TRUE(QTest::qWaitFor([&] { return widthOf(8) == 450; }));
  setTextSize(usualTextSize);
  EXPECT_TRUE(QTest::qWaitFor([&] { return widthOf(8) == 300; }));
}

// Another table of the same report has other columns: what is known of them holds, the others stay where they belong.
TEST_F(GridViewColumnsTest, WhatWasMadeOfThemHoldsForTheColumnsThatThereAre) {
  view_.resize(1400, 320);
  view_.MoveColumn(8, firstFigures);  // 余额 before 借方
  view_.ShowColumn(7, false);
  view_.SetColumnWidth(6, 222);
  const ColumnArrangement kept = view_.Arrangement();
  CTzGrid other;
  for (const char* caption : {"日期", "凭证", "摘要", "办公费", "余额", "办公费"})
    other.AddColumn({.caption = caption});
  other.SetRows(1);
  view_.SetGrid(&other);
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 4, 3, 5}));
  view_.MoveColumn(5, 0);
  view_.SetGrid(&grid_);
  EXPECT_EQ(Order(), (std::vector{0, 1, 2, 8, 3, 4, 5, 6}))
      << "the column of that name which is not here is kept aside";
  EXPECT_EQ(Header().CaptionRect(6).width(), 222);
  view_.SetGrid(&other);
  EXPECT_EQ(Order(), (std::vector{5, 0, 1, 2, 4, 3})) << "of two that are called alike the second was moved";

  GridView next;
  next.SetArrangement(kept);
  next.SetGrid(&grid_);
  EXPECT_EQ(next.Columns().Shown(), (std::vector{0, 1, 2, 8, 3, 4, 5, 6}));
  view_.SetGrid(nullptr);
}

// How thick the lines of a picture are, from top to bottom or from left to right, beside the lines that cross them.
std::set<int> widthsOf(const QImage& picture, QColor colour, bool acrossRows) {
  std::set<int> widths;
  const int length = acrossRows ? picture.height() : picture.width();
  for (int beside = 3; beside < 6; ++beside) {
    std::set<int> found;
    int run = 0;
    for (int along = 0; along < length; ++along) {
      const QPoint place = acrossRows ? QPoint(beside, along) : QPoint(along, beside);
      const bool line = picture.pixelColor(place) == colour;
      if (!line && run > 0) found.insert(run);
      run = line ? run + 1 : 0;
    }
    if (found.empty() || *found.rbegin() < length / 2) widths.merge(found);
  }
  return widths;
}

TEST_F(GridViewColumnsTest, LinesAreOfOneWidthAtEveryScale) {
  CTzGrid plain;
  for (int column = 0; column < 9; ++column) plain.AddColumn({.caption = "额", .width = 61 + column});
  plain.SetRows(wideRows);
  view_.SetGrid(&plain);
  QFont large = view_.font();
  for (int size = 14; view_.RowHeight() % 4 != 1; ++size) {  // rows end anywhere between pixels of the screen
    ASSERT_LT(size, 50);
    large.setPixelSize(size);
    view_.setFont(large);
  }
  for (const auto& [scale, width] : {std::pair{1.0, 1}, {1.25, 1}, {1.5, 1}, {2.0, 2}}) {
    SCOPED_TRACE(scale);
    for (const int offset : {0, 1, 2, 3}) {
      QImage picture(view_.size() * scale, QImage::Format_RGB32);
      picture.setDevicePixelRatio(scale);
      view_.verticalScrollBar()->setValue(offset);
      // Where the widget lies in its window, pixels of the screen need not begin with its own.
      view_.viewport()->render(&picture, {offset, offset});
      const QImage inside = picture.copy(QRect(QPoint(20, 20), view_.viewport()->size() * scale * 0.9));
      EXPECT_EQ(widthsOf(inside, currentTheme().rule, true), std::set{width});
      EXPECT_EQ(widthsOf(inside, currentTheme().rule, false), std::set{width});
      Header().render(&picture, {offset, offset});
      const QRect captions(QPoint(20, 20), QSize(Header().width() - 40, 8) * scale);
      EXPECT_EQ(widthsOf(picture.copy(captions), currentTheme().rule, false), std::set{width});
    }
  }
  view_.SetGrid(nullptr);
}

TEST_F(GridViewColumnsTest, ThumbsKeepALengthThatCanBeTaken) {
  CTzGrid large;
  large.AddColumn({.caption = "额", .width = 100});
  large.SetRows(1'000'000);
  view_.SetGrid(&large);
  view_.SetColumnWidth(0, 1'000'000);
  for (const ThemeChoice theme : {ThemeChoice::light, ThemeChoice::dark}) {
    applyTheme(theme);
    for (QScrollBar* bar : {view_.verticalScrollBar(), view_.horizontalScrollBar()}) {
      const QImage seen = bar->grab().toImage();
      const bool upright = bar->orientation() == Qt::Vertical;
      int length = 0;
      for (int along = 0; along < (upright ? seen.height() : seen.width()); ++along) {
        const QPoint place = upright ? QPoint(seen.width() / 2, along) : QPoint(along, seen.height() / 2);
        if (seen.pixelColor(place) != currentTheme().ground) ++length;
      }
      EXPECT_GE(length, 32);
      EXPECT_LE(length, 40);
    }
  }
  view_.SetGrid(nullptr);
}

}  // namespace
}  // namespace tz
