// The archives as lists of names: departments, persons under them, units under their classes, the items of a project
// class. Reading one throws DbError when it cannot be read.
#pragma once

#include <string>

#include "core/data/qncw_db.h"
#include "desktop/picking/name_list.h"

namespace tz {

[[nodiscard]] NameList deptNames(const CQnCwDB& db);
[[nodiscard]] NameList personNames(const CQnCwDB& db);
[[nodiscard]] NameList unitNames(const CQnCwDB& db);
[[nodiscard]] NameList itemNames(const CQnCwDB& db, const std::string& classId);

}  // namespace tz
