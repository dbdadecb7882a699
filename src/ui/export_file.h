// Exporting a report from its window: where to, in which form, and the writing itself, which the person may stop.
#pragma once

#include <QString>
#include <optional>

#include "grid/grid_to_file.h"

class QWidget;

namespace tz {

class LongWork;

struct ExportTarget {
  QString path;
  FileForm form = FileForm::xlsx;
};

// Nothing when the person gave up.
[[nodiscard]] std::optional<ExportTarget> askExportTarget(QWidget* parent, const ComputedReport& report);
// False when the work was stopped: nothing was written. Throws OutputError.
[[nodiscard]] bool writeExport(const ComputedReport& report, const ExportTarget& target, LongWork& work);

}  // namespace tz
