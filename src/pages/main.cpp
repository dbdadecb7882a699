// tzassistant-pages: the command line with the windows' toolkit in it, for output in pages. tzassistant becomes it when
// pages are asked for.
#include <QApplication>
#include <array>

#include "cli/pages.h"
#include "cli/program.h"
#include "desktop/page/report_pdf.h"
#include "desktop/theme/fonts.h"

namespace {

// What the toolkit remarks on its surroundings is nothing that a person asked for; failures are told in our own words.
void keepQuiet(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*words*/) {}

}  // namespace

int main(int argc, char** argv) {
  // Pages need fonts but no display.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(keepQuiet);
  // The arguments are the command line's.
  std::array<char*, 2> own{argv[0], nullptr};
  int count = 1;
  const QApplication application(count, own.data());
  tz::installFonts();
  tz::cli::offerPages([](const tz::ComputedReport& report, const tz::PageStamp& stamp, const std::string& file) {
    (void)tz::writePdf(report, {}, stamp, file);
  });
  return tz::cli::runProgram(argc, argv);
}
