// Operators in their windows, by clicks and keys: kept, logged on, with rights that change while somebody works, and
// the log of what they did.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

#include "core/reports/marking.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/host/host.h"
#include "desktop/host/host_ledger.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/operator_form.h"
#include "desktop/host/operators_dialog.h"
#include "desktop/host/work_log_window.h"
#include "desktop/report/voucher_window.h"

namespace tz::test {
namespace {

const QString longPassword = QStringLiteral("一个足够长的口令");

class OperatorWindows : public HostTest {
 protected:
  ~OperatorWindows() override { deleteClosed(); }

  std::string operators() { return ledger_.ledger().rows("SELECT sName, bAll FROM zOperator ORDER BY lId"); }
  std::string rights() { return ledger_.ledger().rows("SELECT nRight FROM zRight ORDER BY nRight"); }

  static void type(const QWidget& form, const char* line, const QString& text) {
    auto& edit = control<QLineEdit>(form, QLatin1String(line));
    edit.clear();
    enterText(edit, text);
  }
  static void typePasswords(const QWidget& form, const QString& first, const QString& second) {
    type(form, "newPassword", first);
    type(form, "newPasswordAgain", second);
  }
  static std::string failure(const QWidget& window) {
    const auto& label = control<QLabel>(window, "failure");
    return label.isVisible() ? fromQt(label.text()) : std::string();
  }
  static void stand(const QWidget& dialog, const QString& name) {
    auto& list = control<QListWidget>(dialog, "operators");
    for (int row = 0; row < list.count(); ++row) {
      if (list.item(row)->text().startsWith(name)) list.setCurrentRow(row);
    }
  }
  // Checks or unchecks a right, or an area, as the space key does.
  static void toggleRight(const QWidget& dialog, const QString& text) {
    auto& tree = control<QTreeWidget>(dialog, "rights");
    const auto found = tree.findItems(text, Qt::MatchStartsWith | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1) << fromQt(text);
    tree.setCurrentItem(found.front());
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Space);
    QCoreApplication::processEvents();
  }
  static QAction& entry(const QWidget& navigator, const char* name) {
    for (QMenu* menu : navigator.findChildren<QMenu*>()) {
      if (auto* found = menu->findChild<QAction*>(QLatin1String(name))) {
        emit menu->aboutToShow();
        return *found;
      }
    }
    throw std::runtime_error(name);
  }

  // 主管, who has every right, and 王芳, who has none.
  void addTwo() {
    LedgerKeeper keeper(ledger_.ledger().address(), operatorTables());
    ASSERT_FALSE(OperatorBook(keeper, everybody()).add({"主管", fromQt(longPassword), {.everyRight = true}}));
    keeper_ = readOperators(keeper.connection()).front().who;
    ASSERT_FALSE(OperatorBook(keeper, keeper_).add({"王芳", fromQt(longPassword), {}}));
  }

