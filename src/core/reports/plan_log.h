// Notes in a session's name who changed plans: rows of the mark log, beside those of marks (marking.h).
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/reports/session.h"

namespace tz {

// A plan that was written: whether it was there before and is there now.
struct PlanChange {
  Id plan = 0;
  bool before = false;
  bool after = true;
};
enum class PlanWork { byHand, automatic };

// A row for each plan, without a voucher (lTieId 0): the plan's id in the place of the line's, 1 in the place of a mark
// where the plan is there. The amounts are the plan's own matter. Belongs into the writing transaction that changes the
// plans, and into its withNewIds(). Returns the batch: "plan:set:17", or "plan:auto:17" for automatic planning.
std::string logPlans(Session& session, std::span<const PlanChange> changes, PlanWork work);

// "修改计划", "自动编制：增加计划" and the like, of a row of the log without a voucher.
[[nodiscard]] std::string planWorkText(std::string_view batch, int before, int after);

}  // namespace tz
