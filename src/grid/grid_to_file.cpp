#include "grid/grid_to_file.h"

#include "grid/output_file.h"
#include "grid/xlsx_output.h"

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
