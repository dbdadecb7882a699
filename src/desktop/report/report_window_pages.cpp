// What a report's window does with paper: preview, printer and PDF.
#include <QPrinter>

#include "core/platform/sink.h"
#include "desktop/gridview/grid_view.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/page/report_printer.h"
#include "desktop/report/export_file.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/report_window.h"
#include "desktop/report/work_display.h"

namespace tz {

void ReportWindow::OnPrint() {
  if (!shown_ || LongWork::Running()) return;
  pageOptions_.columnEm = pageColumnEm();
  const ReportPages pages(shown_->report, pageOptions_);
  QPrinter printer(QPrinter::HighResolution);
  if (askPrinter(printer, pages, this)) Print(printer, pages);
}

// The preview asks for the printer or the file; the work itself is the window's, which shows how far it is.
void ReportWindow::OnPreview() {
  if (!shown_ || LongWork::Running()) return;
  enum Wanted { nothing, paper, file };
  PreviewDialog preview(shown_->report, pageOptions_, this);
  QPrinter printer(QPrinter::HighResolution);
  std::optional<ExportTarget> target;
  connect(&preview, &PreviewDialog::printAsked, &preview, [&] {
    if (askPrinter(printer, preview.Pages(), &preview)) preview.done(paper);
  });
  connect(&preview, &PreviewDialog::pdfAsked, &preview, [&] {
    target = askExportTarget(&preview, shown_->report, exportFolder_, true);
    if (target) preview.done(file);
  });
  const int wanted = preview.exec();
  if (wanted == paper) Print(printer, preview.Pages());
  if (wanted == file) ExportTo(*target);
}

void ReportWindow::Print(QPrinter& printer, const ReportPages& pages) {
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
    TellFailure(error);
  }
}

}  // namespace tz
