// A small ledger with lines to clear, open as the desktop opens it, and its windows as a person works them.
#pragma once

#include <QAction>
#include <QLabel>
#include <QToolBar>

#include "core/catalogue/catalogue.h"
#include "core/receivables/clearing_marks.h"
#include "desktop/frame/globals.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/report/report_window.h"
#include "desktop/support/window_script.h"
#include "support/test_ledger.h"

namespace tz::test {

inline constexpr int personClearing = 10192, unitClearing = 10211;

class ClearingLedger {
 public:
  ClearingLedger() : ledger_(Engine::sqlite) {
    ledger_.fill("Code", R"(
        lId | sCode  | sName    | bEnd | bDirect | sAssBook | byExchId
        1   | 122101 | 职工借款 | 1    | 1       | A        | 0
        2   | 112201 | 货款     | 1    | 1       | B        | 0
        3   | 112202 | 运费     | 1    | 1       | B        | 0)");
    ledger_.fill("Dept", R"(
        lId | lDeptId | sDeptId | sDeptName
        1   | 1       | D1      | 销售部
        2   | 2       | D2      | 采购部)");
    ledger_.fill("Person", R"(
        lId | sPersonId | sName | lDeptId
        1   | P1        | 张三  | 1
        2   | P2        | 李四  | 1)");
    ledger_.fill("Enter", R"(
        lId | sEnterId | sEnterName
        1   | K1       | 江源机械
        2   | K2       | 远山贸易)");
    ledger_.fill("RegMain", R"(
        lTieId | byPeroid | dtBill     | dtDate     | sWord | nNumber
        1      | 0        | 2005-12-31 | 2005-12-31 | 期初  | 0
        2      | 1        | 2006-01-05 | 2006-01-05 | 记    | 1
        3      | 2        | 2006-02-06 | 2006-02-06 | 记    | 2
        4      | 3        | 2006-03-07 | 2006-03-07 | 记    | 3)");
    ledger_.fill("RegSub", R"(
        lId | lTieId | lCodeId | lDeptId | lPersonId | lEnterId | mMoney | bDirect | byFlag | sDigest | dtDate
        1   | 1      | 1       | 1       | 1         | 0        | 100    | 1       | 0      | 上年    | 2005-12-31
        2   | 2      | 1       | 1       | 1         | 0        | 1000   | 1       | 0      | 借款    | 2006-01-05
        3   | 3      | 1       | 1       | 1         | 0        | 1000   | 0       | 2      | 还款    | 2006-02-06
        4   | 4      | 1       | 1       | 2         | 0        | 50     | 1       | 1      | 李四    | 2006-03-07
        11  | 2      | 2       | 2       | 0         | 1        | 30     | 1       | 0      | 发货    | 2006-01-05
        12  | 3      | 2       | 1       | 0         | 1        | 70     | 1       | 0      | 发货    | 2006-02-06
        13  | 4      | 2       | 1       | 0         | 1        | 100    | 0       | 0      | 收款    | 2006-03-07
        14  | 4      | 3       | 1       | 0         | 2        | 9      | 1       | 1      | 运费    | 2006-03-07)");
    db_.Open(ledger_.address());
    g_pDB = &db_;
    g_lpszQnZwDBName = ledger_.address();
    g_tmLogonTime = {2006, 3, 31};
    g_operator = everybody();
    g_operator.name = "王会计";
  }
  ClearingLedger(const ClearingLedger&) = delete;
  ClearingLedger& operator=(const ClearingLedger&) = delete;
  ~ClearingLedger() {
    g_pDB = nullptr;
    g_operator = everybody();
  }

  [[nodiscard]] TestLedger& ledger() { return ledger_; }
  // "1:0 2:1 …", the marks of the lines.
  [[nodiscard]] std::string marks() {
    return ledger_.rows("SELECT lId || ':' || byFlag FROM RegSub WHERE byFlag <> 0 ORDER BY lId");
  }
  // Another operator at another window.
  [[nodiscard]] int toggleElsewhere(ClearingKind kind, Id line) {
    CQnCwDB other(Access::report);
    other.Open(ledger_.address());
    Session session{.db = other, .ledger = ledger_.address(), .logon = g_tmLogonTime, .who = everybody()};
    session.who.name = "李出纳";
    return std::get<Toggled>(toggleMark(session, kind, line)).mark;
  }

 private:
  TestLedger ledger_;
  CQnCwDB db_{Access::report};
};

// Runs a script in the modal window of a title once it is there and `ready`, within some seconds: other ones may come
// before it.
inline void inWindowOf(
    const char* title, std::function<void(QWidget&)> script,
    std::function<bool(const QWidget&)> ready = [](const QWidget&) { return true; }, int patience = 2000) {
  constexpr int tick = 5;
  QTimer::singleShot(tick, [=] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal->windowTitle() == QString::fromUtf8(title) && ready(*modal)) return script(*modal);
    ASSERT_GT(patience, 0) << "no window " << title;
    inWindowOf(title, script, ready, patience - 1);
  });
}

class ClearingWindow {
 public:
  explicit ClearingWindow(int command, const char* month = "3")
      : window_(new ReportWindow(*findReport(command), nullptr)) {
    Request request;
    const bool person = command == personClearing;
    request.set(ParameterKey::account, person ? "122101" : "112201");
    if (person) request.set(ParameterKey::dept, "销售部");
    request.set(person ? ParameterKey::person : ParameterKey::unit, person ? "张三" : "江源机械");
    request.set(ParameterKey::month, month);
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(request);
    window_->RefreshDisplay();
    window_->activateWindow();  // nobody does so off the screen once the busy box has closed
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
  }
  ClearingWindow(const ClearingWindow&) = delete;
  ClearingWindow& operator=(const ClearingWindow&) = delete;
  ~ClearingWindow() { delete window_; }

  [[nodiscard]] ReportWindow& window() const { return *window_; }
  [[nodiscard]] GridView& view() const { return window_->Grid(); }
  [[nodiscard]] const CTzGrid& grid() const { return window_->Shown()->report.grid; }
  [[nodiscard]] int markColumn() const { return grid().GetCols() - 1; }
  // The marks from above, '-' for none: "-√○".
  [[nodiscard]] std::string marks() const {
    std::string all;
    for (std::int64_t row = 0; row < grid().GetRows(); ++row) {
      if (grid().RowKindAt(row) != RowKind::line) continue;
      const auto sign = grid().TextAt(row, markColumn());
      all += sign.empty() ? "-" : sign;
    }
    return all;
  }
  [[nodiscard]] std::string label(const char* name) const {
    return fromQt(control<QLabel>(*window_, QString::fromLatin1(name)).text());
  }
  void click(std::int64_t row, int column, Qt::KeyboardModifiers with = {}) const {
    QTest::mouseClick(view().viewport(), Qt::LeftButton, with, view().CellRect(row, column).center());
  }
  void doubleClick(std::int64_t row, int column) const {
    click(row, column);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, view().CellRect(row, column).center());
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, view().CellRect(row, column).center());
  }
  void space() const { QTest::keyClick(&view(), Qt::Key_Space); }
  void press(WindowCommand command) const {
    QTest::mouseClick(window_->ToolBar().widgetForAction(window_->ActionOf(static_cast<int>(command))), Qt::LeftButton);
  }
  // By its key, wherever the focus is.
  void key(int key, Qt::KeyboardModifiers with) const {
    window_->activateWindow();  // a dialog may have been in front
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    QTest::keyClick(&view(), static_cast<Qt::Key>(key), with);
  }

 private:
  QPointer<ReportWindow> window_;
};

}  // namespace tz::test
