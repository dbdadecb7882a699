// The commands of report windows in one table: picture, key, tip, and what each does by itself. A report takes those
// that its record names; what has no action here is answered by the report's feature, and stays pale until one does.
#pragma once

#include <QString>
#include <span>

#include "core/reports/report_definition.h"

namespace tz {

class ReportWindow;

// The tip of a button is kept as this property, for it may say more while the command waits.
inline constexpr const char* commandTip = "tip";

struct ReportCommand {
  WindowCommand command;
  int bitmap;
  const char* shortcut = "";  // portable text, empty for none
  const char* tip = "";
  bool takesRows = false;  // waits until there are rows to take
  bool toggles = false;    // its button shows whether it is on
  bool known = false;      // its picture says enough where texts have no room
  void (ReportWindow::*action)() = nullptr;
  // Of reports that do not all have it; null: every report has.
  bool (*had)(const ReportDefinition&) = nullptr;

  [[nodiscard]] QString Caption() const;
  [[nodiscard]] bool HasAction(const ReportDefinition& report) const {
    return action != nullptr && (had == nullptr || had(report));
  }
};

[[nodiscard]] std::span<const ReportCommand> reportCommands();
// Null for an id that is none of them.
[[nodiscard]] const ReportCommand* findReportCommand(int id);

}  // namespace tz
