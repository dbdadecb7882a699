// Failures in the user's words: what is wrong and what to do.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "data/connection.h"

namespace tz::cli {

[[nodiscard]] std::string explain(const DbError& error);
[[nodiscard]] std::string explain(const CLI::ParseError& error, const CLI::App& app);

}  // namespace tz::cli
