// Where a computed report goes: the terminal (through a pager), standard output or a file.
#pragma once

#include <string>
#include <vector>

#include "core/output/page_head.h"
#include "core/output/report_output.h"
#include "core/platform/sink.h"

namespace tz::cli {

struct OutputOptions {
  std::string form = "text";
  std::string encoding = "utf-8";  // of csv
  std::string file;                // empty = standard output
};

[[nodiscard]] std::vector<std::string> outputForms();
// Colours only where a person looks, and only if he does not object.
[[nodiscard]] bool wantsColour(const OutputOptions& options);
// Writes what is produced as text of any kind to where the options say. Throws OutputError when that fails.
void writeTo(const OutputOptions& options, const Producer& produce);
// To be called before anything is computed. Throws WrongUse when the form needs a file and has none.
void makeSureOfOutput(const OutputOptions& options);
// Throws OutputError when the output cannot be written; a file is then left as it was.
void writeReport(const ComputedReport& report, const OutputOptions& options, const PageStamp& stamp = {});

}  // namespace tz::cli
