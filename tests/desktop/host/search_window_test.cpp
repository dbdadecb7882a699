// The search across the ledger in its window, by clicks and keys: from any window, with one window for all searches;
// what is found leads on, what is not found differs from what could not be looked for.
#include "desktop/report/search_window.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

#include "desktop/gridview/grid_view.h"
#include "desktop/host/desktop.h"
#include "desktop/host/host_ledger.h"

namespace tz::test {
namespace {

class SearchWindowTest : public HostTest {
 protected:
  SearchWindowTest() { open_.MakeCurrent({2006, 3, 31}); }
  void start(const Operator& who) {
    desktop_ = std::make_unique<Desktop>(settings_, open_, who);
    desktop_->Show();
    navigator_ = qobject_cast<CQnCwAssistantDlg*>(g_pDlgWnd);
    makeActive(*navigator_);
  }
  ~SearchWindowTest() override {
    desktop_.reset();
    deleteClosed();
  }

  static void makeActive(QWidget& window) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
  }
  [[nodiscard]] static QList<SearchWindow*> windows() { return g_pDlgWnd->findChildren<SearchWindow*>(); }
  static QString told(const SearchWindow& window) { return control<QLabel>(window, "status").text(); }
  // Types into the field and presses Enter.
  static void search(const SearchWindow& window, const QString& text) {
    auto& line = *control<QComboBox>(window, "search").lineEdit();
    line.selectAll();
    enterText(line, text);
    QTest::keyClick(&line, Qt::Key_Return);
  }
  static std::string cell(const SearchWindow& window, qint64 row, int column) {
    return fromQt(window.Grid().ShownText(row, column));
  }

  HostSettings settings_;
  OpenLedger open_{address()};
  std::unique_ptr<Desktop> desktop_;
  QPointer<CQnCwAssistantDlg> navigator_;
  RecordedMessages messages_;
};

TEST_F(SearchWindowTest, OpensFromEveryWindowAndLeadsToTheVoucher) {
  start(everybody());
  QTest::mouseClick(&control<QToolButton>(*navigator_, "search"), Qt::LeftButton);
  ASSERT_EQ(windows().size(), 1);
  SearchWindow& window = *windows().front();
  makeActive(window);
  expectNamed(window);
  auto& field = control<QComboBox>(window, "search");
  EXPECT_TRUE(field.hasFocus());

  // Posted and unposted lines, in their order, each with what it was found by; the first one is current.
  search(window, QStringLiteral("款"));
  ASSERT_EQ(window.Grid().RowCount(), 2);
  EXPECT_EQ(cell(window, 0, 1), "记-0001");
  EXPECT_EQ(cell(window, 1, 9), "摘要");
  EXPECT_TRUE(window.Grid().hasFocus());
  search(window, QStringLiteral("记-3"));
  ASSERT_EQ(window.Grid().RowCount(), 1);
  EXPECT_EQ(cell(window, 0, 4), "销售部 张三");
  EXPECT_EQ(window.Grid().Report()->highlightMeaning, "未记帐凭证");
  QSignalSpy wanted(&window, &SearchWindow::voucherWanted);
  QTest::keyClick(&window.Grid(), Qt::Key_Return);
  ASSERT_EQ(wanted.size(), 1);
  EXPECT_EQ(wanted[0][0].value<LineId>(), (LineId{.book = Book::unposted, .line = 1, .voucher = 3}));

  // The last searches, the latest first; Enter in the list searches again.
  search(window, QStringLiteral("300.50"));
  EXPECT_EQ(cell(window, 0, 6), "300.50");
  makeActive(*navigator_);
  QTest::keyClick(navigator_, Qt::Key_K, Qt::ControlModifier);
  makeActive(window);
  EXPECT_EQ(windows().size(), 1);
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.itemText(0), "300.50");
  QTest::keyClick(&field, Qt::Key_Down);
  ASSERT_TRUE(field.view()->isVisible());
  field.view()->setCurrentIndex(field.model()->index(2, 0));
  QTest::keyClick(field.view(), Qt::Key_Return);
  EXPECT_EQ(field.itemText(0), "款");
  EXPECT_EQ(field.count(), 3);
  EXPECT_EQ(window.Grid().RowCount(), 2);
}

TEST_F(SearchWindowTest, TellsNothingFoundFromWhatCouldNotBeLookedFor) {
  start(everybody());
  QTest::keyClick(navigator_, Qt::Key_K, Qt::ControlModifier);
  ASSERT_EQ(windows().size(), 1);
  SearchWindow& window = *windows().front();
  makeActive(window);
  QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(told(window), "请先查找，并选择一条分录");
  search(window, QStringLiteral("　"));
  EXPECT_EQ(told(window), "请写下要查找的文字、金额或凭证");
  search(window, QStringLiteral("没有的%"));
  EXPECT_EQ(told(window), "没有找到“没有的%”。");
  EXPECT_EQ(window.Grid().RowCount(), 0);
  EXPECT_TRUE(control<QComboBox>(window, "search").hasFocus());

  search(window, QStringLiteral("借款"));
  EXPECT_EQ(window.Grid().RowCount(), 1);
  ledger_.ledger().keeper().execute("DROP TABLE UnregSub");
  QTest::keyClick(&window, Qt::Key_F5);
  EXPECT_EQ(window.Grid().RowCount(), 0) << "what was found before it failed is no answer";
  EXPECT_FALSE(told(window).startsWith(QStringLiteral("没有找到"))) << fromQt(told(window));
  EXPECT_FALSE(told(window).isEmpty());
  EXPECT_TRUE(messages_.all.empty());
  QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
  deleteClosed();
  EXPECT_TRUE(windows().empty());
}

TEST_F(SearchWindowTest, OpensForNobodyWhoMayReadNoVoucher) {
  start(Operator{.id = 1, .name = "出纳", .everyRight = false, .rights = {3}});
  QTest::keyClick(navigator_, Qt::Key_K, Qt::ControlModifier);
  EXPECT_TRUE(windows().empty());
  EXPECT_EQ(messages_.takeLast(), "操作员 出纳 没有任何明细帐的权限，不能查找分录");
}

}  // namespace
}  // namespace tz::test
