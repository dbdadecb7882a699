#include "core/output/grid_to_file.h"

#include "core/output/xlsx_output.h"
#include "core/platform/output_file.h"

namespace tz {

bool CGridToFile::CreateFile(const std::string& path, FileForm form) const {
  if (form != FileForm::xlsx) {
    const CsvCode code = form == FileForm::csv ? CsvCode::utf8 : CsvCode::gb18030;
    return writeFile(path, [&](const Sink& sink) { return writeCsv(report_, code, sink, progress_); });
  }
  OutputFile file(path);
  if (!writeXlsx(report_, file.WorkPath(), {.progress = progress_})) return false;
  file.Commit();
  return true;
}

}  // namespace tz
