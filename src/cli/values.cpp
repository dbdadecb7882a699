#include "cli/values.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace tz::cli {

std::string choiceNames(const std::vector<std::string>& choices) { return fmt::to_string(fmt::join(choices, "|")); }

void letChoose(CLI::Option& option, const std::vector<std::string>& choices) {
  const auto complaint = [choices](const std::string& given) {
    const bool offered = std::ranges::find(choices, given) != choices.end();
    return offered ? std::string() : fmt::format("“{}”不在可选项中：{}", given, fmt::join(choices, "、"));
  };
  option.type_name(choiceNames(choices))->check(complaint);
}

void letCount(CLI::Option& option, std::int64_t least, std::int64_t most) {
  const auto complaint = [least, most](const std::string& given) {
    std::int64_t number = 0;
    const auto* const end = given.data() + given.size();
    const auto [stop, error] = std::from_chars(given.data(), end, number);
    // A leading zero would make another number of it in the parser's hands.
    const bool whole = error == std::errc{} && stop == end && given == std::to_string(number);
    if (whole && number >= least && number <= most) return std::string();
    return fmt::format("应为 {} 至 {} 的整数，不是“{}”", least, most, given);
  };
  option.check(complaint);
}

}  // namespace tz::cli
