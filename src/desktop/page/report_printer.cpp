#include "desktop/page/report_printer.h"

#include <QPainter>
#include <QPrintDialog>
#include <algorithm>

#include "core/platform/sink.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/report_pdf.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

[[noreturn]] void failPrinting(const QPrinter& printer) {
  throw OutputError("打印没有完成：打印机“" + fromQt(printer.printerName()) + "”不接受页面，请检查打印机后重试");
}

}  // namespace

bool askPrinter(QPrinter& printer, const ReportPages& pages, QWidget* parent) {
  printer.setPageLayout(pageLayoutOf(pages.Columns().paper));
  printer.setFullPage(true);
  // The toolkit takes what stands behind a dot for an ending and drops it.
  printer.setDocName(toQt(pages.Report().fileName).replace(QLatin1Char('.'), QLatin1Char('_')));
  QPrintDialog dialog(&printer, parent);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, static_cast<int>(pages.Sheets()));
  return dialog.exec() == QDialog::Accepted;
}

bool printPages(QPrinter& printer, const ReportPages& pages, const FileProgress& progress) {
  const auto all = static_cast<std::int64_t>(pages.Sheets());
  const std::int64_t first = printer.fromPage() == 0 ? 1 : printer.fromPage();
  const std::int64_t last = printer.toPage() == 0 ? all : std::min<std::int64_t>(printer.toPage(), all);
  if (!printer.outputFileName().isEmpty())
    return writePdf(pages, {first, last}, fromQt(printer.outputFileName()), progress);
  QPainter painter;
  if (!painter.begin(&printer)) failPrinting(printer);
  const PagePainter sheets(pages);
  for (auto sheet = first; sheet <= last; ++sheet) {
    if (sheet > first && !printer.newPage()) failPrinting(printer);
    sheets.Paint(painter, static_cast<std::size_t>(sheet - 1), printer.resolution() / pointsPerInch);
    if (progress && !progress(sheet - first + 1, last - first + 1)) {
      printer.abort();
      return false;
    }
  }
  return painter.end();
}

}  // namespace tz
