#include "core/ledger/definitions.h"

#include <algorithm>

namespace tz {

const DetailMember* detailMember(int command) {
  for (const auto reports : {personDetails(), unitDetails(), departmentDetails(), projectDetails()}) {
    const auto found =
        std::ranges::find(reports, command, [](const DetailReport& detail) { return detail.report.command; });
    if (found != reports.end()) return found->member;
  }
  return nullptr;
}

}  // namespace tz
