// Blocks of a report in its real window, by clicks and keys: headings that stay in sight, going from block to block,
// folding, and what of it reaches copies, sums and screen readers.
#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>

#include "desktop/gridview/grid_view.h"
#include "desktop/report/sample_report.h"

namespace tz::test {
namespace {

class ReportBlocks : public SampleReport {
 protected:
  // Persons of an account by department, the whole year: 部门小计, 个人小计, 本月合计.
  void OpenPersons() { Open(10184, {{ParameterKey::account, "122101"}, {ParameterKey::unposted, "1"}}); }
  RowKind KindOf(std::int64_t row) { return Report().grid.RowKindAt(row); }
  std::int64_t NextOf(RowKind kind, std::int64_t from) {
    while (from < View().RowCount() && KindOf(from) != kind) ++from;
    return from;
  }
  std::set<std::string> ShownSummaries() {
    std::set<std::string> texts;
    for (std::int64_t place = 0; place < View().Rows().Count(); ++place) {
      texts.insert(std::string(Report().grid.TextAt(View().Rows().RowAt(place), 2)));
    }
    return texts;
  }
  // The sign of a row's block, at the left edge.
  QPoint SignOf(std::int64_t row) { return {View().CellRect(row, 0).left() + 9, View().CellRect(row, 0).center().y()}; }
  void Click(QPoint place) { QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, place); }
  QColor GroundAt(int y) { return View().viewport()->grab().toImage().pixelColor(View().viewport()->width() / 2, y); }
};

TEST_F(ReportBlocks, AHeadingStaysAboveItsLinesAndLeadsBackToItself) {
  OpenPersons();
  const std::int64_t second = NextOf(RowKind::heading, 1);
  const int height = View().RowHeight();
  View().verticalScrollBar()->setValue(static_cast<int>(second + 3) * height);
  const QPoint top(View().CellRect(second + 3, 2).center().x(), 5);
  EXPECT_EQ(View().CellAt(top).row, second) << "the heading covers what lies at the top";
  const QImage stuck = View().viewport()->grab({0, 0, 200, height - 2}).toImage();
  View().verticalScrollBar()->setValue(static_cast<int>(second + 4) * height);
  EXPECT_EQ(View().viewport()->grab({0, 0, 200, height - 2}).toImage(), stuck) << "and stays there";
  // The end of its block pushes it out.
  const std::int64_t third = NextOf(RowKind::heading, second + 1);
  View().verticalScrollBar()->setValue(static_cast<int>(third) * height - height / 2);
  EXPECT_EQ(View().CellAt({top.x(), height - 2}).row, third);
  View().verticalScrollBar()->setValue(static_cast<int>(second + 3) * height);
  Click(top);
  EXPECT_EQ(View().Current(), (GridCell{second, 2}));
  EXPECT_EQ(View().CellRect(second, 2).top(), 0);
  // What becomes current does so below the heading.
  View().verticalScrollBar()->setValue(static_cast<int>(second + 8) * height);
  View().SetCurrent(second + 2, 2);
  EXPECT_EQ(View().CellRect(second + 2, 2).top(), height);

  Open(10190, {{ParameterKey::account, "122101"},
               {ParameterKey::dept, Person().first},
               {ParameterKey::person, Person().second}});
  View().verticalScrollBar()->setValue(4 * height);
  EXPECT_EQ(View().CellAt({top.x(), 1}).row, 4) << "a report of one member has no headings to stay";
}

TEST_F(ReportBlocks, KeysGoFromBlockToBlock) {
  OpenPersons();
  Press(Qt::Key_Home, Qt::ControlModifier);
  const std::int64_t second = NextOf(RowKind::heading, 1);
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(View().Current().row, second);
  EXPECT_EQ(View().CellRect(second, 0).top(), 0) << "the block is seen from its beginning";
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(View().Current().row, NextOf(RowKind::heading, second + 1));
  Press(Qt::Key_Up);
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(View().Current().row, second);
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(View().Current().row, 0);
  EXPECT_EQ(Told("status"), "已是第一块");
}

TEST_F(ReportBlocks, BlocksFoldToTheirTotalsByKeysSignsAndLevels) {
  OpenPersons();
  const std::int64_t rows = View().RowCount();
  const std::int64_t month = NextOf(RowKind::monthTotal, 0);
  const std::int64_t subtotal = NextOf(RowKind::subtotal, 0);
  View().SetCurrent(month - 1, 2);
  Press(Qt::Key_Minus);
  EXPECT_EQ(View().Current(), (GridCell{month, 2})) << "the month stands for its lines";
  EXPECT_FALSE(View().Rows().Shows(month - 1));
  EXPECT_EQ(Told("status"), "已折叠：本月合计");
  auto* cell = QAccessible::queryAccessibleInterface(&View())->focusChild();
  ASSERT_NE(cell, nullptr);
  EXPECT_TRUE(cell->state().expandable && cell->state().collapsed);
  Press(Qt::Key_Minus);
  EXPECT_EQ(View().Current().row, 0) << "then its heading for the person";
  EXPECT_EQ(View().Rows().RowAt(1), subtotal);
  Press(Qt::Key_Plus);
  Press(Qt::Key_Down);
  EXPECT_EQ(View().Rows().Count(), rows - (month - NextOf(RowKind::line, 0))) << "the month is still folded";
  Click(SignOf(month));
  EXPECT_EQ(View().Rows().Count(), rows);
  View().verticalScrollBar()->setValue(0);
  Click(SignOf(0));
  EXPECT_EQ(View().Rows().RowAt(1), subtotal);
  EXPECT_EQ(View().Rows().PlaceOf(subtotal), 1);

  Press(Qt::Key_3, Qt::ControlModifier);
  EXPECT_FALSE(ShownSummaries().contains("本月合计"));
  EXPECT_TRUE(ShownSummaries().contains("个人小计"));
  Press(Qt::Key_4, Qt::ControlModifier);
  EXPECT_EQ(ShownSummaries(), (std::set<std::string>{"部门小计", "合计"}));
  EXPECT_EQ(Told("status"), "已折叠到部门小计");
  // A new computation keeps the level and opens what was folded by hand.
  Press(Qt::Key_2, Qt::ControlModifier);
  Window().Recompute();
  EXPECT_TRUE(ShownSummaries().contains("本月合计"));
  EXPECT_EQ(View().Rows().Shows(NextOf(RowKind::line, 0)), false);
  ASSERT_TRUE(ShownSummaries().contains("本年累计"));
  Press(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(Told("status"), "不显示本年累计；折叠的月份只留本月合计");
  EXPECT_TRUE(ShownSummaries().contains("本月合计") && !ShownSummaries().contains("本年累计"));
  // The news gives way to the number of rows by itself, and when one goes on.
  const std::string counted =
      "共 " + std::to_string(rows) + " 行，显示 " + std::to_string(View().Rows().Count()) + " 行";
  control<QTimer>(Window(), "news").setInterval(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Told("status") == counted; })) << Told("status");
  control<QTimer>(Window(), "news").setInterval(60'000);
  Press(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(Told("status"), "显示本月合计、本年累计");
  Press(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(Told("status"), "已全部展开");
  Press(Qt::Key_Down);
  EXPECT_EQ(Told("status"), "共 " + std::to_string(rows) + " 行");
  EXPECT_EQ(View().Rows().Count(), rows);
  Press(Qt::Key_M, Qt::ControlModifier);
  EXPECT_FALSE(ShownSummaries().contains("本月合计") || ShownSummaries().contains("本年累计"));
  EXPECT_TRUE(View().Rows().Shows(NextOf(RowKind::line, 0)));
  Press(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(View().Rows().Count(), rows);
}

// What is hidden is neither selected nor copied, summed or told, and no figure changes by it.
TEST_F(ReportBlocks, WhatIsFoldedIsInNoSelection) {
  OpenPersons();
  const std::string before = ReportLedger::json(Report());
  Press(Qt::Key_A, Qt::ControlModifier);
  ASSERT_TRUE(QTest::qWaitFor([this] { return Told("selection").starts_with("已选"); }));
  const std::string all = Told("selection");
  Press(Qt::Key_4, Qt::ControlModifier);
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Told("selection") == "已选 0 条分录"; })) << Told("selection");
  Press(Qt::Key_C, Qt::ControlModifier);
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_EQ(copied.count(QLatin1Char('\n')) + 1, View().Rows().Count());
  EXPECT_TRUE(copied.contains(QStringLiteral("部门小计")) && !copied.contains(QStringLiteral("本月合计")));
  auto* table = QAccessible::queryAccessibleInterface(&View())->tableInterface();
  EXPECT_EQ(table->rowCount(), View().Rows().Count());
  EXPECT_EQ(table->cellAt(0, 2)->text(QAccessible::Name), "部门小计");
  EXPECT_EQ(ReportLedger::json(Report()), before);
  Press(Qt::Key_1, Qt::ControlModifier);
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Told("selection") == all; }));
}

