#include "desktop/page/report_printer.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <algorithm>

#include "core/platform/sink.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/print_queue.h"
#include "desktop/page/report_pdf.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

[[noreturn]] void failPrinting(const QPrinter& printer) {
  throw OutputError("打印没有完成：打印机“" + fromQt(printer.printerName()) + "”不接受页面，请检查打印机后重试");
}

// Which sheets were asked for, from 1, in the order in which they leave the printer.
std::vector<int> wantedSheets(const QPrinter& printer, int sheets) {
  std::vector<int> wanted;
  const auto ranges = printer.pageRanges();
  for (int sheet = 1; sheet <= sheets; ++sheet) {
    if (ranges.isEmpty() || ranges.contains(sheet)) wanted.push_back(sheet);
  }
  if (printer.pageOrder() == QPrinter::LastPageFirst) std::ranges::reverse(wanted);
  return wanted;
}

}  // namespace

bool anyPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

bool askPrinter(QPrinter& printer, const ReportPages& pages, QWidget* parent) {
  printer.setPageLayout(pageLayoutOf(pages.Columns().paper));
  printer.setFullPage(true);
  printer.setCreator(QStringLiteral("TzAssistant"));
  // The toolkit takes what stands behind a dot for an ending and drops it.
  printer.setDocName(toQt(pages.Report().fileName).replace(QLatin1Char('.'), QLatin1Char('_')));
  QPrintDialog dialog(&printer, parent);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, static_cast<int>(pages.Sheets()));
  return dialog.exec() == QDialog::Accepted;
}

std::int64_t printPages(QPrinter& printer, const ReportPages& pages, const FileProgress& progress) {
  const auto wanted = wantedSheets(printer, static_cast<int>(pages.Sheets()));
  if (!printer.outputFileName().isEmpty()) {
    const bool whole = writePdf(pages, wanted, fromQt(printer.outputFileName()), progress);
    return whole ? static_cast<std::int64_t>(wanted.size()) : 0;
  }
  QPainter painter;
  if (!painter.begin(&printer)) failPrinting(printer);
  const PagePainter sheets(pages);
  const auto all = static_cast<std::int64_t>(wanted.size());
  std::int64_t done = 0;
  for (const int sheet : wanted) {
    if (done > 0 && !printer.newPage()) failPrinting(printer);
    sheets.Paint(painter, static_cast<std::size_t>(sheet - 1), printer.resolution() / pointsPerInch);
    ++done;
    if (progress && !progress(done, all)) {
      printer.abort();
      return 0;
    }
  }
  if (!painter.end() || queueRefused()) failPrinting(printer);
  return all;
}

}  // namespace tz
