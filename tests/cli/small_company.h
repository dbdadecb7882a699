// A small ledger for tests of the command line, and the report that they ask of it.
#pragma once

#include <string>
#include <vector>

#include "support/run_program.h"
#include "support/test_ledger.h"

namespace tz::test {

// One account, one department, one person, two vouchers; `lines` more on request.
void fillSmallCompany(Connection& keeper, int lines = 0);

// The words that ask for the person three-column detail ledger of that person, with further arguments.
[[nodiscard]] std::vector<std::string> smallReportWords(const std::string& address,
                                                        const std::vector<std::string>& more = {});
// That report.
[[nodiscard]] ProgramRun smallReport(const std::string& address, const std::vector<std::string>& more = {},
                                     const std::vector<std::string>& settings = {});

[[nodiscard]] std::string fileBytes(const std::string& path);
// The names in a folder, in order.
[[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder);

}  // namespace tz::test
