// How a sheet of a workbook is called.
#pragma once

#include <string>
#include <string_view>

namespace tz {

// The title as spreadsheet programs take a sheet's name: at most 31 UTF-16 units, without the signs that they refuse.
// Sheets from the second on bear their number behind it.
[[nodiscard]] std::string sheetName(std::string_view title, int number);

}  // namespace tz
