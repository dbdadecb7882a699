// What a window does with paper: it prints a report, previews its pages and keeps them as a PDF. How that went stands
// in a status line, the window's own or, while it is open, the preview's.
#pragma once

#include "desktop/report/export_file.h"

class QPrinter;
class QWidget;

namespace tz {

class PreviewDialog;
class ReportPages;
class ReportStatus;

// How pages were made last, which the host may keep.
struct KeptPages {
  std::function<PageOptions()> last;
  std::function<void(const PageOptions& options)> keep;
};

class PageOutput {
 public:
  // Both must outlive it; without a status line nothing can be printed yet.
  explicit PageOutput(QWidget& window) : window_(window) {}
  void SetStatus(ReportStatus& status) { status_ = &status; }

  void KeepFolder(ExportFolder folder) { folder_ = std::move(folder); }
  void KeepOptions(KeptPages kept);
  [[nodiscard]] const ExportFolder& Folder() const { return folder_; }

  // Asks for printer and pages above `asker`. Without any printer it offers a PDF.
  void Print(const ComputedReport& report, QWidget& asker);
  void Preview(const ComputedReport& report, QWidget& asker);
  // Writes a file of any kind.
  void WriteFile(const ComputedReport& report, const ExportTarget& target);

 private:
  // Who works and says how it went.
  struct Face {
    QWidget& window;
    ReportStatus& status;
  };
  void PrintOn(const Face& face, const ReportPages& pages);
  void PrintPages(const Face& face, QPrinter& printer, const ReportPages& pages) const;
  void AskForPdf(const Face& face, const ComputedReport& report);
  void Write(const Face& face, const ComputedReport& report, const ExportTarget& target) const;
  void TellFailure(const Face& face, const std::exception& error) const;

  QWidget& window_;
  ReportStatus* status_ = nullptr;
  PageOptions options_;
  ExportFolder folder_;
  KeptPages kept_;
};

}  // namespace tz
