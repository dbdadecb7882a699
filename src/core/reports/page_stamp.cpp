#include "core/reports/page_stamp.h"

#include "core/platform/local_time.h"

namespace tz {

PageStamp pageStamp(const Operator& who, std::chrono::sys_seconds now) {
  return {.printedBy = who.name, .printedAt = platform::localTimeText(now)};
}

}  // namespace tz
