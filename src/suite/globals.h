// What the host sets for the windows, and the window that report windows open under.
#pragma once

#include <string>

class QWidget;

namespace tz {

// The navigator while it lives, else null.
extern QWidget* g_pDlgWnd;
// The host's start-up argument.
extern std::string g_lpArgument;

}  // namespace tz