  HostSettings settings_;
  RecordedMessages messages_;
  Operator keeper_;
};

TEST_F(OperatorWindows, KeepOperatorsByKeysAlone) {
  OperatorsDialog dialog(ledger_.ledger().address(), everybody(), nullptr);
  dialog.show();
  ASSERT_TRUE(waitActive(&dialog));
  expectNamed(dialog);
  EXPECT_FALSE(control<QPushButton>(dialog, "remove").isEnabled()) << "nobody is there";
  inModal([](QWidget& form) {
    expectNamed(form);
    EXPECT_FALSE(control<QCheckBox>(form, "everyRight").isEnabled()) << "the first one has every right";
    for (const char* stop : {"name", "newPassword", "newPasswordAgain", "1", "2"}) {
      EXPECT_EQ(fromQt(form.focusWidget()->objectName()), stop);
      QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    }
    type(form, "name", QStringLiteral(" 主管 "));
    typePasswords(form, longPassword, QStringLiteral("另一个足够长的口令"));
    click(form, "1");
    EXPECT_EQ(failure(form), "两次输入的新口令不同");
    typePasswords(form, QStringLiteral("短"), QStringLiteral("短"));
    click(form, "1");
    EXPECT_EQ(failure(form), "口令太短：至少 8 个字");
    typePasswords(form, longPassword, longPassword);
    QTest::keyClick(&control<QLineEdit>(form, "newPasswordAgain"), Qt::Key_Return);
  });
  QTest::keyClick(&dialog, Qt::Key_Insert);
  EXPECT_EQ(operators(), "主管|1\n");
  inModal([](QWidget& form) {
    EXPECT_FALSE(control<QCheckBox>(form, "everyRight").isChecked());
    type(form, "name", QStringLiteral("主管"));
    typePasswords(form, longPassword, longPassword);
    click(form, "1");
    EXPECT_EQ(failure(form), "已经有操作员“主管”，请换一个姓名");
    type(form, "name", QStringLiteral("O'Brien'; DROP TABLE Plan --"));
    click(form, "1");
  });
  QTest::keyClick(&dialog, Qt::Key_Insert);
  EXPECT_EQ(operators(), "主管|1\nO'Brien'; DROP TABLE Plan --|0\n");
}

TEST_F(OperatorWindows, GiveAndTakeRightsOnATree) {
  addTwo();
  OperatorsDialog dialog(ledger_.ledger().address(), keeper_, nullptr);
  dialog.show();
  ASSERT_TRUE(waitActive(&dialog));
  expectNamed(dialog);
  // A right, then the whole area, then back.
  stand(dialog, "王芳");
  toggleRight(dialog, QStringLiteral("个人往来明细帐"));
  EXPECT_EQ(rights(), "4\n");
  EXPECT_TRUE(control<QLabel>(dialog, "news").text().contains(QStringLiteral("已给 个人往来明细帐（4 号）")));
  toggleRight(dialog, QStringLiteral("档案"));
  EXPECT_EQ(rights(), "1\n4\n8\n13\n75\n");
  toggleRight(dialog, QStringLiteral("部门档案"));
  // What somebody else gives meanwhile stays.
  ledger_.ledger().fill("zRight", "lOperatorId | nRight\n 2 | 99");
  toggleRight(dialog, QStringLiteral("个人往来明细帐"));
  EXPECT_EQ(rights(), "1\n13\n75\n99\n");

  stand(dialog, "主管");
  EXPECT_FALSE(control<QTreeWidget>(dialog, "rights").isEnabled()) << "he has them all";
  control<QCheckBox>(dialog, "everyRight").click();
  EXPECT_NE(failure(dialog).find("总要留下一个有全部权限"), std::string::npos);
  EXPECT_TRUE(control<QCheckBox>(dialog, "everyRight").isChecked());
}

TEST_F(OperatorWindows, FindRenameAndRemove) {
  addTwo();
  OperatorsDialog dialog(ledger_.ledger().address(), keeper_, nullptr);
  dialog.show();
  ASSERT_TRUE(waitActive(&dialog));
  inModal([](QWidget& form) {
    type(form, "name", QStringLiteral("李芳"));
    click(form, "1");
  });
  stand(dialog, "王芳");
  QTest::keyClick(&control<QListWidget>(dialog, "operators"), Qt::Key_F2);
  dialog.activateWindow();
  ASSERT_TRUE(waitActive(&dialog));
  QTest::keyClick(&dialog, Qt::Key_F, Qt::ControlModifier);
  auto& search = control<QLineEdit>(dialog, "search");
  EXPECT_TRUE(search.hasFocus());
  QTest::keyClicks(&search, "lf");
  auto& list = control<QListWidget>(dialog, "operators");
  ASSERT_EQ(list.count(), 1);
  EXPECT_EQ(list.currentItem()->text(), "李芳");
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_TRUE(list.hasFocus());
  messages_.answer = false;
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(operators(), "主管|1\n李芳|0\n");
  messages_.answer = true;
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(operators() + rights(), "主管|1\n");
  search.clear();
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_NE(messages_.takeLast().find("谁都不用登录就能打开这个帐套"), std::string::npos);
  EXPECT_EQ(operators(), "");
}

// The first operator is added in the desktop: from then on it asks for a logon, and windows close only after a
// question.
TEST_F(OperatorWindows, TheDesktopAsksForALogonOnceThereAreOperators) {
  Host host;
  ASSERT_TRUE(host.Start(address()));
  QPointer<QWidget> navigator = host.Current()->Navigator();
  EXPECT_FALSE(entry(*navigator, "ownPassword").isEnabled());
  EXPECT_EQ(entry(*navigator, "logonAgain").text(), "重新登录…（帐套没有操作员）");
  inModal([](QWidget& dialog) {
    inModal([](QWidget& form) {
      type(form, "name", QStringLiteral("主管"));
      typePasswords(form, longPassword, longPassword);
      click(form, "1");
    });
    QTest::keyClick(&dialog, Qt::Key_Insert);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    // The logon that follows, once this window is closed.
    inModal([](QWidget& logon) {
      EXPECT_EQ(control<QComboBox>(logon, {}).currentText(), "主管");
      type(logon, "password", longPassword);
      QTest::keyClick(&control<QLineEdit>(logon, "password"), Qt::Key_Return);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !logon.isVisible(); }));
    });
  });
  entry(*navigator, "operators").trigger();
  ASSERT_TRUE(QTest::qWaitFor([&] { return g_operator.id != 0; }));
  EXPECT_EQ(g_operator.name, "主管");
  navigator = host.Current()->Navigator();
  EXPECT_TRUE(control<QLabel>(*navigator, "who").text().startsWith("主管"));
  EXPECT_EQ(host.Settings().LastOperator(QFileInfo(address()).absoluteFilePath()), "主管");
  EXPECT_EQ(host.Settings().LastOperator("/anders.db"), "主管") << "where nobody has logged on yet";

  // His own password: the present one comes first.
  inModal([](QWidget& form) {
    expectNamed(form);
    type(form, "oldPassword", longPassword);
    typePasswords(form, QStringLiteral("主管的另一个口令"), QStringLiteral("主管的另一个口令"));
    click(form, "1");
  });
  entry(*navigator, "ownPassword").trigger();
  EXPECT_TRUE(logOn(logonQuestion(*g_pDB, "主管"), "主管的另一个口令"));
}

