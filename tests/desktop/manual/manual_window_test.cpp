// The manual's window worked by keys and clicks: contents, links, back and forward, search, zoom.
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextTable>
#include <QTreeWidget>

#include "core/catalogue/catalogue.h"
#include "core/manual/report_page.h"
#include "desktop/manual/open_manual.h"
#include "desktop/support/window_script.h"

namespace tz::test {
namespace {

class ManualTest : public ::testing::Test {
 protected:
  ManualTest() { Show("index"); }
  ~ManualTest() override { closeManual(); }

  void Show(const QString& page) {
    showManual(nullptr, page);
    window_ = openManual();
    ASSERT_NE(window_, nullptr);
    ASSERT_TRUE(waitActive(window_));
  }
  QTextBrowser& Page() { return control<QTextBrowser>(*window_, "page"); }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_->focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  // Clicks the first link of that text.
  void Follow(const char* words) {
    const QTextCursor found = Page().document()->find(QString::fromUtf8(words));
    ASSERT_FALSE(found.isNull()) << words;
    Page().setTextCursor(found);
    Page().ensureCursorVisible();
    QTest::mouseClick(Page().viewport(), Qt::LeftButton, Qt::NoModifier,
                      Page().cursorRect(found).center() - QPoint(Page().fontMetrics().averageCharWidth(), 0));
  }

  ManualWindow* window_ = nullptr;
};

TEST_F(ManualTest, GoesByLinksBackAndForward) {
  Follow("开始使用");
  EXPECT_EQ(window_->Place().page, "start");
  EXPECT_TRUE(window_->windowTitle().startsWith("开始使用"));
  Follow("查询条件");
  EXPECT_EQ(window_->Place().page, "conditions");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window_->Place().page, "start");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window_->Place().page, "index");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window_->Place().page, "index");
  Press(Qt::Key_Right, Qt::AltModifier);
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(window_->Place().page, "conditions");
  Press(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(window_->Place().page, "index");

  // The heading that a link names stands at the top.
  Show("reports/10190#提示与拒绝");
  EXPECT_GT(Page().verticalScrollBar()->value(), 0);
  EXPECT_TRUE(Page().cursorForPosition({60, 24}).block().text().contains("提示与拒绝"));
}

TEST_F(ManualTest, FindsWordsInAllPages) {
  Press(Qt::Key_F, Qt::ControlModifier);
  auto& search = control<QLineEdit>(*window_, "search");
  EXPECT_TRUE(search.hasFocus());
  search.setText("非法的部门！ 名称");
  auto& found = control<QListWidget>(*window_, "found");
  EXPECT_TRUE(found.isVisible());
  ASSERT_GT(found.count(), 0);
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_EQ(fromQt(window_->Place().page), "messages");
  EXPECT_TRUE(found.item(1)->text().contains("部门明细帐")) << fromQt(found.item(1)->text());
  QTest::mouseClick(found.viewport(), Qt::LeftButton, {}, found.visualItemRect(found.item(1)).center());
  EXPECT_EQ(fromQt(window_->Place().page), "reports/10186");
  EXPECT_EQ(fromQt(window_->Place().anchor), "提示与拒绝");
  search.setText("没有这样的词");
  EXPECT_EQ(found.count(), 1);
  EXPECT_FALSE(found.item(0)->flags().testFlag(Qt::ItemIsEnabled));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(control<QTreeWidget>(*window_, "contents").isVisible());
  EXPECT_TRUE(window_->isVisible());
  Press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(openManual(), nullptr);
}

// Every page of the contents is there and set as Markdown: headings, tables, no marks left over.
TEST_F(ManualTest, SetsEveryPageOfItsContents) {
  auto& contents = control<QTreeWidget>(*window_, "contents");
  std::set<QString> pages;
  for (QTreeWidgetItemIterator item(&contents); *item != nullptr; ++item) {
    const QString page = (*item)->data(0, Qt::UserRole).toString();
    if (page.isEmpty()) continue;
    SCOPED_TRACE(fromQt(page));
    EXPECT_NE(manualText(page), "");
    pages.insert(page);
    contents.setCurrentItem(*item);
    EXPECT_EQ(window_->Place().page, page);
    const QTextDocument& document = *Page().document();
    EXPECT_EQ(document.begin().blockFormat().headingLevel(), 1);
    const QString text = document.toPlainText();
    for (const QTextFrame* frame : document.rootFrame()->childFrames()) {
      const auto* table = qobject_cast<const QTextTable*>(frame);
      for (int cell = 0; table != nullptr && cell < table->rows() * table->columns(); ++cell) {
        EXPECT_EQ(table->cellAt(cell / table->columns(), cell % table->columns()).columnSpan(), 1) << cell;
      }
    }
    for (const char* mark : {"**", "](", "|---", "## "}) EXPECT_FALSE(text.contains(mark)) << mark;
  }
  for (const ReportDefinition* report : catalogue()) {
    EXPECT_TRUE(pages.contains(toQt(manual::reportPage(*report)))) << report->command;
  }
  for (const QString& page : manualPages()) EXPECT_TRUE(page == "index" || pages.contains(page)) << fromQt(page);
}

TEST_F(ManualTest, GrowsAndShrinksByItself) {
  const int usual = Page().document()->defaultFont().pixelSize();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(Page().document()->defaultFont().pixelSize(), usual);
  Press(Qt::Key_Minus, Qt::ControlModifier);
  Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_LT(Page().document()->defaultFont().pixelSize(), usual);
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Page().document()->defaultFont().pixelSize(), usual);
  expectNamed(*window_);
}

}  // namespace
}  // namespace tz::test
