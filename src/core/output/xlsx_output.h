// A report as a workbook at a path, for CGridToFile.
#pragma once

#include <string>

#include "core/output/grid_to_file.h"

namespace tz {

struct XlsxOptions {
  std::int64_t rowsPerSheet = 1'048'576;  // head and header included; what a sheet can hold
  FileProgress progress;
};

// False when the progress asked to stop; what stands at the path then is no workbook. Throws OutputError.
[[nodiscard]] bool writeXlsx(const ComputedReport& report, const std::string& path, const XlsxOptions& options);

}  // namespace tz
