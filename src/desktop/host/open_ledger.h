// The ledger that the desktop works with. Opening one changes nothing for the windows of another; made current, it sets
// the globals that report windows read.
#pragma once

#include <QString>
#include <optional>

#include "core/data/qncw_db.h"

namespace tz {

class OpenLedger {
 public:
  // Opens a file or server address for reports. Throws DbError.
  explicit OpenLedger(const QString& address);
  OpenLedger(const OpenLedger&) = delete;
  OpenLedger& operator=(const OpenLedger&) = delete;
  // A ledger that is current leaves the globals empty.
  ~OpenLedger();

  // Makes this the ledger of all windows, as of a logon date.
  void MakeCurrent(Date logon);

  [[nodiscard]] const CQnCwDB& Database() const { return db_; }
  // One file or server always has the same, however it was named; without a password.
  [[nodiscard]] QString Address() const;
  // The account set's name.
  [[nodiscard]] QString Name() const { return name_; }
  // The logon date that is proposed.
  [[nodiscard]] Date ProposedDate() const { return proposed_; }
  // The year in which logon dates lie; nothing where the ledger does not tell.
  [[nodiscard]] std::optional<int> AccountYear() const { return year_; }

 private:
  CQnCwDB db_{Access::report};
  std::string address_;
  Id accountSet_ = 0;
  QString name_;
  Date proposed_;
  std::optional<int> year_;
};

// A server address without its password.
[[nodiscard]] QString shownAddress(const QString& address);

}  // namespace tz
