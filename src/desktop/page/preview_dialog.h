// The preview of a report's pages: to look at, to turn, to print or to keep as a PDF, which leaves it open. How pages
// are made is chosen here and holds for the prints that follow.
#pragma once

#include <QDialog>
#include <memory>

#include "core/output/report_pages.h"

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpinBox;

namespace tz {

class PageView;

class PreviewDialog : public QDialog {
  Q_OBJECT

 public:
  // The report must outlive it. `options` is what is chosen, then and now.
  PreviewDialog(const ComputedReport& report, PageOptions& options, PageStamp stamp, QWidget* parent);
  ~PreviewDialog() override;

  // A line below the pages, which becomes the dialog's.
  void SetFoot(QWidget* foot);
  [[nodiscard]] PageView& View() { return *view_; }
  [[nodiscard]] const ReportPages& Pages() const { return *pages_; }
  // "共 12 页，A4 纵向"
  [[nodiscard]] QString PaperText() const;

 signals:
  void printAsked();
  void pdfAsked();
  // The report was divided anew.
  void divided();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddSheetButtons(QHBoxLayout& bar);
  void AddZoom(QHBoxLayout& bar);
  void AddOptions(QHBoxLayout& bar);
  QPushButton* AddButton(QHBoxLayout& bar, const char* name, const QString& text, const QString& tip);
  // Divides the report anew, as the options are now.
  void Divide();
  void ShowPlace();
  void ZoomBy(int steps);
  void SetZoom(int zoom);
  bool TakesKey(int key);

  const ComputedReport& report_;
  PageOptions& options_;
  PageStamp stamp_;
  std::unique_ptr<ReportPages> pages_;
  PageView* view_;
  QPushButton* first_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* last_ = nullptr;
  QSpinBox* sheet_ = nullptr;
  QLabel* of_ = nullptr;
  QComboBox* zoom_ = nullptr;
};

}  // namespace tz
