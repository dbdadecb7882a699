// The help window. On a report it tells what the report is asked for, what its toolbar does and how its grid is worked
// with, drawn up from the report's definition.
#pragma once

class QString;
class QWidget;

namespace tz {

struct ReportDefinition;

// Opens the help window of a report's window, or brings it to the front.
void showHelp(QWidget* window, const ReportDefinition& report);
// The same with a page of one's own.
void showHelpPage(QWidget* window, const QString& html);

}  // namespace tz
