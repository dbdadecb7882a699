// Which entities a list member lists where that is not simply whoever has an opening or lines.
#pragma once

#include <set>

#include "core/ledger/group_key.h"
#include "core/reports/session.h"

namespace tz {

class ListedEntities {
 public:
  ListedEntities(const DetailMember& member, Session& session, const Conditions& conditions);

  [[nodiscard]] bool contains(const GroupKey& key) const {
    if (rule_ == Listed::all) return true;
    const bool named = ids_.contains(key.ids.front());
    return named || (listsOthers_ && !others_.contains(key.ids.front()));
  }

 private:
  Listed rule_;
  std::set<Id> ids_;
  bool listsOthers_ = false;
  std::set<Id> others_;  // units that some clerk has
};

}  // namespace tz
