// The two backends behind connection.h, for src/data alone.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/data/connection.h"

namespace tz {

// Each opens without looking whether a ledger is inside; connection.cpp checks and prepares.
[[nodiscard]] std::unique_ptr<Connection> openSqlite(const std::string& path, Access access);
// A new ledger file, or an empty one, to be filled in one go by somebody who knows alone of it: a crash in the middle
// may leave anything.
[[nodiscard]] std::unique_ptr<Connection> createSqlite(const std::string& path);
// Closes such a file, brings it to the disk and reads it anew. Throws DbError when not all of it is there.
void finishSqlite(std::unique_ptr<Connection> connection, const std::string& path);
[[nodiscard]] std::unique_ptr<Connection> openPostgres(const std::string& address, Access access);

// From here on a reader writes nothing, a report only what report_writes.h lists, and neither changes a setting.
void restrictSqlite(Connection& connection, Access access);
void restrictPostgres(Connection& connection, Access access);
// What a ledger file goes through once more when its connection had to open it anew.
void afterReopening(Connection& connection, std::function<void(Connection&)> prepare);
// Settings, roles and all else but rows is refused from here on. Server only.
void takeDataStatementsOnly(Connection& connection);
// The role with just those grants; done once, when a ledger is created or first opened for work by its owner.
void grantPostgresReportWrites(Connection& connection);

// The shortest decimal text that reads back as the same figure.
[[nodiscard]] std::string shortestText(double value);

}  // namespace tz