TEST_F(OperatorWindows, ARightThatIsTakenAwayEndsAtTheNextCommand) {
  addOperator(ledger_.ledger());
  OpenLedger open(address());
  open.MakeCurrent({2006, 3, 31});
  std::vector<AccessEvent> told;
  accessLog() = [&](const AccessEvent& event) { told.push_back(event); };
  Desktop desktop(settings_, open, logonQuestion(open.Database(), "王会计").who);
  desktop.Show();
  auto& navigator = *qobject_cast<CQnCwAssistantDlg*>(g_pDlgWnd);
  ASSERT_TRUE(waitActive(&navigator));
  navigator.OnTzAssistantPerson();
  EXPECT_TRUE(control<PictureButton>(navigator, "10190").IsAvailable());
  EXPECT_EQ(entry(navigator, "operators").text(), "操作员…（需要全部权限）");
  EXPECT_FALSE(entry(navigator, "operators").isEnabled());

  ledger_.ledger().keeper().execute("UPDATE zRight SET nRight = 3");
  click(navigator, "10190");  // a dialog would hang the test
  EXPECT_EQ(messages_.takeLast(), "操作员 王会计 没有“三栏式明细帐”的权限（4 号），请向管理员申请");
  ASSERT_EQ(told.size(), 1U);
  EXPECT_EQ(told[0].who + " " + told[0].what, "王会计 三栏式明细帐（4 号）");
  QCoreApplication::processEvents();
  EXPECT_FALSE(control<PictureButton>(navigator, "10190").IsAvailable());
  EXPECT_TRUE(control<PictureButton>(navigator, "10189").IsAvailable()) << "and what he was given he can open";
  accessLog() = {};
}

// Every way to a report asks for its right: a table leads nowhere where the ledger behind it may not be seen.
TEST_F(OperatorWindows, DrillingDownAndVouchersTakeTheRightsOfWhatTheyOpen) {
  ReportLauncher launcher(Operator{.name = "王会计", .rights = {3}}, findReport);
  CQnCwAssistantDlg navigator(nullptr);
  EXPECT_EQ(launcher.LaunchFromReport({10190, ReportLedger::zhangSan()}, &navigator), nullptr);
  EXPECT_EQ(messages_.takeLast(), "操作员 王会计 没有“三栏式明细帐”的权限（4 号），请向管理员申请");
  EXPECT_EQ(launcher.OpenVoucher({Book::posted, 1, 1}, &navigator), nullptr);
  EXPECT_EQ(messages_.takeLast(), "操作员 王会计 没有任何明细帐的权限，不能查看凭证");
  launcher.OpenSearch();
  EXPECT_EQ(messages_.takeLast(), "操作员 王会计 没有任何明细帐的权限，不能查找分录");
  EXPECT_TRUE(launcher.Windows().empty());
}

