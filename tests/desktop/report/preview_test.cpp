// The preview of a report's pages, by keys and clicks, and what it leads to.
#include <QCheckBox>
#include <QFileDialog>
#include <QPushButton>
#include <QSpinBox>
#include <fstream>

#include "desktop/page/page_view.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/report/sample_report.h"

namespace tz::test {
namespace {

class PreviewTest : public SampleReport {
 protected:
  // All units of an account, over several pages.
  PreviewTest() { Open(10203, {{ParameterKey::account, "112201"}}); }

  void preview(const std::function<void(PreviewDialog&)>& script) {
    bool opened = false;
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    inModal([&](QWidget& dialog) {
      opened = true;
      auto& preview = dynamic_cast<PreviewDialog&>(dialog);
      script(preview);
      if (preview.isVisible()) QTest::keyClick(&preview, Qt::Key_Escape);
    });
    QTest::keyClick(&Window().Grid(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(opened);
  }
  static std::string sheetOf(PreviewDialog& preview) { return fromQt(control<QSpinBox>(preview, "sheet").text()); }
  static bool hasInk(PreviewDialog& preview) {
    const QImage image = preview.View().viewport()->grab().toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); y += 2)
      for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 160 ? 1 : 0;
    return dark > 150;
  }
};

TEST_F(PreviewTest, TurnsPagesByKeysButtonsAndNumber) {
  preview([&](PreviewDialog& preview) {
    auto& view = preview.View();
    ASSERT_GT(view.Sheets(), 3);
    EXPECT_TRUE(hasInk(preview));
    EXPECT_EQ(sheetOf(preview), "1");
    EXPECT_FALSE(control<QPushButton>(preview, "previous").isEnabled());
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(sheetOf(preview), "2");
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(sheetOf(preview), std::to_string(view.Sheets()));
    EXPECT_TRUE(hasInk(preview));
    EXPECT_FALSE(control<QPushButton>(preview, "next").isEnabled());
    QTest::mouseClick(&control<QPushButton>(preview, "previous"), Qt::LeftButton);
    EXPECT_EQ(sheetOf(preview), std::to_string(view.Sheets() - 1));
    auto& number = control<QSpinBox>(preview, "sheet");
    number.setFocus();
    number.selectAll();
    QTest::keyClicks(&number, "3");
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_EQ(view.Current(), 2);
    EXPECT_TRUE(preview.isVisible()) << "Enter in the field turns the page and nothing else";
    const int before = view.Percent();
    QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(view.Percent(), before);
    EXPECT_EQ(view.Current(), 2) << "the sheet stays while its size changes";
  });
}

TEST_F(PreviewTest, OptionsDivideAnewAndHoldForTheNextPreview) {
  int upright = 0;
  preview([&](PreviewDialog& preview) {
    upright = preview.View().Sheets();
    EXPECT_TRUE(preview.Pages().Pages().front().carried);
    QTest::mouseClick(&control<QCheckBox>(preview, "carried"), Qt::LeftButton, {}, {8, 8});
    EXPECT_FALSE(preview.Pages().Pages().front().carried);
    auto& orientation = control<QComboBox>(preview, "orientation");
    orientation.setFocus();
    QTest::keyClick(&orientation, Qt::Key_End);
    EXPECT_GT(preview.View().Sheets(), upright) << "broad sheets hold fewer lines";
  });
  preview([&](PreviewDialog& preview) {
    EXPECT_GT(preview.View().Sheets(), upright);
    EXPECT_FALSE(control<QCheckBox>(preview, "carried").isChecked());
  });
}

TEST_F(PreviewTest, KeepsAPdf) {
  const TempFolder folder;
  Window().KeepFolder({.last = [&] { return toQt(folder.path().string()); }, .keep = [](const QString&) {}});
  preview([&](PreviewDialog& preview) {
    inModal([&](QWidget& dialog) {
      auto& name = control<QLineEdit>(dialog, "fileNameEdit");
      EXPECT_TRUE(name.text().endsWith(QStringLiteral(".pdf"))) << fromQt(name.text());
      name.setText(QStringLiteral("帐页.pdf"));
      QTest::keyClick(&name, Qt::Key_Return);
    });
    QTest::keyClick(&preview.View(), Qt::Key_S, Qt::ControlModifier);
  });
  std::ifstream file(folder.file("帐页.pdf"), std::ios::binary);
  std::string head(5, ' ');
  file.read(head.data(), 5);
  EXPECT_EQ(head, "%PDF-");
  EXPECT_NE(fromQt(control<QLabel>(Window(), "status").text()).find("已输出到"), std::string::npos);
}

}  // namespace
}  // namespace tz::test
