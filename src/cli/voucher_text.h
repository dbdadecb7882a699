// A voucher as it stands on a terminal.
#pragma once

#include <string>

#include "core/voucher/voucher.h"

namespace tz::cli {

// With `colour` red entries are red.
[[nodiscard]] std::string voucherText(const Voucher& voucher, bool colour);

}  // namespace tz::cli
