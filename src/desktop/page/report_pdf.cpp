#include "desktop/page/report_pdf.h"

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <exception>

#include "core/platform/output_file.h"
#include "desktop/page/page_painter.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

constexpr int dotsPerInch = 1200;

// Hands the library's output on to the file that is being written.
class SinkDevice : public QIODevice {
 public:
  explicit SinkDevice(Sink sink) : sink_(std::move(sink)) { open(QIODevice::WriteOnly); }

  [[nodiscard]] bool isSequential() const override { return true; }
  // Throws what the file threw: nothing is thrown through the toolkit.
  void Check() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 protected:
  qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override {
    if (failure_) return -1;
    try {
      return sink_(std::string_view(data, static_cast<std::size_t>(size))) ? size : -1;
    } catch (...) {
      failure_ = std::current_exception();
      return -1;
    }
  }

 private:
  Sink sink_;
  std::exception_ptr failure_;
};

}  // namespace

QPageLayout pageLayoutOf(const Paper& paper) {
  const bool broad = paper.width > paper.height;
  return {QPageSize(QPageSize::A4), broad ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
          QPageLayout::Point};
}

bool writePdf(const ReportPages& pages, SheetRange sheets, const std::string& path, const FileProgress& progress) {
  OutputFile file(path);
  {
    SinkDevice device(file.Contents());
    QPdfWriter writer(&device);
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(pageLayoutOf(pages.Columns().paper));
    writer.setTitle(toQt(pages.Report().fileName));
    writer.setCreator(QStringLiteral("TzAssistant"));
    QPainter painter(&writer);
    const PagePainter onPaper(pages);
    for (auto sheet = sheets.first; sheet <= sheets.last; ++sheet) {
      if (sheet > sheets.first) writer.newPage();
      onPaper.Paint(painter, static_cast<std::size_t>(sheet - 1), dotsPerInch / pointsPerInch);
      if (progress && !progress(sheet - sheets.first + 1, sheets.last - sheets.first + 1)) return false;
    }
    painter.end();
    device.Check();
  }
  file.Commit();
  return true;
}

bool writePdf(const ComputedReport& report, const PageOptions& options, const std::string& path,
              const FileProgress& progress) {
  PageOptions asked = options;
  asked.columnEm = pageColumnEm();
  const ReportPages pages(report, asked);
  return writePdf(pages, {1, static_cast<std::int64_t>(pages.Sheets())}, path, progress);
}

}  // namespace tz
