// Texts that a spreadsheet would compute when it reads them from a csv file.
#pragma once

#include <string_view>

namespace tz {

// True for a text that begins with a formula's sign, in its wide form too, and goes on behind it. Blanks, line breaks
// and marks without shape before the sign do not count: spreadsheets leave them out.
[[nodiscard]] bool looksLikeFormula(std::string_view text);

}  // namespace tz
