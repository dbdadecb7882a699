// The place of a line or balance among the groups of a list member: the ids of its entities, outer level first, in the
// order in which the member sorts them.
#pragma once

#include <array>
#include <compare>
#include <string>

#include "core/data/connection.h"
#include "core/ledger/detail_member.h"

namespace tz {

struct GroupKey {
  std::string itemClass;  // of project groups, which come first
  std::array<Id, 2> ids = {};

  auto operator<=>(const GroupKey&) const = default;
  // Whether both stand in the same group of the outer level.
  [[nodiscard]] bool sameOuter(const GroupKey& other) const {
    return ids.front() == other.ids.front() && itemClass == other.itemClass;
  }
};

// Reads the keys of a member from the rows of a statement, whose columns it names.
class GroupColumns {
 public:
  // The columns follow `first` others.
  GroupColumns(const DetailMember& member, int first);

  // ", lDeptId, lPersonId", each with the prefix ("s." or nothing); empty where the member has no groups.
  [[nodiscard]] std::string names(std::string_view prefix) const;
  // Reads the key of the cursor's row into `key`; whether it differs from what stood there.
  bool read(const Cursor& row, GroupKey& key) const;

 private:
  std::array<std::string_view, 2> columns_ = {};
  int levels_ = 0;
  bool withClass_ = false;
  int first_;
};

// The entity's name, its id where the ledger has no record of it.
[[nodiscard]] std::string entityName(Entity entity, const GroupKey& key, std::size_t level,
                                     const Conditions& conditions);

}  // namespace tz
