// The subcommands of tzassistant. Each adds itself to the parser and runs when it was chosen; what it returns is the
// exit status of the program.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <string>

namespace tz::cli {

enum class Status { done = 0, refused = 1, wrongUse = 2, failed = 3, noRight = 4 };

// The work of the subcommand that was parsed; main runs it.
using Work = std::function<Status()>;

void addReportsCommand(CLI::App& app, Work& work);
// The options of the report command depend on the report: what is returned adds them for its number, 0 for none.
[[nodiscard]] std::function<void(int reportId)> addReportCommand(CLI::App& app, Work& work);
void addFindCommand(CLI::App& app, Work& work);
void addLedgerCommand(CLI::App& app, Work& work);
void addLogCommand(CLI::App& app, Work& work);
void addOperatorCommand(CLI::App& app, Work& work);
void addClearCommand(CLI::App& app, Work& work);
void addVoucherCommand(CLI::App& app, Work& work);
void addOpenCommand(CLI::App& app, Work& work);
void addCompletionCommand(CLI::App& app, Work& work);

// Text on standard output. Throws OutputError when it cannot be written; a reader that has gone is no failure.
void print(const std::string& text);
// One line on standard error, behind the program's name.
void complain(const std::string& message);

}  // namespace tz::cli
