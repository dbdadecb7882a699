// What a report's window does with paper and files: preview, printer, PDF and export.
#include "desktop/report/long_work.h"
#include "desktop/report/page_output.h"
#include "desktop/report/report_window.h"

namespace tz {

void ReportWindow::OnPrint() {
  if (shown_) PrintReport(shown_->report, this);
}

void ReportWindow::OnPreview() {
  if (shown_) PreviewReport(shown_->report, this);
}

void ReportWindow::OnExport() {
  if (shown_) ExportReport(shown_->report, this);
}

void ReportWindow::PrintReport(const ComputedReport& report, QWidget* asker) {
  if (!LongWork::Running()) pages_->Print(report, *asker);
}

void ReportWindow::PreviewReport(const ComputedReport& report, QWidget* asker) {
  if (!LongWork::Running()) pages_->Preview(report, *asker);
}

void ReportWindow::ExportReport(const ComputedReport& report, QWidget* asker) {
  if (LongWork::Running()) return;
  const auto target = askExportTarget(asker, report, pages_->Folder());
  if (target) pages_->WriteFile(report, *target);
}

void ReportWindow::ExportTo(const ExportTarget& target) { pages_->WriteFile(shown_->report, target); }

void ReportWindow::KeepFolder(ExportFolder folder) { pages_->KeepFolder(std::move(folder)); }

void ReportWindow::KeepPages(KeptPages kept) { pages_->KeepOptions(std::move(kept)); }

}  // namespace tz
