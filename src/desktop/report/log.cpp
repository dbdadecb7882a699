#include "desktop/report/log.h"

#include <spdlog/spdlog.h>

#include "core/data/address.h"
#include "core/output/display_text.h"

namespace tz {

void logFailure(std::string_view where, std::string_view what) {
  spdlog::error("{}: {}", shownLine(withoutPasswords(where)), shownLine(withoutPasswords(what)));
}

void logAccess(const AccessEvent& event) {
  const auto who = shownLine(event.who);
  const auto what = shownLine(withoutPasswords(event.what));
  switch (event.kind) {
    case AccessEvent::Kind::loggedOn:
      return spdlog::info("登录：{}，{}", who, what);
    case AccessEvent::Kind::logonRefused:
      return spdlog::warn("登录被拒绝：{}，{}", who, what);
    case AccessEvent::Kind::rightRefused:
      return spdlog::warn("没有权限：{}，{}", who, what);
  }
}

}  // namespace tz
