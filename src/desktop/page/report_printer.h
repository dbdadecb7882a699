// Printing a report: which printer and pages are asked for in the toolkit's dialog; sheets are painted one by one.
#pragma once

#include <QPrinter>

#include "core/output/grid_to_file.h"
#include "core/output/report_pages.h"

namespace tz {

// Whether there is any printer to ask for.
[[nodiscard]] bool anyPrinter();

// Asks for printer and pages. False when the person gave up.
[[nodiscard]] bool askPrinter(QPrinter& printer, const ReportPages& pages, QWidget* parent);

// Prints what was asked for, into a file whole or not at all; gives how many sheets. None when the progress asked to
// stop; throws OutputError when the printer does not take them.
[[nodiscard]] std::int64_t printPages(QPrinter& printer, const ReportPages& pages, const FileProgress& progress = {});

}  // namespace tz
