// The help on the navigator: what its areas hold and how it is worked with.
#pragma once

class QWidget;

namespace tz {

void showNavigatorHelp(QWidget* navigator);

}  // namespace tz
