// Who works with a ledger and what he may do. A ledger without operators needs no logon: everything is granted.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "data/qncw_db.h"

namespace tz {

struct Operator {
  std::string name;
  bool everyRight = false;
  std::set<int> rights;

  [[nodiscard]] bool may(int right) const { return everyRight || rights.contains(right); }
};

[[nodiscard]] bool needsLogon(const CQnCwDB& db);
// The operator of that name and password; nothing when either is wrong.
[[nodiscard]] std::optional<Operator> logOn(const CQnCwDB& db, std::string_view name, const std::string& password);
// What somebody is who need not log on.
[[nodiscard]] Operator everybody();

// The rights check in front of every report command: true when the operator may do what the number stands for. The
// second argument is 1 for every command; the name is the report's, for the log.
class CCheckAuth {
 public:
  CCheckAuth(const Operator& who, int right, int /*always1*/, std::string_view /*reportName*/)
      : granted_(who.may(right)) {}
  explicit operator bool() const { return granted_; }

 private:
  bool granted_;
};

}  // namespace tz
