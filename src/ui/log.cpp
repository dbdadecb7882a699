#include "ui/log.h"

#include <spdlog/spdlog.h>

namespace tz {

void logFailure(std::string_view where, std::string_view what) { spdlog::error("{}: {}", where, what); }

}  // namespace tz
