#include "reports/operator.h"

#include <sodium.h>
#include <stdexcept>

namespace tz {

bool needsLogon(const CQnCwDB& db) { return db.Exists("zOperator", "1 = 1"); }

std::optional<Operator> logOn(const CQnCwDB& db, std::string_view name, const std::string& password) {
  if (sodium_init() < 0) throw std::runtime_error("the password library does not start");
  const auto found = db.zOperator_GetInfo(Sql("sName = ?", name));
  if (found.empty()) return std::nullopt;
  const auto& record = found.front();
  if (crypto_pwhash_str_verify(record.sPassHash.c_str(), password.data(), password.size()) != 0) return std::nullopt;
  Operator who{record.sName, record.bAll != 0, {}};
  for (const auto& right : db.zRight_GetInfo(Sql("lOperatorId = ?", record.lId))) who.rights.insert(right.nRight);
  return who;
}

Operator everybody() { return {.name = {}, .everyRight = true, .rights = {}}; }

}  // namespace tz
