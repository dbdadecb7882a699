// The examples in the help of every command: lines that work as they stand on a ledger of the sample company.
#pragma once

#include <CLI/CLI.hpp>

namespace tz::cli {

// Adds them to the footers of the program and its subcommands; those of the report command are of the report that is
// named, 0 when none is.
void addExamples(CLI::App& app, int reportId);
// Those of the report command alone.
void addReportExamples(CLI::App& app, int reportId);

}  // namespace tz::cli
