#include "core/reports/marking.h"

#include <fmt/format.h>

#include "core/reports/cancel_watch.h"

namespace tz {

std::string utcText(std::chrono::sys_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                     time.minutes().count(), time.seconds().count());
}

MarkOutcome markLines(Session& session, std::span<const MarkChange> changes, const std::optional<std::string>& batch) {
  const CancelWatch watch(session);
  return writeMarks(session.db.Current(), changes, {session.who.name, utcText(session.now()), batch});
}

}  // namespace tz
