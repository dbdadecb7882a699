// The list of open windows: a menu that switches between the navigator and its reports, and the keys that go round.
#pragma once

class QMenu;
class QToolButton;
class QWidget;

namespace tz {

class ReportLauncher;
class ReportWindow;

// Fills the menu each time it opens.
void listWindows(QMenu* menu, ReportLauncher& launcher);
// Ctrl+Tab and Ctrl+Shift+Tab go from this window to the next and the one before.
void addWindowKeys(QWidget& window, ReportLauncher& launcher);
// Gives a report's window the menu at the end of its toolbar, and these keys.
void addWindowList(ReportWindow& window, ReportLauncher& launcher);
void bringToFront(QWidget* window);
// A flat button that drops a menu down.
[[nodiscard]] QToolButton* menuButton(QMenu* menu, QWidget* parent);

}  // namespace tz
