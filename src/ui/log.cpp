#include "ui/log.h"

#include <spdlog/spdlog.h>

#include "data/address.h"
#include "grid/display_text.h"

namespace tz {

void logFailure(std::string_view where, std::string_view what) {
  spdlog::error("{}: {}", shownLine(withoutPasswords(where)), shownLine(withoutPasswords(what)));
}

}  // namespace tz
