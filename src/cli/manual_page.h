// The manual page tzassistant(1), written from the parser's commands and options, the catalogue and the conditions.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tz::cli {

// In the form that man reads, UTF-8.
[[nodiscard]] std::string manualPage(const CLI::App& app);

}  // namespace tz::cli
