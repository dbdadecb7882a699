#include "host/open_ledger.h"

#include <QFileInfo>
#include <QUrl>

#include "reports/session.h"
#include "suite/globals.h"
#include "suite/qt_text.h"

namespace tz {

OpenLedger::OpenLedger(const QString& address) {
  const std::string name = fromQt(address);
  db_.Open(name);
  g_tmLogonTime = defaultLogonDate(db_);
  const auto set = db_.Current().query("SELECT lId, sName FROM zAccountM ORDER BY lId LIMIT 1");
  if (set->next()) {
    g_lAccountId = set->integer(0);
    name_ = toQt(set->text(1));
  }
  if (name_.isEmpty()) name_ = QFileInfo(address).completeBaseName();
  g_pDB = &db_;
  g_lpszQnZwDBName = name;
}

OpenLedger::~OpenLedger() {
  g_pDB = nullptr;
  g_lpszQnZwDBName.clear();
}

QString shownAddress(const QString& address) {
  if (!isServerAddress(fromQt(address))) return address;
  return QUrl(address).toDisplayString(QUrl::RemovePassword);
}

}  // namespace tz
