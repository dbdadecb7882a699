// Two-clearing by hand in its windows: marks by click and space bar, several operators at once, writes that fail, and
// where rows lead.
#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>

#include "cli/full_disk.h"
#include "core/reports/marking.h"
#include "desktop/frame/manual_page.h"
#include "desktop/receivables/clearing_ledger.h"

namespace tz::test {
namespace {

constexpr Rgb markedPerson = 0x82EEB3;

class ClearingWindows : public ::testing::Test {
 protected:
  ClearingLedger ledger_;
  RecordedMessages messages_;
};

TEST_F(ClearingWindows, AMarkIsToggledByAClickAndBySpace) {
  const ClearingWindow at(personClearing);
  const int mark = at.markColumn();
  EXPECT_EQ(at.marks(), "--○");
  at.click(1, mark);
  EXPECT_EQ(at.marks(), "-√○");
  EXPECT_EQ(at.grid().BackgroundAt(1), markedPerson);
  EXPECT_EQ(ledger_.marks(), "2:1\n3:2\n4:1\n14:1\n") << "written at once";
  EXPECT_EQ(ledger_.ledger().rows("SELECT sOperator, lLineId, byOld, byNew FROM MarkLog"), "王会计|2|0|1\n");

  at.click(2, mark);  // a line cleared automatically is open after one toggle, and cleared by hand after two
  EXPECT_EQ(at.marks(), "-√-");
  EXPECT_EQ(at.grid().BackgroundAt(2), noColour);
  at.view().SetCurrent(2, 2);
  at.space();
  EXPECT_EQ(at.marks(), "-√√");
  EXPECT_EQ(at.view().Current(), (GridCell{2, 2})) << "the place stays";

  at.doubleClick(0, mark);
  EXPECT_EQ(at.marks(), "√√√") << "a double click is one toggle";
  at.view().SetCurrent(0, mark);
  at.click(2, mark, Qt::ShiftModifier);
  EXPECT_EQ(at.marks(), "√√√") << "it extends the selection";
  at.space();
  EXPECT_EQ(at.marks(), "√√-") << "of what is selected, the current row";
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
  QApplication::sendEvent(&at.view(), &held);
  at.click(3, mark);
  at.click(1, 2);
  at.view().SetCurrent(3, 2);
  at.space();
  EXPECT_EQ(at.marks(), "√√-") << "the total row, other columns, a key that is held";
  EXPECT_TRUE(messages_.all.empty());
}

TEST_F(ClearingWindows, LinesAreMarkedOneAfterAnotherAndSummedUp) {
  const ClearingWindow at(unitClearing);
  EXPECT_EQ(at.label("clearingSums"), "已两清：借方 0.00，贷方 0.00，平　　未两清：借方 100.00，贷方 100.00，平");
  at.press(WindowCommand::tabDept);
  at.view().SetCurrent(0, 3);
  const auto insert = [&] { QTest::keyClick(&at.view(), Qt::Key_Insert); };
  insert();
  EXPECT_EQ(at.marks(), "√--");
  EXPECT_EQ(at.view().Current(), (GridCell{1, 3}));
  EXPECT_EQ(at.label("status"), "记-0002：手工两清");
  insert();
  EXPECT_EQ(at.view().Current(), (GridCell{3, 3})) << "over the subtotal";
  EXPECT_EQ(at.label("clearingSums"),
            "已两清：借方 70.00，贷方 100.00，差 贷 30.00　　未两清：借方 30.00，贷方 0.00，余 借 30.00");
  insert();
  EXPECT_EQ(at.view().Current(), (GridCell{3, 3})) << "there is no next one";
  EXPECT_EQ(at.label("clearingSums"), "已两清：借方 100.00，贷方 100.00，平　　未两清：借方 0.00，贷方 0.00，平");
  at.space();
  EXPECT_EQ(at.label("status"), "记-0001：未两清");
  auto& cells = *QAccessible::queryAccessibleInterface(&at.view())->tableInterface();
  const auto spoken = [&](int row) { return fromQt(cells.cellAt(row, at.markColumn())->text(QAccessible::Name)); };
  EXPECT_EQ(spoken(0), "手工两清");
  EXPECT_EQ(spoken(3), "未两清");
  EXPECT_EQ(spoken(4), "") << "a subtotal";

  at.key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(control<QCheckBox>(at.window(), "filterUnposted").isVisible()) << "every line here is posted";
  auto& open = control<QCheckBox>(at.window(), "filterUnmarked");
  EXPECT_EQ(fromQt(open.text()), "仅未两清");
  auto& last = control<QLineEdit>(at.window(), "filterTo");
  last.setFocus();
  QTest::keyClick(&last, Qt::Key_Tab);
  EXPECT_EQ(at.window().focusWidget(), &open);
  QTest::keyClick(&open, Qt::Key_Space);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !at.view().Rows().Shows(0); }));
  EXPECT_TRUE(at.view().Rows().Shows(3));
  at.view().SetCurrent(3, 3);
  at.space();
  EXPECT_TRUE(at.view().Rows().Shows(3)) << "it can be taken back at once";
  EXPECT_NE(at.label("clearingSums").find("已两清：借方 100.00"), std::string::npos) << "hidden lines count";
}

