// The keys of a window's commands, which work wherever the focus is: fields would keep some to themselves, as a line of
// text takes Ctrl+E for the end of the line.
#pragma once

class QWidget;

namespace tz {

// For the fields that the window has now.
void putWindowKeysFirst(QWidget& window);

}  // namespace tz
