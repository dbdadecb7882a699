// Marks lines in a session's name: its operator and the moment go into the mark log.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "core/data/marks.h"
#include "core/reports/session.h"

namespace tz {

// "2006-01-31T08:05:09Z".
[[nodiscard]] std::string utcText(std::chrono::sys_seconds moment);

// All or none, see writeMarks(). `batch` names the one that the rows belong to, where they are no batch of their own.
[[nodiscard]] MarkOutcome markLines(Session& session, std::span<const MarkChange> changes,
                                    const std::optional<std::string>& batch = {});

}  // namespace tz
