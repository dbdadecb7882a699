// The ledgers and the desktop over them, one after the other. Another ledger is opened, and its operator logged on,
// before the one on the screen closes: whoever gives up finds everything as it was.
#pragma once

#include <QObject>
#include <memory>

#include "desktop/host/desktop.h"
#include "desktop/host/failure_note.h"

namespace tz {

class Host : public QObject {
  Q_OBJECT

 public:
  // Shows a ledger; without an address, or where it cannot be opened, what the start window opens. False when the
  // person gave up.
  bool Start(const QString& address);
  // Lets the person choose another ledger. What is open stays when nothing comes of it.
  void OpenAnother();
  // Lets somebody else log on to the ledger on the screen. It stays when nothing comes of it.
  void LogOnAgain();

  [[nodiscard]] HostSettings& Settings() { return settings_; }
  // Null before a ledger is open.
  [[nodiscard]] Desktop* Current() const { return desktop_.get(); }

 signals:
  // The desktop was closed.
  void finished();

 private:
  // A ledger with its operator, about to be shown.
  struct Chosen {
    QString address;  // as it was given, with a password that stands in it
    std::unique_ptr<OpenLedger> ledger;
    Operator who;
    Date logon;
  };

  // Opens a ledger into `chosen_` and logs its operator on.
  Failure Choose(const QString& address, QWidget* window);
  // Asks in the start window. True when a ledger was chosen.
  bool Ask(QWidget* parent, const QString& failed, const Failure& failure);
  // The one on the screen gives way to the one that was chosen.
  void ShowChosen();

  HostSettings settings_;
  std::unique_ptr<Chosen> chosen_;
  QString address_;
  std::unique_ptr<OpenLedger> ledger_;
  std::unique_ptr<Desktop> desktop_;
};

}  // namespace tz
