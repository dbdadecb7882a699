#include "desktop/host/open_ledger.h"

#include <QFileInfo>

#include "core/reports/session.h"
#include "desktop/frame/globals.h"
#include "desktop/theme/qt_text.h"

namespace tz {

OpenLedger::OpenLedger(const QString& address) : address_(fromQt(address)) {
  db_.Open(address_);
  proposed_ = defaultLogonDate(db_);
  year_ = accountSet(db_).year;
  const auto set = db_.Current().query("SELECT lId, sName FROM zAccountM ORDER BY lId LIMIT 1");
  if (set->next()) {
    accountSet_ = set->integer(0);
    name_ = toQt(set->text(1));
  }
  if (name_.isEmpty()) name_ = QFileInfo(shownAddress(address)).completeBaseName();
}

QString OpenLedger::Address() const {
  const QString address = toQt(address_);
  return isServerAddress(address_) ? shownAddress(address) : QFileInfo(address).absoluteFilePath();
}

OpenLedger::~OpenLedger() {
  if (g_pDB != &db_) return;
  g_pDB = nullptr;
  g_lpszQnZwDBName.clear();
  g_lAccountId = 0;
}

void OpenLedger::MakeCurrent(Date logon) {
  g_pDB = &db_;
  g_lpszQnZwDBName = address_;
  g_lAccountId = accountSet_;
  g_tmLogonTime = logon;
}

QString shownAddress(const QString& address) {
  return isServerAddress(fromQt(address)) ? toQt(withoutPasswords(fromQt(address))) : address;
}

}  // namespace tz
