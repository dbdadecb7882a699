// What stands left of a directory's list and parts it: the departments of persons, the classes of units, the classes of
// projects, which have an archive each.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "core/archives/archive.h"

namespace tz {

struct ArchiveGroup {
  QString name;
  int depth = 0;
  std::optional<Id> id;  // nothing: all of them
};

struct ArchiveGroups {
  QString caption;
  std::vector<ArchiveGroup> groups;
  std::optional<Archive> kept = {};  // their own archive, where it is kept beside the list
};

// Empty for a directory without groups.
[[nodiscard]] ArchiveGroups archiveGroups(const CQnCwDB& db, ArchiveDirectory::Kind kind);

}  // namespace tz
