// Wrong use in the user's words: what is wrong and where help is.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tz::cli {

[[nodiscard]] std::string explain(const CLI::ParseError& error, const CLI::App& app);

}  // namespace tz::cli
