#include "core/reports/launch_check.h"

#include "core/reports/dialog_spec.h"

namespace tz {

std::optional<Refusal> launchRefusal(std::span<const LaunchCheck> checks, const CQnCwDB& db) {
  for (const LaunchCheck& check : checks) {
    try {
      if (!check.passes(db)) return refusalWith(check.message);
    } catch (const DbError& error) {
      throw UnreadAnswer(refusalWith(check.message), error);
    }
  }
  return std::nullopt;
}

}  // namespace tz
