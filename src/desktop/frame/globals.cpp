#include "desktop/frame/globals.h"

namespace tz {

CQnCwDB* g_pDB = nullptr;
std::string g_lpszQnZwDBName;
Id g_lAccountId = 0;
Date g_tmLogonTime;
Operator g_operator;
QWidget* g_pDlgWnd = nullptr;
std::string g_lpArgument;

}  // namespace tz
