// The names that a condition may take in a ledger, for completion: only from a ledger file that is there and needs no
// logon, since a shell completes without asking anybody. Whatever goes wrong answers with none.
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

}  // namespace tz::cli
