// What the host sets for the windows: the ledger they read, as of which date, and the window they open under.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "core/data/qncw_db.h"
#include "core/reports/operator.h"

class QWidget;

namespace tz {

// The open ledgers; set before the first report opens.
extern CQnCwDB* g_pDB;
// The name under which the ledger is open in g_pDB.
extern std::string g_lpszQnZwDBName;
// The account set of that ledger.
extern Id g_lAccountId;
// The logon date: its year is the account year of all period texts, its month the month that conditions start with.
extern Date g_tmLogonTime;
// The moment that windows work in; pictures and tests set one that stands still.
extern std::function<std::chrono::sys_seconds()> g_now;
// Who has logged on.
extern Operator g_operator;
// The navigator while it lives, else null.
extern QWidget* g_pDlgWnd;
// The host's start-up argument.
extern std::string g_lpArgument;

}  // namespace tz
