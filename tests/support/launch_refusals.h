// A ledger on which what must be there before a report opens is tried.
#pragma once

#include <span>
#include <string>

#include "core/reports/launch_check.h"
#include "support/test_ledger.h"

namespace tz::test {

class LaunchRefusals : public DatabaseTest {
 protected:
  // What the checks refuse with; nothing where they pass.
  [[nodiscard]] std::string refusal(std::span<const LaunchCheck> checks) const {
    CQnCwDB db(Access::read);
    db.Open(ledger_.address());
    const auto refused = launchRefusal(checks, db);
    return refused ? std::string(refused->text) : "";
  }

  TestLedger ledger_{GetParam()};
};

}  // namespace tz::test
