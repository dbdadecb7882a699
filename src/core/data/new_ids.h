// Work of one transaction that takes new ids (Connection::newIds) and can begin anew.
#pragma once

#include "core/data/connection.h"

namespace tz {

// Runs `work`, which is one transaction. Where ids are made without a lock, another operator may have made the same:
// the table's key refuses them, and the work is done once more, with others. So it is where the database has undone it
// because somebody else's stood in each other's way.
template <class Work>
auto withNewIds(const Work& work) {
  constexpr int mostAttempts = 4;
  for (int attempt = 1;; ++attempt) {
    try {
      return work();
    } catch (const DbError& error) {
      const bool again = error.kind() == DbError::Kind::duplicate || error.kind() == DbError::Kind::collided;
      if (!again || attempt == mostAttempts) throw;
    }
  }
}

}  // namespace tz
