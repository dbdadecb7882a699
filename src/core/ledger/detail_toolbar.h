// The toolbar that all detail ledgers have.
#pragma once

#include <array>

#include "core/reports/report_definition.h"

namespace tz {

inline constexpr std::array detailToolbar = {
    WindowCommand::print, WindowCommand::preview,   WindowCommand::exportFile, WindowCommand::separator,
    WindowCommand::query, WindowCommand::separator, WindowCommand::detail,     WindowCommand::separator,
    WindowCommand::help,  WindowCommand::close,
};

}  // namespace tz
