#include "cli/report_writer.h"

#include <cstdlib>

#include "cli/pages.h"
#include "core/output/display_text.h"
#include "core/output/grid_to_file.h"
#include "core/platform/output_file.h"
#include "core/platform/terminal.h"
#include "core/reports/parameter.h"

namespace tz::cli {
namespace {

CsvCode codeOf(const OutputOptions& options) {
  return options.encoding == "gb18030" ? CsvCode::gb18030 : CsvCode::utf8;
}

// The forms for programs hold texts as they are, which must not command a terminal either. Their blocks end between
// records.
Producer forTerminal(const Producer& produce) {
  return [produce](const Sink& sink) {
    return produce([&sink](std::string_view block) { return sink(shownText(block)); });
  };
}

}  // namespace

bool wantsColour(const OutputOptions& options) {
  return options.file.empty() && platform::isTerminal() && std::getenv("NO_COLOR") == nullptr;
}

void writeTo(const OutputOptions& options, const Producer& produce) {
  if (!options.file.empty()) {
    writeFile(options.file, produce);
  } else if (options.form == "text") {
    platform::showOutput(produce);
  } else {
    platform::writeToStandardOutput(platform::isTerminal() ? forTerminal(produce) : produce);
  }
}

std::vector<std::string> outputForms() { return {"text", "csv", "json", "xlsx", "pdf"}; }

void makeSureOfOutput(const OutputOptions& options) {
  const bool needsFile = options.form == "xlsx" || options.form == "pdf";
  if (needsFile && options.file.empty()) throw WrongUse("--as " + options.form + " 需要用 -o 指定文件");
  if (options.form == "pdf") (void)pageWriter();
}

void writeReport(const ComputedReport& report, const OutputOptions& options, const PageStamp& stamp) {
  if (options.form == "pdf") return pageWriter()(report, stamp, options.file);
  if (options.form == "xlsx") {
    (void)CGridToFile(report).CreateFile(options.file, FileForm::xlsx);
    return;
  }
  writeTo(options, [&](const Sink& sink) {
    if (options.form == "json") return writeJson(report, sink);
    if (options.form == "csv") return writeCsv(report, codeOf(options), sink);
    return writeText(report, {.colour = wantsColour(options)}, sink);
  });
}

}  // namespace tz::cli
