// The keys that every dialog has for its two buttons, wherever the focus is: Alt+O and Ctrl+Enter confirm, Alt+C
// cancels. The captions stay as they are given; the tips name the keys.
#pragma once

class QKeyEvent;
class QPushButton;
class QWidget;

namespace tz {

void giveDialogKeys(QPushButton& ok, QPushButton& cancel);
// A key that reached the dialog itself because a list was open below a field: clicks the button that it belongs to.
bool clickButtonOf(const QWidget& dialog, const QKeyEvent& key);

}  // namespace tz
