// The names that may stand on a line, for completion: those of a condition only from a ledger file that is there and
// needs no logon, since a shell completes without asking anybody. Whatever goes wrong answers with none.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/reports/parameter.h"

namespace tz::cli {

// What is on the line already, by option ("--ledger") or place ("ID").
using GivenValues = std::map<std::string, std::string>;

// What the dialog of the report on the line offers for a condition, each with what stands beside it in the archive.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> ledgerNames(const Parameter& condition,
                                                                           const GivenValues& given);

// Who may log on to the ledger, as the desktop's logon lists them.
[[nodiscard]] std::vector<std::string> operatorNames(const GivenValues& given);

}  // namespace tz::cli
