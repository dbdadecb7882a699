// The preview of a report's pages, by keys and clicks, and what it leads to.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>
#include <filesystem>
#include <fstream>

#include "cli/full_disk.h"
#include "desktop/page/page_view.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/page/report_printer.h"
#include "desktop/report/page_output.h"
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
    ASSERT_TRUE(waitActive(&Window()));
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
  PageOptions kept;
  Window().KeepPages({.last = [&] { return kept; }, .keep = [&](const PageOptions& options) { kept = options; }});
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
  EXPECT_EQ(kept.orientation, Orientation::landscape);
  EXPECT_FALSE(kept.carriedLines);
}

TEST_F(PreviewTest, ShowsTwoSheetsBesideEachOther) {
  preview([&](PreviewDialog& preview) {
    auto& view = preview.View();
    QTest::keyClick(&view, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(view.Zoom(), PageView::twoSheets);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(sheetOf(preview), "3");
    QTest::keyClick(&view, Qt::Key_G, Qt::ControlModifier);
    auto* number = qobject_cast<QSpinBox*>(preview.focusWidget());
    ASSERT_NE(number, nullptr);
    QTest::keyClicks(number, QString::number(view.Sheets()));
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_EQ(view.Current() + 1, view.Sheets());
    EXPECT_FALSE(control<QPushButton>(preview, "next").isEnabled());
    EXPECT_TRUE(hasInk(preview));
    // Larger than the view, a sheet is leafed through before the next one comes.
    QTest::keyClick(&view, Qt::Key_Home);
    for (int i = 0; i < 8; ++i) QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(view.Current(), 0);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    QTest::keyClick(&view, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(view.Current(), 1);
  });
}

class PreviewPdfTest : public PreviewTest {
 protected:
  PreviewPdfTest() {
    Window().KeepFolder({.last = [&] { return toQt(folder_.path().string()); }, .keep = [](const QString&) {}});
  }
  static void askForPdf(PreviewDialog& preview) {
    inModal([&](QWidget& dialog) {
      auto& name = control<QLineEdit>(dialog, "fileNameEdit");
      EXPECT_TRUE(name.text().endsWith(QStringLiteral(".pdf"))) << fromQt(name.text());
      name.setText(QStringLiteral("帐页.pdf"));
      QTest::keyClick(&name, Qt::Key_Return);
    });
    QTest::keyClick(&preview.View(), Qt::Key_S, Qt::ControlModifier);
  }
  static std::string told(PreviewDialog& preview) { return fromQt(control<QLabel>(preview, "status").text()); }

  TempFolder folder_;
  std::string file_ = folder_.file("帐页.pdf");
};

TEST_F(PreviewPdfTest, KeepsAPdfAndStaysOpen) {
  preview([&](PreviewDialog& preview) {
    EXPECT_NE(told(preview).find("A4 纵向"), std::string::npos) << told(preview);
    askForPdf(preview);
    ASSERT_TRUE(preview.isVisible());
    EXPECT_NE(told(preview).find("已输出到 " + file_), std::string::npos) << told(preview);
    EXPECT_TRUE(control<QToolButton>(preview, "openFile").isVisible());
    QTest::keyClick(&preview.View(), Qt::Key_PageDown);
    EXPECT_EQ(sheetOf(preview), "2");
  });
  std::ifstream pdf(file_, std::ios::binary);
  std::string head(5, ' ');
  pdf.read(head.data(), 5);
  EXPECT_EQ(head, "%PDF-");
}

TEST_F(PreviewPdfTest, AFullDiskLeavesNothingAndSaysSo) {
  preview([&](PreviewDialog& preview) {
    const FullDisk disk(20'000);
    askForPdf(preview);
    ASSERT_TRUE(preview.isVisible());
    EXPECT_NE(told(preview).find("无法写入"), std::string::npos) << told(preview);
  });
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

// Printing through the toolkit's dialog into a file, which needs no printer.
TEST_F(PreviewTest, PrintsARangeThroughTheRealDialog) {
  const TempFolder folder;
  const std::string file = folder.file("打印.pdf");
  const ReportPages pages(Report(), {.columnEm = pageColumnEm()});
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFileName(toQt(file));
  inModal([&](QWidget& dialog) {
    control<QRadioButton>(dialog, "printRange").setChecked(true);
    control<QSpinBox>(dialog, "from").setValue(2);
    control<QSpinBox>(dialog, "to").setValue(3);
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
  });
  ASSERT_TRUE(askPrinter(printer, pages, &Window()));
  EXPECT_EQ(printPages(printer, pages), 2);
  QProcess reader;
  reader.start(QStringLiteral("pdftotext"), {toQt(file), QStringLiteral("-")});
  ASSERT_TRUE(reader.waitForFinished());
  const auto text = fromQt(QString::fromUtf8(reader.readAllStandardOutput()));
  EXPECT_EQ(text.find("第 1 页"), std::string::npos);
  EXPECT_NE(text.find("第 2 页"), std::string::npos) << text;
  EXPECT_NE(text.find("第 3 页"), std::string::npos);
}

TEST_F(PreviewTest, WithoutPrinterOffersAPdf) {
  if (anyPrinter()) GTEST_SKIP() << "this machine has a printer";
  messages_.answer = false;
  Press(Qt::Key_P, Qt::ControlModifier);
  EXPECT_NE(messages_.takeLast().find("没有找到打印机"), std::string::npos);
}

}  // namespace
}  // namespace tz::test
