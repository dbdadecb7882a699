// tzassistant-desktop [LEDGER] [-ERPCONSOLE | -ERPSINGLE]: opens a ledger, logs an operator on and shows the navigator.
// Without a ledger, or when it cannot be opened, the start window asks for one.
#include <QApplication>
#include <QIcon>

#include "core/platform/standard_streams.h"
#include "desktop/frame/globals.h"
#include "desktop/host/host.h"
#include "desktop/manual/manual.h"
#include "desktop/report/log.h"
#include "desktop/report/server_wait.h"
#include "desktop/theme/fonts.h"
#include "desktop/theme/language.h"
#include "desktop/theme/qt_text.h"

namespace {

struct Arguments {
  QString ledger;
  std::string startUp;
};

Arguments readArguments() {
  Arguments arguments;
  for (const QString& argument : QApplication::arguments().mid(1)) {
    if (argument.startsWith(QLatin1String("-ERP"), Qt::CaseInsensitive)) {
      arguments.startUp = tz::fromQt(argument);
    } else {
      arguments.ledger = argument;
    }
  }
  return arguments;
}

}  // namespace

// The application gets no display name: the toolkit would append it to the title of every window and message.
int main(int argc, char** argv) {
  tz::platform::openClosedStandardStreams();
  tz::platform::failOnBrokenWrites();
  // The command line's; no program that is opened from here learns them.
  (void)tz::platform::takeVariable("TZ_PASSWORD");
  (void)tz::platform::takeVariable("TZ_NEW_PASSWORD");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setDesktopFileName(QStringLiteral("tzassistant"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/res/tzassistant.svg")));
  tz::installFonts();
  tz::installLanguage();
  tz::installManualKey();
  const tz::ServerWait serverWait;
  const Arguments arguments = readArguments();
  tz::g_lpArgument = arguments.startUp;
  tz::accessLog() = tz::logAccess;
  tz::Host host;
  tz::applyTheme(host.Settings().Theme());
  tz::setTextSize(host.Settings().TextSize());
  if (!host.Start(arguments.ledger)) return 0;
  QObject::connect(&host, &tz::Host::finished, &application, &QApplication::quit);
  return QApplication::exec();
}
