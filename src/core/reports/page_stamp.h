// By whom and when a report is printed.
#pragma once

#include <chrono>

#include "core/output/page_head.h"
#include "core/reports/operator.h"

namespace tz {

[[nodiscard]] PageStamp pageStamp(const Operator& who, std::chrono::sys_seconds now);

}  // namespace tz