TEST_F(ClearingWindows, ThePlaceStays) {
  const ClearingWindow at(unitClearing);
  const auto place = [&] {
    const auto& current = at.view().Current();
    return fromQt(at.view().ShownText(current.row, 1) + u'|' + at.view().Columns().CaptionOf(current.column));
  };
  at.view().SetCurrent(1, at.markColumn());
  EXPECT_EQ(place(), "记-0002|两清");
  at.press(WindowCommand::tabDept);
  EXPECT_EQ(place(), "记-0002|两清") << "the columns behind the groups have moved";
  inModal([](QWidget& dialog) { click(dialog, "1"); });
  at.press(WindowCommand::query);
  EXPECT_EQ(place(), "记-0002|两清");
  EXPECT_EQ(at.grid().Columns()[2].caption, "部门") << "so does the tab";
  auto& month = control<QComboBox>(at.window(), "8022");
  month.setFocus();
  QTest::keyClick(&month, Qt::Key_Up);
  EXPECT_EQ(at.label("1007"), "截止月份: 2006.02");
  EXPECT_EQ(place(), "记-0002|两清");
}

TEST_F(ClearingWindows, AnotherOperatorsMarkIsShownAndNotOverwritten) {
  const ClearingWindow at(personClearing);
  EXPECT_EQ(ledger_.toggleElsewhere(ClearingKind::person, 2), 1);
  at.click(1, at.markColumn());
  const auto told = messages_.takeLast();
  EXPECT_NE(told.find("李出纳"), std::string::npos) << told;
  EXPECT_EQ(told.find('Z'), std::string::npos) << "the clock of this place: " << told;
  EXPECT_EQ(at.marks(), "-√○");
  EXPECT_EQ(at.grid().BackgroundAt(1), markedPerson);
  EXPECT_EQ(ledger_.marks(), "2:1\n3:2\n4:1\n14:1\n");
  at.click(1, at.markColumn());
  EXPECT_EQ(at.marks(), "--○") << "of what is shown now";

  g_operator.everyRight = false;
  g_operator.rights = {79};
  at.click(1, at.markColumn());
  EXPECT_EQ(messages_.takeLast(), "操作员 王会计 没有“个人往来两清”的权限（5 号），请向管理员申请");
  at.press(WindowCommand::reverseClearing);
  EXPECT_EQ(messages_.all.size(), 1U) << "no question before";
  EXPECT_EQ(at.marks(), "--○");
}

TEST_F(ClearingWindows, AMarkThatCannotBeWrittenIsShownHatchedUntilARefresh) {
  const ClearingWindow at(personClearing);
  const GridCell cell{1, at.markColumn()};
  {
    const FullDisk full(0);
    at.click(cell.row, cell.column);
  }
  EXPECT_EQ(at.marks(), "-√○") << "as it was given";
  const auto reason = fromQt(at.view().DoubtOf(cell));
  EXPECT_NE(reason.find("没有写入帐套"), std::string::npos) << reason;
  EXPECT_NE(at.label("status").find("磁盘"), std::string::npos) << at.label("status");
  EXPECT_TRUE(messages_.all.empty());
  EXPECT_EQ(ledger_.marks(), "3:2\n4:1\n14:1\n");
  at.window().Recompute();
  EXPECT_EQ(at.marks(), "--○");
  EXPECT_EQ(fromQt(at.view().DoubtOf(cell)), "");
  {
    const FullDisk full(0);
    at.click(2, cell.column);
  }
  EXPECT_EQ(at.marks(), "---");
  at.click(2, cell.column);
  EXPECT_EQ(at.marks(), "---") << "once more writes what was given";
  EXPECT_EQ(fromQt(at.view().DoubtOf({2, cell.column})), "");
  EXPECT_EQ(at.label("status"), "记-0002：未两清") << "no failure any more";
  EXPECT_EQ(ledger_.marks(), "4:1\n14:1\n");
}

