// What must be there before three of the navigator's commands open their report: project classes, plans of departments,
// plans of projects. Throws DbError when the ledger cannot be read.
#pragma once

#include <optional>

#include "core/data/qncw_db.h"
#include "core/reports/messages.h"

namespace tz {

// Why the command opens nothing; nothing when it may open.
[[nodiscard]] std::optional<Message> launchRefusal(int command, const CQnCwDB& db);
// The same when the ledger cannot be read: these commands then say that they found nothing.
[[nodiscard]] std::optional<Message> launchRefusalUnread(int command);

}  // namespace tz
