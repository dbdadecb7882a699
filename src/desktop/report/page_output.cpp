#include "desktop/report/page_output.h"

#include <QPrinter>
#include <QWidget>

#include "core/platform/sink.h"
#include "core/reports/output_guard.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/page/page_painter.h"
#include "desktop/page/preview_dialog.h"
#include "desktop/page/report_printer.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_status.h"
#include "desktop/report/work_display.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr const char* noPrinter = "没有找到打印机。请检查打印机是否已经安装并打开。\n要先把页面存为 PDF 文件吗？";

}  // namespace

void PageOutput::KeepOptions(KeptPages kept) {
  kept_ = std::move(kept);
  if (kept_.last) options_ = kept_.last();
}

void PageOutput::Print(const ComputedReport& report, QWidget& asker) {
  options_.columnEm = pageColumnEm();
  const ReportPages pages(report, options_, windowStamp());
  PrintOn({asker, *status_}, pages);
}

void PageOutput::Preview(const ComputedReport& report, QWidget& asker) {
  PreviewDialog preview(report, options_, windowStamp(), &asker);
  auto* status = new ReportStatus(&preview);
  preview.SetFoot(status);
  const Face face{preview, *status};
  const auto tellPaper = [&] { status->ShowMessage(preview.PaperText()); };
  tellPaper();
  QObject::connect(&preview, &PreviewDialog::divided, &preview, tellPaper);
  QObject::connect(&preview, &PreviewDialog::printAsked, &preview, [&] { PrintOn(face, preview.Pages()); });
  QObject::connect(&preview, &PreviewDialog::pdfAsked, &preview, [&] { AskForPdf(face, report); });
  preview.exec();
  if (kept_.keep) kept_.keep(options_);
}

void PageOutput::PrintOn(const Face& face, const ReportPages& pages) {
  if (LongWork::Running()) return;
  if (!anyPrinter()) {
    if (AfxMessageBox(&face.window, Question{noPrinter})) AskForPdf(face, pages.Report());
    return;
  }
  QPrinter printer(QPrinter::HighResolution);
  if (askPrinter(printer, pages, &face.window)) PrintPages(face, printer, pages);
}

void PageOutput::PrintPages(const Face& face, QPrinter& printer, const ReportPages& pages) const {
  try {
    const QString file = printer.outputFileName();
    const auto wrong = ledgerAsOutput(fromQt(file), g_lpszQnZwDBName);
    if (!file.isEmpty() && !wrong.empty()) throw OutputError(wrong);
    std::int64_t printed = 0;
    {
      LongWork work(face.window);
      const WorkDisplay display(work, face.status, &face.window, QStringLiteral("正在打印…"), {}, QStringLiteral("页"));
      printed = printPages(printer, pages, [&work](std::int64_t done, std::int64_t of) {
        work.Pump(done, of);
        return !work.Cancelled();
      });
    }
    if (printed == 0) return face.status.ShowNews(QStringLiteral("打印已停止"));
    if (!file.isEmpty()) return face.status.ShowExported(file);
    face.status.ShowNews(QStringLiteral("已送打印机“%1”，共 %2 页").arg(printer.printerName()).arg(printed));
  } catch (const OutputError& error) {
    TellFailure(face, error);
  }
}

void PageOutput::AskForPdf(const Face& face, const ComputedReport& report) {
  if (LongWork::Running()) return;
  const auto target = askExportTarget(&face.window, report, folder_, true);
  if (target) Write(face, report, *target);
}

void PageOutput::WriteFile(const ComputedReport& report, const ExportTarget& target) {
  Write({window_, *status_}, report, target);
}

void PageOutput::Write(const Face& face, const ComputedReport& report, const ExportTarget& target) const {
  try {
    bool whole = false;
    {
      LongWork work(face.window);
      const WorkDisplay display(work, face.status, &face.window, QStringLiteral("正在输出…"), {},
                                target.pages ? QStringLiteral("页") : QStringLiteral("行"));
      whole = writeExport(report, target, options_, work);
    }
    if (whole) {
      face.status.ShowExported(target.path);
    } else {
      face.status.ShowNews(QStringLiteral("输出已停止，没有写入文件"));
    }
  } catch (const OutputError& error) {
    TellFailure(face, error);
  }
}

void PageOutput::TellFailure(const Face& face, const std::exception& error) const {
  logFailure(fromQt(window_.windowTitle()), error.what());
  face.status.ShowFailure(toQt(error.what()));
}

}  // namespace tz
