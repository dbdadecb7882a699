// The measures of two-clearing: one party with very many open lines.
#pragma once

#include <filesystem>
#include <string>

namespace tz::bench {

void measureClearing(const std::filesystem::path& folder, const std::string& program, const std::string& bareScan);

}  // namespace tz::bench
