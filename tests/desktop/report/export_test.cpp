// Exporting from a report's window: the proposed name and folder, the kind of file, and what opens it afterwards.
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <fstream>

#include "desktop/gridview/grid_view.h"
#include "desktop/report/opened_files.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {
namespace {

class ExportTest : public ::testing::Test {
 protected:
  ExportTest() : window_(new ReportWindow(*findReport(10190), nullptr)) {
    window_->KeepFolder({.last = [this] { return kept_; }, .keep = [this](const QString& folder) { kept_ = folder; }});
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(ReportLedger::zhangSan());
    window_->RefreshDisplay();
  }
  ~ExportTest() override { delete window_; }

  // Chooses "输出" in the grid's menu by keys, and answers the dialog.
  void exportBy(const std::function<void(QFileDialog&)>& script) {
    inModal([&](QWidget& dialog) {
      script(dynamic_cast<QFileDialog&>(dialog));
      QTest::keyClick(&control<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    QTest::keyClick(&window_->Grid(), Qt::Key_Menu);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_E);
  }
  [[nodiscard]] std::string status() const { return fromQt(control<QLabel>(*window_, "status").text()); }

  const TempFolder folder_;
  QString kept_ = toQt(folder_.path().string());
  ReportLedger ledger_;
  RecordedMessages messages_;
  ReportWindow* window_;
};

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(ExportTest, ProposesSubjectAndPeriodInTheLastFolderAndOpensWhatItWrote) {
  const std::string name = "三栏式明细帐 122101 职工借款 张三 2006.01-03";
  exportBy([&](QFileDialog& dialog) {
    EXPECT_EQ(fromQt(control<QLineEdit>(dialog, "fileNameEdit").text()), name + ".xlsx");
    EXPECT_EQ(dialog.directory().path(), kept_);
  });
  const std::string path = folder_.file(name + ".xlsx");
  EXPECT_EQ(bytesOf(path).substr(0, 2), "PK");
  EXPECT_NE(status().find("已输出到"), std::string::npos);

  window_->activateWindow();
  ASSERT_TRUE(waitActive(window_));
  auto& folderButton = control<QToolButton>(*window_, "openFolder");
  {
    const OpenedFiles opened;
    QTest::keyClick(&window_->Grid(), Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !opened.Paths().isEmpty(); }))
        << "the key shows the button going down first";
    folderButton.setFocus();
    QTest::keyClick(&folderButton, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened.Paths().size() == 2; }));
    EXPECT_EQ(fromQt(opened.Paths().join(QLatin1Char('\n'))), path + "\n" + fromQt(kept_));
    EXPECT_NE(status().find("已输出到"), std::string::npos) << status();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&folderButton)->text(QAccessible::Name),
              QStringLiteral("打开文件夹"));
  }
  {
    const OpenedFiles withoutPrograms(3);
    QTest::keyClick(&window_->Grid(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return status().find("没有登记打开文件夹的程序") != std::string::npos; }))
        << status();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), kept_);
    EXPECT_TRUE(folderButton.isVisible());
  }
  std::filesystem::remove(path);
  click(*window_, "openFile");
  EXPECT_NE(status().find("已经不在"), std::string::npos) << status();
  EXPECT_FALSE(folderButton.isVisible());
  QTest::keyClick(&window_->Grid(), Qt::Key_Down);
  EXPECT_NE(status().find("已经不在"), std::string::npos) << status();
  QTest::keyClick(&window_->Grid(), Qt::Key_Return);
  EXPECT_TRUE(status().starts_with("共 ")) << "the next command is not followed by an old failure: " << status();
}

TEST_F(ExportTest, TheKindOfFileThatIsChosenIsWritten) {
  const auto choose = [](QFileDialog& dialog, int kind) {
    auto& kinds = control<QComboBox>(dialog, "fileTypeCombo");
    kinds.setFocus();
    for (int i = 0; i < kind; ++i) QTest::keyClick(&kinds, Qt::Key_Down);
  };
  exportBy([&](QFileDialog& dialog) { choose(dialog, 2); });
  const std::string name = "三栏式明细帐 122101 职工借款 张三 2006.01-03";
  const std::string csv = bytesOf(folder_.file(name + ".csv"));
  EXPECT_TRUE(csv.starts_with("\xC8\xFD\xC0\xB8")) << "GB18030";
  EXPECT_FALSE(std::filesystem::exists(folder_.file(name + ".xlsx")));

  // The points of the months are no ending.
  std::filesystem::create_directory(folder_.file("新"));
  exportBy([&](QFileDialog& dialog) {
    choose(dialog, 1);
    control<QLineEdit>(dialog, "fileNameEdit").setText(toQt(folder_.file("新/张三 2006.01")));
  });
  EXPECT_TRUE(bytesOf(folder_.file("新/张三 2006.01.csv")).starts_with("\xEF\xBB\xBF三栏式明细帐"));
  EXPECT_EQ(kept_, toQt(folder_.file("新")));

  messages_.answer = false;
  std::ofstream(folder_.file("新/张三 2006.02.csv")) << "旧";
  exportBy([&](QFileDialog& dialog) {
    choose(dialog, 1);
    control<QLineEdit>(dialog, "fileNameEdit").setText(toQt(folder_.file("新/张三 2006.02")));
  });
  EXPECT_NE(messages_.takeLast().find("已经存在"), std::string::npos);
  EXPECT_EQ(bytesOf(folder_.file("新/张三 2006.02.csv")), "旧");
}

}  // namespace
}  // namespace tz::test
