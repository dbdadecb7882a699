// The help on one report: what it is asked for, what its toolbar does and how its grid is worked with, drawn up from
// the report's definition.
#pragma once

class QWidget;

namespace tz {

struct ReportDefinition;

// Opens the help window of a report's window, or brings it to the front.
void showHelp(QWidget* window, const ReportDefinition& report);

}  // namespace tz
