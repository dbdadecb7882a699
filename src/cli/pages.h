// Pages are drawn by the windows' toolkit, which tzassistant starts without: it becomes tzassistant-pages, the same
// program with the toolkit in it.
#pragma once

#include <string>
#include <vector>

#include "core/output/page_head.h"

namespace tz::cli {

// Writes a report's pages into a file, whole or not at all. Throws OutputError.
using PageWriter = void (*)(const ComputedReport& report, const PageStamp& stamp, const std::string& file);
// Said by the program that can.
void offerPages(PageWriter writer);

// What this program was called with, to be called with again.
void rememberWords(const std::vector<std::string>& words);
// The writer, in the program that has it; any other becomes that one and does not return.
[[nodiscard]] PageWriter pageWriter();

}  // namespace tz::cli
