// The toolbars of the balance tables and general ledgers.
#pragma once

#include <array>

#include "core/reports/report_definition.h"

namespace tz {

inline constexpr std::array balanceToolbar = {
    WindowCommand::print,     WindowCommand::preview,   WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,     WindowCommand::separator, WindowCommand::find,       WindowCommand::detail,
    WindowCommand::separator, WindowCommand::help,      WindowCommand::close,
};

// Of the units' tables over several units: a wider gap before the help.
inline constexpr std::array unitTableToolbar = {
    WindowCommand::print,     WindowCommand::preview,   WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,     WindowCommand::separator, WindowCommand::find,       WindowCommand::detail,
    WindowCommand::separator, WindowCommand::separator, WindowCommand::help,       WindowCommand::close,
};
// Of tables in which nothing is looked for by a member's name.
inline constexpr std::array toolbarWithoutFind = {
    WindowCommand::print,     WindowCommand::preview,   WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,     WindowCommand::separator, WindowCommand::detail,     WindowCommand::separator,
    WindowCommand::separator, WindowCommand::help,      WindowCommand::close,
};

// Of projects, with the toggles of rows.
inline constexpr std::array groupToolbar = {
    WindowCommand::print,  WindowCommand::preview,   WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,  WindowCommand::find,      WindowCommand::separator,  WindowCommand::groupRows,
    WindowCommand::detail, WindowCommand::separator, WindowCommand::help,       WindowCommand::close,
};
inline constexpr std::array groupAndZeroToolbar = {
    WindowCommand::print,     WindowCommand::preview,  WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query,     WindowCommand::find,     WindowCommand::separator,  WindowCommand::detail,
    WindowCommand::groupRows, WindowCommand::zeroRows, WindowCommand::separator,  WindowCommand::help,
    WindowCommand::close,
};

}  // namespace tz
