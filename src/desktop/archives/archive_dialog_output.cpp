// What a directory's window does with its list besides showing it: files, paper, help.
#include <QPrinter>

#include "core/platform/sink.h"
#include "desktop/archives/archive_dialog.h"
#include "desktop/manual/manual.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/page/report_printer.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {

void ArchiveDialog::Export() {
  if (table_.Found() == 0 || LongWork::Running()) return;
  status_->EndFailure();
  const auto report = table_.Report(title_);
  if (const auto target = askExportTarget(this, report, exportFolder_)) WriteFile(report, *target);
}

void ArchiveDialog::WriteFile(const ComputedReport& report, const ExportTarget& target) {
  try {
    bool whole = false;
    {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在输出…"), false);
      whole = writeExport(report, target, pageOptions_, work);
    }
    whole ? status_->ShowExported(target.path) : status_->ShowNews(QStringLiteral("输出已停止，没有写入文件"));
  } catch (const OutputError& error) {
    logFailure(fromQt(title_), error.what());
    status_->ShowFailure(toQt(error.what()));
  }
}

void ArchiveDialog::Print() { PrintPages(table_.Report(title_), false); }

void ArchiveDialog::Preview() { PrintPages(table_.Report(title_), true); }

// The preview asks for the printer or the file; the work itself is done here, where it shows how far it is.
void ArchiveDialog::PrintPages(const ComputedReport& report, bool preview) {
  if (LongWork::Running()) return;
  status_->EndFailure();
  pageOptions_.columnEm = pageColumnEm();
  QPrinter printer(QPrinter::HighResolution);
  if (preview) {
    PreviewDialog window(report, pageOptions_, this);
    std::optional<ExportTarget> target;
    connect(&window, &PreviewDialog::printAsked, &window, [&] {
      if (askPrinter(printer, window.Pages(), &window)) window.accept();
    });
    connect(&window, &PreviewDialog::pdfAsked, &window, [&] {
      target = askExportTarget(&window, report, exportFolder_, true);
      if (target) window.reject();
    });
    const bool prints = window.exec() == QDialog::Accepted;
    if (target) return WriteFile(report, *target);
    if (!prints) return;
  }
  const ReportPages pages(report, pageOptions_);
  if (!preview && !askPrinter(printer, pages, this)) return;
  try {
    bool whole = false;
    {
      LongWork work(*this);
      const WorkDisplay display(work, *status_, this, QStringLiteral("正在打印…"), false);
      whole = printPages(printer, pages, [&work](std::int64_t done, std::int64_t of) {
        work.Pump(done, of);
        return !work.Cancelled();
      });
    }
    if (whole && !printer.outputFileName().isEmpty()) return status_->ShowExported(printer.outputFileName());
    status_->ShowNews(whole ? QStringLiteral("已送打印机，共 %1 页").arg(pages.Sheets())
                            : QStringLiteral("打印已停止"));
  } catch (const OutputError& error) {
    logFailure(fromQt(title_), error.what());
    status_->ShowFailure(toQt(error.what()));
  }
}

void ArchiveDialog::Help() { showManual(this, QStringLiteral("archives")); }

}  // namespace tz
