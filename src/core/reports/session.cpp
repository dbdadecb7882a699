#include "core/reports/session.h"

namespace tz {
namespace {

Date firstDayOf(int year) { return {static_cast<std::int16_t>(year), 1, 1}; }
Date lastDayOf(int year) { return {static_cast<std::int16_t>(year), 12, 31}; }

std::optional<Date> lastPosted(const CQnCwDB& db, const Sql& where) {
  const auto last =
      db.Current().query(Sql("SELECT dtBill FROM RegMain WHERE ") + where + Sql(" ORDER BY dtBill DESC LIMIT 1"));
  if (!last->next()) return std::nullopt;
  return last->date(0);
}

}  // namespace

AccountSet accountSet(const CQnCwDB& db) {
  const auto set = db.Current().query("SELECT sName, nYear FROM zAccountM ORDER BY lId LIMIT 1");
  if (!set->next()) return {};
  return {std::string(set->text(0)), static_cast<int>(set->integer(1))};
}

Date defaultLogonDate(const CQnCwDB& db) {
  const auto year = accountSet(db).year;
  if (year && *year > 0) {
    const auto last = lastPosted(db, Sql("dtBill BETWEEN ? AND ?", firstDayOf(*year), lastDayOf(*year)));
    if (last) return *last;
  }
  // A ledger that names another year than that of its vouchers says so in its reports.
  if (const auto last = lastPosted(db, "byPeroid <> 0")) return *last;
  if (!year) throw DbError(DbError::Kind::notALedger, "the ledger names no account year (zAccountM is empty)");
  return firstDayOf(*year);
}

}  // namespace tz