TEST_F(OperatorWindows, LogonCountsTheWaitAndKnowsTheLockOfCapitals) {
  addOperator(ledger_.ledger());
  const OpenLedger open(address());
  auto moment = LogonDelays::Clock::now();
  LogonDelays delays(std::chrono::seconds(1), [&] { return moment; });
  LogonDialog logon(open, {}, nullptr, delays);
  logon.show();
  ASSERT_TRUE(waitActive(&logon));
  auto& password = control<QLineEdit>(logon, "password");
  auto& lock = control<QLabel>(logon, "passwordLock");
  QTest::keyClick(&password, 'A', Qt::ShiftModifier);
  EXPECT_FALSE(lock.isVisible());
  QTest::sendKeyEvent(QTest::Click, &password, Qt::Key_A, QStringLiteral("A"), Qt::NoModifier);
  EXPECT_TRUE(lock.isVisible());
  QTest::keyClick(&password, Qt::Key_CapsLock);
  EXPECT_FALSE(lock.isVisible());

  QTest::keyClick(&password, Qt::Key_Return);
  auto& ok = control<QPushButton>(logon, "1");
  ASSERT_TRUE(QTest::qWaitFor([&] { return ok.text() == QStringLiteral("请等 1 秒"); }));
  EXPECT_FALSE(password.isEnabled());
  {
    LogonDialog again(open, {}, nullptr, delays);
    EXPECT_FALSE(control<QPushButton>(again, "1").isEnabled()) << "a new window does not end the wait";
  }
  moment += std::chrono::seconds(1);
  ASSERT_TRUE(QTest::qWaitFor([&] { return ok.isEnabled(); }));
  EXPECT_EQ(ok.text(), "确定");
  EXPECT_EQ(password.selectedText().size(), 2) << "to be typed over";
  EXPECT_EQ(control<QComboBox>(logon, {}).currentText(), "王会计");
}

TEST_F(OperatorWindows, TheLogLeadsToTheVoucher) {
  addOperator(ledger_.ledger());
  OpenLedger open(address());
  open.MakeCurrent({2006, 3, 31});
  CQnCwDB db;
  db.Open(ledger_.ledger().address());
  const auto line = db.RegSub_GetInfo("lId > 0 ORDER BY lId").front();
  Session session{.db = db, .ledger = {}, .logon = {}, .who = {.name = "王会计"}};
  session.now = [] { return std::chrono::sys_days{std::chrono::year{2026} / 1 / 31} + std::chrono::hours(8); };
  const auto mark = [&](int before, int after) {
    const std::vector<MarkChange> changes = {{line.lId, line.lTieId, before, after}};
    (void)markLines(session, changes, MarkWork::What::toggle, ClearingKind::person);
  };
  mark(0, 1);
  session.who.name = "李明";
  mark(1, 0);

  const auto openLog = [&](const Operator& who) {
    auto desktop = std::make_unique<Desktop>(settings_, open, who);
    desktop->Show();
    for (QMenu* menu : g_pDlgWnd->findChildren<QMenu*>()) {
      for (QAction* action : menu->actions()) {
        if (action->text() == "操作日志…") action->trigger();
      }
    }
    return desktop;
  };
  auto who = logonQuestion(open.Database(), "王会计").who;
  {
    const auto desktop = openLog(who);
    const auto& window = *g_pDlgWnd->findChild<WorkLogWindow*>();
    EXPECT_EQ(window.Grid().RowCount(), 2) << "a heading and a line of his own";
    EXPECT_FALSE(control<QComboBox>(window, "by").isEnabled());
  }
  deleteClosed();
  ledger_.ledger().keeper().execute("UPDATE zOperator SET bAll = 1");
  const auto desktop = openLog(withRightsOfNow(open.Database(), who));
  auto& window = *g_pDlgWnd->findChild<WorkLogWindow*>();
  ASSERT_TRUE(waitActive(&window));
  expectNamed(window);
  ASSERT_EQ(window.Grid().RowCount(), 4);
  auto& by = control<QComboBox>(window, "by");
  EXPECT_GE(by.findText("李明"), 0) << "who is no operator any more has still worked here";
  QTest::keyClick(&control<QDateEdit>(window, "from"), Qt::Key_Delete, Qt::ControlModifier);
  control<QDateEdit>(window, "from").setDate(QDate(2026, 2, 2));
  EXPECT_EQ(window.Grid().RowCount(), 0);
  control<QDateEdit>(window, "from").setFocus();
  QTest::keyClick(&control<QDateEdit>(window, "from"), Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(window.Grid().RowCount(), 4);

  window.Grid().SetCurrent(1, 0);
  window.Grid().setFocus();
  QTest::keyClick(&window.Grid(), Qt::Key_Return);
  const auto* voucher = g_pDlgWnd->findChild<VoucherWindow*>();
  if (voucher == nullptr) voucher = window.findChild<VoucherWindow*>();
  ASSERT_NE(voucher, nullptr);
  EXPECT_EQ(voucher->Shown()->head.lTieId, line.lTieId);
}

}  // namespace
}  // namespace tz::test
