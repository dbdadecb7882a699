#include "core/data/sqlite_access.h"

#include <algorithm>
#include <array>

#include "core/data/report_writes.h"
#include "core/data/sqlite_errors.h"

namespace tz {
namespace {

bool names(const char* name, std::string_view wanted) {
  return name != nullptr && sqlite3_stricmp(name, std::string(wanted).c_str()) == 0;
}

// Questions about the file; without a value they change nothing.
bool asksOnly(const char* pragma, const char* value) {
  static constexpr std::array withValue = {"integrity_check", "quick_check", "table_info",
                                           "table_xinfo",     "index_list",  "index_info"};
  static constexpr std::array plain = {"user_version", "data_version", "schema_version",
                                       "page_count",   "page_size",    "journal_mode"};
  const auto asked = [pragma](const char* known) { return names(pragma, known); };
  return std::ranges::any_of(withValue, asked) || (value == nullptr && std::ranges::any_of(plain, asked));
}

int authorizeReading(void*, int action, const char* first, const char* second, const char*, const char*) {
  switch (action) {
    case SQLITE_READ:
    case SQLITE_SELECT:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_PRAGMA:
      return asksOnly(first, second) ? SQLITE_OK : SQLITE_DENY;
    default:
      return SQLITE_DENY;
  }
}

bool permitted(ReportWrite::Action action, const char* table, const char* column) {
  return std::ranges::any_of(reportWrites, [&](const ReportWrite& write) {
    return write.action == action && names(table, write.table) && (write.column.empty() || names(column, write.column));
  });
}

// A report writes only what report_writes.h lists.
int authorizeReport(void* context, int action, const char* first, const char* second, const char* third,
                    const char* fourth) {
  switch (action) {
    case SQLITE_INSERT:
      return permitted(ReportWrite::Action::insert, first, nullptr) ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_UPDATE:
      return permitted(ReportWrite::Action::update, first, second) ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_DELETE:
      return permitted(ReportWrite::Action::remove, first, nullptr) ? SQLITE_OK : SQLITE_DENY;
    default:
      return authorizeReading(context, action, first, second, third, fourth);
  }
}

void run(sqlite3* handle, const std::string& text) {
  if (sqlite3_exec(handle, text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK) return;
  throw sqliteError(sqlite3_extended_errcode(handle), sqlite3_errmsg(handle));
}

bool hasTable(sqlite3* handle, const std::string& name) {
  bool found = false;
  const auto note = [](void* there, int, char**, char**) { return *static_cast<bool*>(there) = true, 0; };
  const auto select = "SELECT 1 FROM main.sqlite_master WHERE type = 'table' AND lower(name) = lower('" + name + "')";
  sqlite3_exec(handle, select.c_str(), note, &found, nullptr);
  return found;
}

// INSERT OR REPLACE removes the row that is in its way, of which the authorizer is not told; delete triggers are, once
// they may fire inside a statement.
void addReportTriggers(sqlite3* handle) {
  run(handle, "PRAGMA recursive_triggers = ON");
  if (hasTable(handle, "MarkLog")) {
    run(handle,
        "CREATE TEMP TRIGGER tz_log_stays BEFORE DELETE ON main.MarkLog "
        "BEGIN SELECT RAISE(ABORT, 'the mark log takes rows and loses none'); END");
  }
  if (hasTable(handle, "RegSub")) {
    run(handle,
        "CREATE TEMP TRIGGER tz_mark_values BEFORE UPDATE OF byFlag ON main.RegSub "
        "WHEN NEW.byFlag IS NULL OR NEW.byFlag NOT IN (0, 1, 2) BEGIN SELECT RAISE(ABORT, 'a mark is 0, 1 or 2'); END");
  }
}

}  // namespace

void restrictSqliteHandle(sqlite3* handle, Access access) {
  if (access == Access::keeper) return;
  if (access == Access::report) addReportTriggers(handle);
  sqlite3_set_authorizer(handle, access == Access::report ? authorizeReport : authorizeReading, nullptr);
}

}  // namespace tz
