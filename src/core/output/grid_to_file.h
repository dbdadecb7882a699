// Reports as files for other programs.
//
// CSV is for spreadsheet programs in Chinese: UTF-8 with a byte order mark (or GB18030), CRLF, RFC 4180 quoting; title,
// warnings, subtitle, period, unit and conditions each on a line of their own, captions on two lines where columns have
// groups, figures at full precision, remarks below. Where rows can be coloured, one more column, "标记", says which
// are. A text that a spreadsheet would take for a formula gets an apostrophe before it, which shows but computes
// nothing; figures are never touched.
//
// XLSX has typed cells, a frozen header, a page setup and as many sheets as the rows need. Nothing but the grid is held
// in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/output/report_output.h"

namespace tz {

enum class CsvCode : std::uint8_t { utf8, gb18030 };
enum class FileForm : std::uint8_t { csv, csvGb18030, xlsx };

// Rows written so far and in all; false stops the writing.
using FileProgress = std::function<bool(std::int64_t done, std::int64_t of)>;

// False when the sink takes no more or the progress asks to stop.
bool writeCsv(const ComputedReport& report, CsvCode code, const Sink& sink, const FileProgress& progress = {});

class CGridToFile {
 public:
  explicit CGridToFile(const ComputedReport& report, FileProgress progress = {})
      : report_(report), progress_(std::move(progress)) {}

  // Writes the file whole or not at all. False when the progress asked to stop; failures throw OutputError.
  [[nodiscard]] bool CreateFile(const std::string& path, FileForm form) const;

 private:
  const ComputedReport& report_;
  FileProgress progress_;
};

}  // namespace tz
