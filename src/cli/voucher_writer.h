// Writes a voucher: as text, or as JSON with every figure at full precision.
#pragma once

#include "cli/report_writer.h"
#include "core/voucher/voucher.h"

namespace tz::cli {

[[nodiscard]] std::vector<std::string> voucherForms();
// Throws WrongUse for a form that vouchers do not have, OutputError when it cannot be written.
void writeVoucher(const Voucher& voucher, const OutputOptions& options);

}  // namespace tz::cli
