// Which entities a report in groups lists where that is not simply whoever has an opening or lines.
#pragma once

#include <optional>
#include <set>

#include "core/ledger/selection.h"
#include "core/reports/session.h"

namespace tz {

enum class Listed {
  all,             // whoever has an opening or lines
  postedAccounts,  // accounts with lines of the unit up to the last period
  clerksUnits,     // units with lines of the clerk up to the last period; with "其它" units without any clerk as well
};

class ListedEntities {
 public:
  ListedEntities(Listed rule, const Selection& selection, Session& session, const Conditions& conditions);

  [[nodiscard]] bool contains(const GroupKey& key) const {
    if (!level_) return true;
    const auto id = key.parts.at(*level_).id;
    return ids_.contains(id) || (listsOthers_ && !others_.contains(id));
  }

 private:
  std::optional<std::size_t> level_;  // that the rule is about; none: all are listed
  std::set<Id> ids_;
  bool listsOthers_ = false;
  std::set<Id> others_;  // units that some clerk has
};

}  // namespace tz
