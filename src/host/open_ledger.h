// The ledger that the desktop works with: opening it sets the globals that report windows read.
#pragma once

#include <QString>

#include "data/qncw_db.h"

namespace tz {

class OpenLedger {
 public:
  // Opens a file or server address for reports. Throws DbError.
  explicit OpenLedger(const QString& address);
  OpenLedger(const OpenLedger&) = delete;
  OpenLedger& operator=(const OpenLedger&) = delete;
  ~OpenLedger();

  [[nodiscard]] const CQnCwDB& Database() const { return db_; }
  // The account set's name.
  [[nodiscard]] QString Name() const { return name_; }

 private:
  CQnCwDB db_{Access::report};
  QString name_;
};

// A server address without its password.
[[nodiscard]] QString shownAddress(const QString& address);

}  // namespace tz
