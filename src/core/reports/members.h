// Members by what a person named them: a record picked from a list, a name (the first of that name by lId), or a code
// and a name ("0301 李明") where several bear one name.
#pragma once

#include <optional>
#include <vector>

#include "core/data/get_data.h"
#include "core/reports/request.h"

namespace tz {

[[nodiscard]] std::optional<DeptInfo> findDept(const CQnCwDB& db, const MemberChoice& wanted);
// All that are meant, of every department, the best first.
[[nodiscard]] std::vector<PersonInfo> findPersons(const CQnCwDB& db, const MemberChoice& wanted);
// Of one department.
[[nodiscard]] std::optional<PersonInfo> findPerson(const CQnCwDB& db, const MemberChoice& wanted, Id deptId);
[[nodiscard]] std::optional<EnterInfo> findUnit(const CQnCwDB& db, const MemberChoice& wanted);
// Without "其它".
[[nodiscard]] std::optional<EnterClassInfo> findUnitClass(const CQnCwDB& db, const MemberChoice& wanted);
[[nodiscard]] std::optional<ItemInfo> findItem(CGetData& data, std::string_view classId, const MemberChoice& wanted);

}  // namespace tz
