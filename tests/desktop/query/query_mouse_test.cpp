// Fields of condition dialogs and choosing windows by mouse alone: lists of accounts, the calendar, groups.
#include <QCalendarWidget>
#include <QListWidget>
#include <QTableView>

#include "desktop/picking/archive_references.h"
#include "desktop/query/query_dialog.h"
#include "desktop/support/member_ledger.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

constexpr std::array mouseControls = {
    ControlSpec{.kind = ControlSpec::Kind::accountLists,
                .key = ParameterKey::account,
                .id = 2301,
                .companion = 2302,
                .caption = "科目"},
    ControlSpec{.kind = ControlSpec::Kind::date,
                .key = ParameterKey::cutoff,
                .id = 2101,
                .companion = 2001,
                .caption = "截止日期"},
};

class QueryMouse : public ::testing::Test {
 protected:
  Request confirmed(std::function<void(QWidget&)> script) {
    const DialogSpec spec{
        .id = 9998, .title = "条件", .accountWhere = "sAssBook = 'B' ORDER BY sCode", .controls = mouseControls};
    Session session = ledger_.session();
    CTzQueryDialog dialog(spec, session, nullptr);
    inModal([&](QWidget& window) {
      script(window);
      click(window, "1");
    });
    EXPECT_TRUE(dialog.DoModal());
    return dialog.GetRequest();
  }
  static QPoint placeOf(QListWidget& list, int row) { return list.visualItemRect(list.item(row)).center(); }
  static void clickRow(const QWidget& window, const char* id, int row, Qt::KeyboardModifiers with = {}) {
    auto& list = control<QListWidget>(window, id);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, with, placeOf(list, row));
  }
  static void doubleClickRow(const QWidget& window, const char* id, int row) {
    clickRow(window, id, row);
    auto& list = control<QListWidget>(window, id);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, row));
  }

  MemberLedger ledger_;
};

TEST_F(QueryMouse, ADoubleClickMovesAnAccountThereAndBack) {
  const auto request = confirmed([](QWidget& window) {
    doubleClickRow(window, "2301", 2);
    doubleClickRow(window, "2301", 0);
    EXPECT_EQ(control<QListWidget>(window, "2302").count(), 2);
    doubleClickRow(window, "2302", 1);
    EXPECT_EQ(control<QListWidget>(window, "2301").count(), 2);
  });
  EXPECT_EQ(request.list(ParameterKey::account), (std::vector<std::string>{"1122"}));
}

TEST_F(QueryMouse, CtrlAndShiftSelectSeveral) {
  const auto request = confirmed([](QWidget& window) {
    clickRow(window, "2301", 0);
    clickRow(window, "2301", 2, Qt::ShiftModifier);
    clickRow(window, "2301", 1, Qt::ControlModifier);  // but not the one between them
    click(window, "add");
  });
  EXPECT_EQ(request.list(ParameterKey::account), (std::vector<std::string>{"1122", "112202"}));
}

TEST_F(QueryMouse, ADayIsClickedInTheCalendar) {
  const auto request = confirmed([](QWidget& window) {
    click(window, "2001");
    auto& calendar = control<QCalendarWidget>(window, "calendar");
    auto& days = control<QTableView>(calendar, "qt_calendar_calendarview");
    const QModelIndex chosen = days.currentIndex();
    const QPoint nextWeek = days.visualRect(chosen.siblingAtRow(chosen.row() + 1)).center();
    QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, nextWeek);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  });
  EXPECT_EQ(request.text(ParameterKey::cutoff), "2006-03-22");
}

TEST_F(QueryMouse, AGroupIsClickedAndItsMemberTaken) {
  CUnitReferenceDlg reference(ledger_.db, nullptr);
  inModal([](QWidget& window) {
    auto& groups = control<QListWidget>(window, "groups");
    auto& entries = control<QTableView>(window, "entries");
    const int all = entries.model()->rowCount();
    QTest::mouseClick(groups.viewport(), Qt::LeftButton, {}, placeOf(groups, 2));
    ASSERT_EQ(entries.model()->rowCount(), 1);
    EXPECT_GT(all, 1);
    QTest::mouseClick(entries.viewport(), Qt::LeftButton, {},
                      entries.visualRect(entries.model()->index(0, 0)).center());
    click(window, "1");
  });
  EXPECT_TRUE(reference.DoModal());
  EXPECT_EQ(reference.Unit().text, "宏达钢材");
}

}  // namespace
}  // namespace tz::test
