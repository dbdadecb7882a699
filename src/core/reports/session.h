// Who asks, of which ledger, as of which date, and how to reach the person: what every computation is given. The window
// answers by message box and busy box, the command line by its options, tests by script.
//
// Nothing is asked inside a transaction: others wait for it, and a person takes his time.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/data/qncw_db.h"
#include "core/reports/operator.h"
#include "core/reports/question.h"

namespace tz {

struct Session {
  CQnCwDB& db;
  std::string ledger;  // name under which the ledger is open in db
  Date logon;          // its year is the account year of all period texts, its month the default month

  Operator who = everybody();

  std::function<std::chrono::sys_seconds()> now = [] {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  };

  Ask ask = [](const Question&) { return false; };
  // How many of how many steps are done; 0 of 0 when unknown.
  std::function<void(std::int64_t done, std::int64_t of)> progress = [](std::int64_t, std::int64_t) {};
  std::function<bool()> cancelled = [] { return false; };
};

// Whose books these are and of which year, in which a logon date lies; neither in a ledger that names none.
struct AccountSet {
  std::string company;
  std::optional<int> year;
};
[[nodiscard]] AccountSet accountSet(const CQnCwDB& db);
// The date of the account year's last posted voucher, or of the last one of another year that is no opening; the first
// day of the account year where there is neither, as in a ledger that holds openings of earlier years alone.
[[nodiscard]] Date defaultLogonDate(const CQnCwDB& db);

}  // namespace tz
