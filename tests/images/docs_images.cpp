// Draws the pictures of the manual: docs_images FOLDER. Each window is drawn in light and dark, at the scale of
// QT_SCALE_FACTOR.
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>
#include <string>
#include <tuple>

#include "catalogue/catalogue.h"
#include "images/report_images.h"
#include "shell/navigator.h"
#include "suite/fonts.h"
#include "suite/globals.h"
#include "suite/theme.h"

namespace {

using tz::ThemeChoice;

bool save(QWidget& window, const QDir& folder, const QString& name) {
  const int percent = qRound(window.devicePixelRatioF() * 100);
  const QString file = folder.filePath(QStringLiteral("%1-%2.png").arg(name).arg(percent));
  if (window.grab().save(file)) return true;
  QTextStream(stderr) << "cannot write " << file << '\n';
  return false;
}

bool drawNavigator(const QDir& folder, const QString& theme) {
  const tz::CommandRunner runner{[](int command) { return tz::findReport(command) != nullptr; }, [](int) {}, {}};
  const std::tuple<std::string, QString, int> views[] = {{"", QStringLiteral("person"), 10182},
                                                         {"", QStringLiteral("unit"), 10195},
                                                         {"-ERPCONSOLE", QStringLiteral("console"), 10225}};
  for (const auto& [argument, name, area] : views) {
    tz::g_lpArgument = argument;
    tz::CQnCwAssistantDlg navigator(nullptr);
    navigator.SetRunner(runner);
    navigator.show();
    navigator.findChild<QAbstractButton*>(QString::number(area))->click();
    if (!save(navigator, folder, QStringLiteral("navigator-%1-%2").arg(name, theme))) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (QApplication::arguments().size() != 2) {
    QTextStream(stderr) << "usage: docs_images FOLDER\n";
    return 2;
  }
  const QDir folder(QApplication::arguments().at(1));
  tz::installFonts();
  for (const auto& [choice, name] : {std::pair(ThemeChoice::light, "light"), std::pair(ThemeChoice::dark, "dark")}) {
    tz::applyTheme(choice);
    const QString theme = QString::fromLatin1(name);
    if (!drawNavigator(folder, theme)) return 1;
    const auto keep = [&folder](QWidget& window, const QString& file) { return save(window, folder, file); };
    if (!tz::images::drawReports(theme, keep)) return 1;
  }
  return 0;
}
