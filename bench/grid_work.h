// A grid of any length with the cells that bare_xlsx.c writes, each row with what it is about.
#pragma once

#include <cstdint>
#include <string>

#include "core/output/report_output.h"

namespace tz::bench {

[[nodiscard]] ComputedReport makeReport(std::int64_t rows);
// The same in blocks of a hundred rows: heading, months of ten rows with their totals, subtotal.
[[nodiscard]] ComputedReport makeBlocks(std::int64_t rows);
// Writes it as a workbook.
void writeWorkbook(std::int64_t rows, const std::string& file);

}  // namespace tz::bench
