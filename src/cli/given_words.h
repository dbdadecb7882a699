// A command line as it was typed, word by word, read by the same rules as the parser's but without its judgement: which
// option takes which value, and which words stand at a place.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tz::cli {

struct GivenWord {
  const CLI::App* command;              // the subcommand that it belongs to
  const CLI::Option* option = nullptr;  // null for a place, and for an option that the command does not know
  std::string name = {};                // of an option, with its dashes; empty for a place
  std::optional<std::string> value = {};
};

[[nodiscard]] std::vector<GivenWord> givenWords(const CLI::App& app, std::span<const std::string> words);

// The report whose number stands behind "report", so that its conditions become the options; 0 when there is none. A
// value of an option is never taken for it.
[[nodiscard]] int namedReport(const CLI::App& app, std::span<const std::string> words);

// Throws WrongUse for what no option takes: an empty value, a value for a flag, a second value where there is one; and
// for an option of nobody before the subcommand.
void refuseWrongValues(const std::vector<GivenWord>& given);

}  // namespace tz::cli
