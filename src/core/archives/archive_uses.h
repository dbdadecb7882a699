// Where records of the archives are used. Each place is found along an index, and counted up to a bound, so that a
// million lines answer at once.
#pragma once

#include <string>
#include <vector>

#include "core/archives/archive.h"

namespace tz {

[[nodiscard]] std::vector<ArchiveUse> departmentUses();
[[nodiscard]] std::vector<ArchiveUse> personUses();
[[nodiscard]] std::vector<ArchiveUse> unitUses();
[[nodiscard]] std::vector<ArchiveUse> unitClassUses();
[[nodiscard]] std::vector<ArchiveUse> projectClassUses();
[[nodiscard]] std::vector<ArchiveUse> itemUses(const std::string& classId);
[[nodiscard]] std::vector<ArchiveUse> classAccountUses(const std::string& classId);

// "1,204 条分录、36 条辅助余额"; empty where the record is not used.
[[nodiscard]] std::string usesOf(Connection& connection, const Archive& archive, const ArchiveRecord& record);

}  // namespace tz
