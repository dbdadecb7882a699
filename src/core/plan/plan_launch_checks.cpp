#include "core/plan/plan_launch_checks.h"

#include <algorithm>

#include "core/data/get_data.h"

namespace tz {

bool hasDepartmentPlan(const CQnCwDB& db) {
  constexpr std::array<std::string_view, 3> departmentFlags = {"C", "CD", "DC"};
  const auto planned =
      db.QRYGetData("SELECT DISTINCT lCodeId FROM Plan WHERE lDeptId > 0 AND lCodeId > 0 ORDER BY lCodeId");
  CGetData data(db);
  return std::ranges::any_of(planned.cells, [&](const std::string& id) {
    const CodeInfo* account = data.GetCODEINFOByID(std::stoll(id));
    return account != nullptr && std::ranges::find(departmentFlags, account->sAssBook) != departmentFlags.end();
  });
}

bool hasProjectPlan(const CQnCwDB& db) { return db.Exists("Plan", "sItemId <> ''"); }

}  // namespace tz
