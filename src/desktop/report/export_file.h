// Exporting a report from its window: where to, in which form, and the writing itself, which the person may stop.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "core/output/grid_to_file.h"
#include "core/output/page_paper.h"

class QWidget;

namespace tz {

class LongWork;

struct ExportTarget {
  QString path;
  FileForm form = FileForm::xlsx;
  bool pages = false;  // as a PDF, whatever the form
};

// The folder of the last export, which the host keeps; without functions exports begin among the person's documents.
struct ExportFolder {
  std::function<QString()> last;
  std::function<void(const QString& folder)> keep;
};

// Asks under the proposed name in the last folder, and keeps the folder that was chosen. `pages`
// begins with a PDF. Nothing when the person gave up.
[[nodiscard]] std::optional<ExportTarget> askExportTarget(QWidget* parent, const ComputedReport& report,
                                                          const ExportFolder& folder = {}, bool pages = false);
// False when the work was stopped: nothing was written. Throws OutputError.
[[nodiscard]] bool writeExport(const ComputedReport& report, const ExportTarget& target, const PageOptions& options,
                               LongWork& work);

}  // namespace tz
