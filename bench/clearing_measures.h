// The measures of two-clearing: one party with very many open lines.
#pragma once

#include <filesystem>
#include <string>

namespace tz::bench {

// `server` is the address of a server's maintenance database, or empty.
void measureClearing(const std::filesystem::path& folder, const std::string& program, const std::string& bareScan,
                     const std::string& server);

}  // namespace tz::bench
