// A report as a PDF: its pages as they are printed, texts that can be searched and copied, fonts inside.
#pragma once

#include <QPageLayout>
#include <string>
#include <vector>

#include "core/output/grid_to_file.h"
#include "core/output/report_pages.h"

namespace tz {

[[nodiscard]] QPageLayout pageLayoutOf(const Paper& paper);

// Writes these sheets, counted from 1, whole or not at all. False when the progress asked to stop; failures throw
// OutputError. Needs a QGuiApplication.
[[nodiscard]] bool writePdf(const ReportPages& pages, const std::vector<int>& sheets, const std::string& path,
                            const FileProgress& progress = {});
// Of a whole report.
[[nodiscard]] bool writePdf(const ComputedReport& report, const PageOptions& options, const PageStamp& stamp,
                            const std::string& path, const FileProgress& progress = {});

}  // namespace tz
