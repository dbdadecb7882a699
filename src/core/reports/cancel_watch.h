// Lets the database ask, during a long statement or a long wait, whether the person has stopped the work.
#pragma once

#include "core/reports/session.h"

namespace tz {

class CancelWatch {
 public:
  explicit CancelWatch(Session& session) : connection_(session.db.Current()) {
    connection_.setCancelCheck([](void* context) { return static_cast<Session*>(context)->cancelled(); }, &session);
  }
  CancelWatch(const CancelWatch&) = delete;
  CancelWatch& operator=(const CancelWatch&) = delete;
  ~CancelWatch() { connection_.setCancelCheck(nullptr, nullptr); }

 private:
  Connection& connection_;
};

}  // namespace tz
