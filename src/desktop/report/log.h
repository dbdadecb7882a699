// The program's log: what failed without a message box; who logged on, and who was refused.
#pragma once

#include <string_view>

#include "core/reports/operator.h"

namespace tz {

void logFailure(std::string_view where, std::string_view what);
void logAccess(const AccessEvent& event);

}  // namespace tz
