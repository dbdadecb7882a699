#include "suite/globals.h"

namespace tz {

QWidget* g_pDlgWnd = nullptr;
std::string g_lpArgument;

}  // namespace tz