TEST_F(ClearingWindows, WaitingForALockedLedgerCanBeStopped) {
  const ClearingWindow at(personClearing);
  {
    Transaction held(ledger_.ledger().keeper(), Transaction::Purpose::writing);
    QTimer::singleShot(100, &at.window(), [&] { QTest::keyClick(&at.view(), Qt::Key_Escape); });
    QElapsedTimer time;
    time.start();
    at.click(1, at.markColumn());
    constexpr int longest = 4000;
    EXPECT_LT(time.elapsed(), longest) << "not the whole time that a lock is waited for";
  }
  EXPECT_EQ(at.marks(), "--○");
  EXPECT_EQ(at.label("status"), "已停止，这条分录的标记没有改动");
  at.click(1, at.markColumn());
  EXPECT_EQ(ledger_.marks(), "2:1\n3:2\n4:1\n14:1\n");
}

TEST_F(ClearingWindows, RowsLeadToVouchersAndGeneralLedgers) {
  const ClearingWindow at(personClearing);
  std::vector<Id> vouchers;
  std::vector<DetailTarget> ledgers;
  QObject::connect(&at.window(), &ReportWindow::voucherWanted,
                   [&](const LineId& line) { vouchers.push_back(line.voucher); });
  QObject::connect(&at.window(), &ReportWindow::detailWanted,
                   [&](const DetailTarget& target) { ledgers.push_back(target); });
  at.view().SetCurrent(1, at.markColumn());
  QTest::keyClick(&at.view(), Qt::Key_Return);
  at.doubleClick(2, 3);
  EXPECT_EQ(vouchers, (std::vector<Id>{2, 3}));
  at.doubleClick(0, 3);
  EXPECT_EQ(messages_.takeLast(), "期初数无法联查凭证");
  at.view().SetCurrent(3, 3);
  at.press(WindowCommand::detail);
  EXPECT_EQ(messages_.takeLast(), "请选择凭证记录!");
  at.key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(ledgers.size(), 1U);
  EXPECT_EQ(ledgers.front().command, 10189);
  EXPECT_EQ(at.marks(), "--○") << "nothing was toggled on the way";

  const ClearingWindow unit(unitClearing);
  QObject::connect(&unit.window(), &ReportWindow::detailWanted,
                   [&](const DetailTarget& target) { ledgers.push_back(target); });
  unit.press(WindowCommand::generalLedger);
  ASSERT_EQ(ledgers.size(), 2U);
  EXPECT_EQ(ledgers.back().command, 10201);
}

TEST_F(ClearingWindows, TheMonthAndTheTabsListOtherLines) {
  const ClearingWindow at(unitClearing, "2");
  EXPECT_EQ(at.marks(), "--");
  EXPECT_NE(at.label("1013").find("方向: 借 100.00"), std::string::npos) << at.label("1013");
  auto& month = control<QComboBox>(at.window(), "8022");
  month.setFocus();
  QTest::keyClick(&month, Qt::Key_Down);
  EXPECT_EQ(at.marks(), "---");
  EXPECT_NE(at.label("1013").find("方向: 平"), std::string::npos) << at.label("1013");
  EXPECT_EQ(at.label("1007"), "截止月份: 2006.03");
  expectNamed(at.window());

  at.press(WindowCommand::find);
  EXPECT_EQ(messages_.all.back().caption, "岚川财务软件");
  EXPECT_EQ(messages_.takeLast(), "无须执行定位功能");
  at.press(WindowCommand::tabDept);
  EXPECT_EQ(at.grid().Columns()[2].caption, "部门");
  EXPECT_TRUE(at.window().ActionOf(static_cast<int>(WindowCommand::tabDept))->isChecked());
  EXPECT_FALSE(at.window().ActionOf(static_cast<int>(WindowCommand::tabDate))->isChecked());
  at.click(0, at.markColumn());
  EXPECT_EQ(at.marks(), "√--") << "the column has moved";
  inModal([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("往来两清定位"));
    expectNamed(dialog);
    EXPECT_EQ(manualPageOf(&dialog), QStringLiteral("clearing#定位"));
    auto& groups = control<QComboBox>(dialog, "8344");
    QTest::keyClick(&groups, Qt::Key_Down);
    EXPECT_EQ(groups.currentText(), QStringLiteral("采购部"));
    click(dialog, "1");
  });
  at.key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(at.grid().TextAt(at.view().Current().row, 2), "采购部");
  EXPECT_EQ(at.view().Current().column, 2);
  at.key(Qt::Key_1, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(at.grid().Columns()[2].caption, "摘要");
}

}  // namespace
}  // namespace tz::test
