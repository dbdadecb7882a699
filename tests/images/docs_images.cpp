// Draws the pictures of the manual: docs_images FOLDER. Each window is drawn at 100 and 200 %, in light and dark.
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTextStream>

#include "shell/navigator.h"
#include "suite/fonts.h"
#include "suite/globals.h"
#include "suite/theme.h"

namespace {

using tz::ThemeChoice;

bool save(QWidget& window, const QDir& folder, const QString& name) {
  for (const int percent : {100, 200}) {
    QImage image(window.size() * percent / 100, QImage::Format_RGB32);
    image.setDevicePixelRatio(percent / 100.0);
    window.render(&image);
    const QString file = folder.filePath(QStringLiteral("%1-%2.png").arg(name).arg(percent));
    if (!image.save(file)) {
      QTextStream(stderr) << "cannot write " << file << '\n';
      return false;
    }
  }
  return true;
}

bool drawNavigator(const QDir& folder, const QString& theme) {
  tz::CommandRunner runner{[](int command) { return command != 10233; }, [](int) {}, {}};
  for (const std::string argument : {"", "-ERPCONSOLE"}) {
    tz::g_lpArgument = argument;
    tz::CQnCwAssistantDlg navigator(nullptr);
    navigator.SetRunner(runner);
    navigator.show();
    const auto layout = tz::layoutFor(argument);
    for (const tz::AreaPicture& area : tz::areaPictures()) {
      auto* button = navigator.findChild<QAbstractButton*>(QString::number(area.command));
      if (button == nullptr) continue;
      button->click();
      const QString name = QStringLiteral("navigator-%1%2-%3")
                               .arg(layout == tz::Layout::console ? QStringLiteral("console-") : QString())
                               .arg(area.command)
                               .arg(theme);
      if (!save(navigator, folder, name)) return false;
    }
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
    if (!drawNavigator(folder, QString::fromLatin1(name))) return 1;
  }
  return 0;
}
