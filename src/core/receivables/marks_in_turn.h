// Work that marks lines and begins anew from what is there now, when another operator was there in between.
#pragma once

#include <optional>
#include <type_traits>
#include <variant>

#include "core/reports/cancel_watch.h"
#include "core/reports/report_definition.h"

namespace tz {

// `work` answers nothing when it was overtaken; where the database has undone it because of another one's, it begins
// anew as well. Throws DbError, also when others are always there first. What can be stopped has Cancelled among its
// outcomes; then nothing is written.
template <class Outcome, class Work>
Outcome marksInTurn(Session& session, const Work& work) {
  constexpr int mostAttempts = 100;
  try {
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
      const CancelWatch watch(session);
      try {
        if (auto outcome = work()) return std::move(*outcome);
      } catch (const DbError& error) {
        if (error.kind() != DbError::Kind::collided) throw;
      }
    }
  } catch (const DbError&) {
    if constexpr (std::is_constructible_v<Outcome, Cancelled>) {
      if (session.cancelled()) return Cancelled{};
    }
    throw;
  }
  throw DbError(DbError::Kind::locked, "other operators keep changing the same marks");
}

}  // namespace tz
