// What must be there before the project statistics (10224) open; their record takes this when it comes.
#pragma once

#include <array>

#include "core/reports/launch_check.h"

namespace tz {

[[nodiscard]] bool hasProjectClass(const CQnCwDB& db);

inline constexpr std::array statisticsChecks = {LaunchCheck{hasProjectClass, messages::defineProjectClassFirst}};

}  // namespace tz
