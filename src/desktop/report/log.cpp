#include "desktop/report/log.h"

#include <spdlog/spdlog.h>

#include "core/data/address.h"
#include "core/output/display_text.h"

namespace tz {

void logFailure(std::string_view where, std::string_view what) {
  spdlog::error("{}: {}", shownLine(withoutPasswords(where)), shownLine(withoutPasswords(what)));
}

}  // namespace tz
