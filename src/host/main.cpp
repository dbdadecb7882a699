// tzassistant-desktop [LEDGER] [-ERPCONSOLE | -ERPSINGLE]: opens a ledger, logs an operator on and shows the navigator.
// Without a ledger, or when it cannot be opened, the start window asks for one.
#include <QApplication>

#include "host/desktop.h"
#include "host/logon_dialog.h"
#include "host/start_window.h"
#include "reports/explain_error.h"
#include "suite/fonts.h"
#include "suite/globals.h"
#include "suite/language.h"
#include "suite/qt_text.h"
#include "system/standard_streams.h"
#include "ui/log.h"

namespace {

using tz::fromQt;
using tz::toQt;

// The ledgers and the desktop over them, one after the other.
class Host {
 public:
  // Shows a ledger, or the start window. False when the person gave up.
  bool Start(const QString& address) {
    const QString failure = address.isEmpty() ? QString() : Open(address);
    if (!address.isEmpty() && failure.isEmpty()) return true;
    tz::StartWindow start(settings_, [this](const QString& chosen) { return Open(chosen); });
    if (!failure.isEmpty()) start.ShowFailure(failure);
    return start.exec() == QDialog::Accepted;
  }

  tz::HostSettings& Settings() { return settings_; }

 private:
  // Opens a ledger and its desktop. What went wrong, or an empty text.
  QString Open(const QString& address) {
    try {
      desktop_.reset();
      ledger_.reset();
      ledger_ = std::make_unique<tz::OpenLedger>(address);
      const auto who = LogOn();
      if (!who) return QStringLiteral("没有登录");
      settings_.RememberLedger(address);
      desktop_ = std::make_unique<tz::Desktop>(settings_, *ledger_, *who);
    } catch (const tz::DbError& error) {
      tz::logFailure(fromQt(tz::shownAddress(address)), error.what());
      return toQt(tz::explain(error));
    }
    QObject::connect(desktop_.get(), &tz::Desktop::finished, qApp, [this](bool another) { Finish(another); });
    desktop_->Show();
    return {};
  }

  std::optional<tz::Operator> LogOn() {
    if (!tz::needsLogon(ledger_->Database())) return tz::everybody();
    tz::LogonDialog logon(ledger_->Database(), ledger_->Name(), settings_.LastOperator(), tz::g_tmLogonTime);
    if (logon.exec() != QDialog::Accepted) return std::nullopt;
    settings_.SetLastOperator(toQt(logon.Who().name));
    tz::g_tmLogonTime = logon.LogonDate();
    return logon.Who();
  }

  // The windows that end are still on the stack: what follows waits for the event loop.
  void Finish(bool another) {
    QMetaObject::invokeMethod(
        qApp,
        [this, another] {
          if (!another || !Start({})) QApplication::quit();
        },
        Qt::QueuedConnection);
  }

  tz::HostSettings settings_;
  std::unique_ptr<tz::OpenLedger> ledger_;
  std::unique_ptr<tz::Desktop> desktop_;
};

struct Arguments {
  QString ledger;
  std::string startUp;
};

Arguments readArguments() {
  Arguments arguments;
  for (const QString& argument : QApplication::arguments().mid(1)) {
    if (argument.startsWith(QLatin1String("-ERP"), Qt::CaseInsensitive)) {
      arguments.startUp = fromQt(argument);
    } else {
      arguments.ledger = argument;
    }
  }
  return arguments;
}

}  // namespace

int main(int argc, char** argv) {
  tz::system::openClosedStandardStreams();
  tz::system::failOnBrokenWrites();
  (void)tz::system::takeVariable("TZ_PASSWORD");  // the command line's; no program that is opened from here learns it
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("辅助核算"));
  QApplication::setQuitOnLastWindowClosed(false);
  tz::installFonts();
  tz::installLanguage();
  Host host;
  tz::applyTheme(host.Settings().Theme());
  const Arguments arguments = readArguments();
  tz::g_lpArgument = arguments.startUp;
  if (!host.Start(arguments.ledger)) return 0;
  return QApplication::exec();
}
