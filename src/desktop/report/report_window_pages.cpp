// What a report's window does with paper and files: preview, printer, PDF and export.
#include "desktop/report/long_work.h"
#include "desktop/report/page_output.h"
#include "desktop/report/report_window.h"

namespace tz {

void ReportWindow::OnPrint() {
  if (shown_ && !LongWork::Running()) pages_->Print(shown_->report);
}

void ReportWindow::OnPreview() {
  if (shown_ && !LongWork::Running()) pages_->Preview(shown_->report);
}

void ReportWindow::OnExport() {
  if (!shown_ || LongWork::Running()) return;
  const auto target = askExportTarget(this, shown_->report, pages_->Folder());
  if (target) ExportTo(*target);
}

void ReportWindow::ExportTo(const ExportTarget& target) { pages_->WriteFile(shown_->report, target); }

void ReportWindow::KeepFolder(ExportFolder folder) { pages_->KeepFolder(std::move(folder)); }

void ReportWindow::KeepPages(KeptPages kept) { pages_->KeepOptions(std::move(kept)); }

}  // namespace tz
