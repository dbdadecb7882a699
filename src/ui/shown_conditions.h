// The conditions of a report that have no combo above its grid, as one line: project, range of projects, accounts
// picked, method of analysis, unposted vouchers.
#pragma once

#include <string>

#include "reports/dialog_spec.h"

namespace tz {

// "项目: 江淮数控车床    含未记帐凭证"; empty when everything has a combo.
[[nodiscard]] std::string shownConditions(const DialogSpec& dialog, const Conditions& conditions);

}  // namespace tz
