#include "core/reports/session.h"

namespace tz {
namespace {

Date firstDayOf(int year) { return {static_cast<std::int16_t>(year), 1, 1}; }
Date lastDayOf(int year) { return {static_cast<std::int16_t>(year), 12, 31}; }

}  // namespace

std::optional<int> accountYear(const CQnCwDB& db) {
  const auto set = db.Current().query("SELECT nYear FROM zAccountM ORDER BY lId LIMIT 1");
  if (!set->next()) return std::nullopt;
  return static_cast<int>(set->integer(0));
}

std::string companyName(const CQnCwDB& db) {
  const auto set = db.Current().query("SELECT sName FROM zAccountM ORDER BY lId LIMIT 1");
  return set->next() ? std::string(set->text(0)) : std::string();
}

Date defaultLogonDate(const CQnCwDB& db) {
  const auto year = accountYear(db);
  auto posted = Sql("SELECT dtBill FROM RegMain");
  if (year) posted += Sql(" WHERE dtBill BETWEEN ? AND ?", firstDayOf(*year), lastDayOf(*year));
  const auto last = db.Current().query(posted + Sql(" ORDER BY dtBill DESC LIMIT 1"));
  if (last->next()) return last->date(0);
  if (!year) throw DbError(DbError::Kind::notALedger, "the ledger names no account year (zAccountM is empty)");
  return firstDayOf(*year);
}

}  // namespace tz
