#include "desktop/page/report_pdf.h"

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <exception>
#include <numeric>

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

bool writePdf(const ReportPages& pages, const std::vector<int>& sheets, const std::string& path,
              const FileProgress& progress) {
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
    const auto all = static_cast<std::int64_t>(sheets.size());
    std::int64_t done = 0;
    for (const int sheet : sheets) {
      if (done++ > 0) writer.newPage();
      onPaper.Paint(painter, static_cast<std::size_t>(sheet - 1), dotsPerInch / pointsPerInch);
      // A disk that is full is no reason to paint all the rest.
      device.Check();
      if (progress && !progress(done, all)) return false;
    }
    painter.end();
    device.Check();
  }
  file.Commit();
  return true;
}

bool writePdf(const ComputedReport& report, const PageOptions& options, const PageStamp& stamp, const std::string& path,
              const FileProgress& progress) {
  PageOptions asked = options;
  asked.columnEm = pageColumnEm();
  const ReportPages pages(report, asked, stamp);
  std::vector<int> sheets(pages.Sheets());
  std::iota(sheets.begin(), sheets.end(), 1);
  return writePdf(pages, sheets, path, progress);
}

}  // namespace tz
