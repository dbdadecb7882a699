#include "desktop/host/host.h"

#include <QGuiApplication>

#include "desktop/frame/message_box.h"
#include "desktop/host/logon_dialog.h"
#include "desktop/host/start_window.h"
#include "desktop/report/log.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

std::unique_ptr<OpenLedger> openLedgerAt(const QString& address) {
  const WaitCursor waiting;
  return std::make_unique<OpenLedger>(address);
}

}  // namespace

bool Host::Start(const QString& address) {
  const Failure failure = address.isEmpty() ? Failure{} : Choose(address, nullptr);
  if (chosen_ == nullptr && !Ask(nullptr, address, failure)) return false;
  ShowChosen();
  return true;
}

void Host::OpenAnother() {
  if (!Ask(desktop_->Navigator(), {}, {})) return;
  if (desktop_->MayLeave(QStringLiteral("打开“%1”").arg(chosen_->ledger->Name()))) {
    ShowChosen();
  } else {
    chosen_.reset();
  }
}

void Host::LogOnAgain() {
  const Failure failure = Choose(address_, desktop_->Navigator());
  if (chosen_ == nullptr) {
    if (failure.kind) AfxMessageBox(desktop_->Navigator(), fromQt(failure.text));
    return;
  }
  if (desktop_->MayLeave(QStringLiteral("重新登录"))) {
    ShowChosen();
  } else {
    chosen_.reset();
  }
}

bool Host::Ask(QWidget* parent, const QString& failed, const Failure& failure) {
  StartWindow start(
      settings_, [this](const QString& address, QWidget* window) { return Choose(address, window); }, parent);
  if (!failure.text.isEmpty()) start.ShowFailure(failed, failure);
  return start.exec() == QDialog::Accepted;
}

Failure Host::Choose(const QString& address, QWidget* window) {
  try {
    Chosen chosen{address, openLedgerAt(address), everybody(), {}};
    chosen.logon = chosen.ledger->ProposedDate();
    if (needsLogon(chosen.ledger->Database())) {
      LogonDialog logon(*chosen.ledger, settings_.LastOperator(chosen.ledger->Address()), window);
      if (logon.exec() != QDialog::Accepted) return {QStringLiteral("没有登录，帐套没有打开")};
      settings_.SetLastOperator(chosen.ledger->Address(), toQt(logon.Who().name));
      chosen.who = logon.Who();
      chosen.logon = logon.LogonDate();
    }
    chosen_ = std::make_unique<Chosen>(std::move(chosen));
  } catch (const DbError& error) {
    logFailure(fromQt(shownAddress(address)), error.what());
    return failureOf(error);
  }
  const OpenLedger& opened = *chosen_->ledger;
  settings_.RememberLedger(address, {opened.Name(), opened.AccountYear().value_or(0)});
  if (isServerAddress(fromQt(address))) settings_.SetLastServer(address);
  return {};
}

void Host::ShowChosen() {
  if (desktop_ != nullptr) desktop_->Close();
  desktop_.reset();
  chosen_->ledger->MakeCurrent(chosen_->logon);
  address_ = chosen_->address;
  ledger_ = std::move(chosen_->ledger);
  desktop_ = std::make_unique<Desktop>(settings_, *ledger_, std::move(chosen_->who));
  chosen_.reset();
  // The windows that end, or ask for another ledger, are still on the stack: what follows waits for the event loop.
  connect(desktop_.get(), &Desktop::finished, this, &Host::finished, Qt::QueuedConnection);
  connect(desktop_.get(), &Desktop::anotherWanted, this, &Host::OpenAnother, Qt::QueuedConnection);
  connect(desktop_.get(), &Desktop::logonWanted, this, &Host::LogOnAgain, Qt::QueuedConnection);
  desktop_->Show();
}

}  // namespace tz