TEST_F(ReportBlocks, TheMenuAndTheButtonsDoWhatTheKeysDo) {
  OpenPersons();
  View().SetCurrent(NextOf(RowKind::line, 0), 2);
  auto* menu = View().findChild<QMenu*>(QStringLiteral("blockMenu"));
  ASSERT_NE(menu, nullptr);
  const auto trigger = [menu](const char* text) {
    emit menu->aboutToShow();
    for (QAction* action : menu->actions()) {
      if (action->isEnabled() && action->text().startsWith(QString::fromUtf8(text))) return action->trigger();
    }
    ADD_FAILURE() << "the menu has no " << text;
  };
  trigger("折叠这一块");
  EXPECT_EQ(KindOf(View().Current().row), RowKind::monthTotal);
  trigger("展开这一块");
  EXPECT_EQ(View().Rows().Count(), View().RowCount());
  trigger("下一块");
  EXPECT_EQ(KindOf(View().Current().row), RowKind::heading);
  trigger("折叠到个人小计");
  EXPECT_EQ(View().Outline(), 2);
  click(Window(), "filterButton");
  EXPECT_TRUE(control<QToolButton>(Window(), "outline3").isChecked());
  EXPECT_EQ(control<QToolButton>(Window(), "outline3").text(), "个人小计");
  click(Window(), "outline1");
  EXPECT_EQ(View().Rows().Count(), View().RowCount());
  click(Window(), "monthTotals");
  EXPECT_FALSE(ShownSummaries().contains("本年累计"));
}

}  // namespace
}  // namespace tz::test
