// The list of open windows: a menu that switches between the navigator and its windows, lays them out and closes them,
// and the keys that go round.
#pragma once

class QMenu;
class QToolButton;
class QWidget;

namespace tz {

class ProcessWindow;
class ReportLauncher;

// Fills the menu each time it opens.
void listWindows(QMenu* menu, ReportLauncher& launcher);
// Ctrl+Tab and Ctrl+Shift+Tab go from this window to the next and the one before.
void addWindowKeys(QWidget& window, ReportLauncher& launcher);
// Gives a window the menu at the end of its toolbar, where it has one, and these keys.
void addWindowList(ProcessWindow& window, ReportLauncher& launcher);
void bringToFront(QWidget* window);
// A flat button that drops a menu down.
[[nodiscard]] QToolButton* menuButton(QMenu* menu, QWidget* parent);
// The button of the list, which Alt+W opens.
void nameWindowButton(QToolButton& button);

// Beside and below each other, or one behind the other, on the screen of `here`.
void layOutSideBySide(const ReportLauncher& launcher, const QWidget& here);
void layOutOneBehindTheOther(const ReportLauncher& launcher, const QWidget& here);

}  // namespace tz
