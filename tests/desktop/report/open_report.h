// A report's window with its combos, worked as a person works them.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "desktop/picking/useful_combox.h"
#include "desktop/report/report_ledger.h"

namespace tz::test {

// A report's window over a ledger that is open as the desktop opens it.
class OpenReport {
 public:
  OpenReport(int command, const Request& request) : window_(new ReportWindow(*findReport(command), nullptr)) {
    EXPECT_TRUE(window_->CreateTheDialog(nullptr));
    window_->SetConditions(request);
    window_->RefreshDisplay();
    EXPECT_TRUE(waitActive(window_));
  }
  OpenReport(const OpenReport&) = delete;
  OpenReport& operator=(const OpenReport&) = delete;
  ~OpenReport() { delete window_; }

  [[nodiscard]] ReportWindow& window() const { return *window_; }
  [[nodiscard]] CUsefulCombox& combo(const char* id) const { return control<CUsefulCombox>(*window_, id); }
  [[nodiscard]] std::string shown(const char* id) const { return fromQt(combo(id).lineEdit()->text()); }
  [[nodiscard]] std::string label(const char* name) const {
    return fromQt(control<QLabel>(*window_, QString::fromLatin1(name)).text());
  }
  [[nodiscard]] std::int64_t rows() const { return window_->Shown()->report.grid.GetRows(); }
  // The balance of the first row.
  [[nodiscard]] double opening() const { return window_->Shown()->report.grid.NumberAt(0, 6); }
  [[nodiscard]] bool enabled(WindowCommand command) const {
    return window_->findChild<QAction*>(QString::number(static_cast<int>(command)))->isEnabled();
  }
  // Goes to an entry with the arrow keys.
  void choose(const char* id, const char* entry) const {
    auto& box = control<QComboBox>(*window_, id);
    const int wanted = box.findText(QString::fromUtf8(entry));
    ASSERT_GE(wanted, 0) << entry;
    box.setFocus();
    for (int steps = 0; box.currentIndex() != wanted && steps < 99; ++steps) {
      QTest::keyClick(&box, wanted > box.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
    }
  }
  // Types in place of what a combo shows and takes what its pop-up marks.
  void type(const char* id, const char* text) const {
    auto& box = combo(id);
    box.setFocus();
    box.lineEdit()->selectAll();
    enterText(box, QString::fromUtf8(text));
    if (QWidget* popup = QApplication::activePopupWidget()) QTest::keyClick(popup, Qt::Key_Return);
  }

 private:
  QPointer<ReportWindow> window_;
};

}  // namespace tz::test
