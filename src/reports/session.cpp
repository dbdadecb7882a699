#include "reports/session.h"

namespace tz {

Date defaultLogonDate(const CQnCwDB& db) {
  const auto last = db.Current().query("SELECT dtBill FROM RegMain ORDER BY dtBill DESC LIMIT 1");
  if (last->next()) return last->date(0);
  const auto set = db.Current().query("SELECT nYear FROM zAccountM ORDER BY lId LIMIT 1");
  if (!set->next()) throw DbError(DbError::Kind::notALedger, "the ledger names no account year (zAccountM is empty)");
  return {static_cast<std::int16_t>(set->integer(0)), 1, 1};
}

}  // namespace tz
