#include "cli/refuse.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <span>

#include "core/output/display_text.h"

namespace tz::cli {

Status refuse(const Refusal& refusal) {
  constexpr std::size_t most = 20;
  std::fprintf(stderr, "%s\n", shownText(refusal.text).c_str());
  if (!refusal.offered.empty()) {
    const auto shown = std::span(refusal.offered).first(std::min(most, refusal.offered.size()));
    std::fprintf(stderr, "可用：%s%s\n", shownText(fmt::format("{}", fmt::join(shown, "、"))).c_str(),
                 refusal.offered.size() > most ? "……" : "");
  }
  return refusal.ledgerNotOpen ? Status::failed : Status::refused;
}

Status refuseRight(const Operator& who, int right, std::string_view rightName) {
  complain(fmt::format("操作员 {} 没有“{}”的权限（{} 号）", who.name, rightName, right));
  return Status::noRight;
}

}  // namespace tz::cli
