#include "desktop/frame/globals.h"

namespace tz {

CQnCwDB* g_pDB = nullptr;
std::string g_lpszQnZwDBName;
Id g_lAccountId = 0;
Date g_tmLogonTime;
std::function<std::chrono::sys_seconds()> g_now = [] {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
};
Operator g_operator;
QWidget* g_pDlgWnd = nullptr;
std::string g_lpArgument;

}  // namespace tz
