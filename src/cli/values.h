// Checks of option values whose complaints are this program's own words.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

namespace tz::cli {

// The choices as help shows them in the place of a value: "text|csv|json".
[[nodiscard]] std::string choiceNames(const std::vector<std::string>& choices);
// Lets the option take one of these words only.
void letChoose(CLI::Option& option, const std::vector<std::string>& choices);
// Lets the option take a whole number of this range only; both ends belong to it.
void letCount(CLI::Option& option, std::int64_t least, std::int64_t most);

}  // namespace tz::cli
