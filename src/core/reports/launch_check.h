// What must be in the ledger before a report opens at all, as data of its record.
#pragma once

#include <optional>
#include <span>

#include "core/data/qncw_db.h"
#include "core/reports/messages.h"

namespace tz {

struct LaunchCheck {
  bool (*passes)(const CQnCwDB&);
  Message message;
};

// Why the report opens nothing; nothing when it may open. Throws UnreadAnswer when a check cannot be read: it is then
// refused as if it had found nothing, with the reason.
[[nodiscard]] std::optional<Refusal> launchRefusal(std::span<const LaunchCheck> checks, const CQnCwDB& db);

}  // namespace tz
