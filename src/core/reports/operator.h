// Who works with a ledger and what he may do. A ledger without operators needs no logon: everything is granted.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/data/qncw_db.h"

namespace tz {

struct Operator {
  Id id = 0;  // in zOperator; 0 for whoever need not log on
  std::string name;
  bool everyRight = false;
  std::set<int> rights;

  [[nodiscard]] bool may(int right) const { return everyRight || rights.contains(right); }
  bool operator==(const Operator&) const = default;
};

[[nodiscard]] bool needsLogon(const CQnCwDB& db);

// The operator's hash in the ledger is none, or would take all memory or hours; the text says so.
struct UnacceptableHash : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a password has to answer. For an unknown name it is somebody else's hash, so that the answer takes as long.
struct LogonQuestion {
  Operator who;
  std::string hash;
  bool mayLogOn = false;
};

// Throws UnacceptableHash.
[[nodiscard]] LogonQuestion logonQuestion(const CQnCwDB& db, std::string_view name);
// The operator; nothing when name or password is wrong. Takes a while, needs no ledger, and may run on any thread.
[[nodiscard]] std::optional<Operator> logOn(const LogonQuestion& question, const std::string& password);
// What somebody is who need not log on.
[[nodiscard]] Operator everybody();
// Somebody who has logged on with the name and rights that the ledger gives him now: no rights once he is gone, and
// none for whoever needed no logon in a ledger that has got operators meanwhile.
[[nodiscard]] Operator withRightsOfNow(const CQnCwDB& db, const Operator& who);

// Who was let in and who was not, for whoever looks after the ledger.
struct AccessEvent {
  enum class Kind { loggedOn, logonRefused, rightRefused };
  Kind kind;
  std::string who;
  std::string what;  // the ledger, or the report with its right
};
// Told of every such event on the thread where it happens; empty: nobody is told.
using AccessLog = std::function<void(const AccessEvent&)>;
[[nodiscard]] AccessLog& accessLog();
void tellAccess(const AccessEvent& event);

// The rights check in front of every report command: true when the operator may do what the number stands for. The
// second argument is 1 for every command; the name is the report's, for the log, which is told of a refusal.
class CCheckAuth {
 public:
  CCheckAuth(const Operator& who, int right, int /*always1*/, std::string_view reportName);
  explicit operator bool() const { return granted_; }

 private:
  bool granted_;
};

}  // namespace tz
