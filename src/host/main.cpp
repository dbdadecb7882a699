// The desktop program: the theme, the fonts and the navigator.
#include <QApplication>

#include "shell/navigator.h"
#include "suite/fonts.h"
#include "suite/globals.h"
#include "suite/theme.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("辅助核算"));
  auto theme = tz::ThemeChoice::system;
  for (const QString& argument : QApplication::arguments().mid(1)) {
    if (argument == QLatin1String("--dark")) theme = tz::ThemeChoice::dark;
    if (argument == QLatin1String("--light")) theme = tz::ThemeChoice::light;
    if (argument.startsWith(QLatin1String("-ERP"), Qt::CaseInsensitive)) tz::g_lpArgument = argument.toStdString();
  }
  tz::installFonts();
  tz::applyTheme(theme);
  tz::CQnCwAssistantDlg navigator(nullptr);
  navigator.show();
  return QApplication::exec();
}
