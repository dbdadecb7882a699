// What must be planned before the execution reports of departments (10237) and of projects (10238) open; their records
// take these when they come.
#pragma once

#include <array>

#include "core/reports/launch_check.h"

namespace tz {

// Plans of an account that is kept by departments, alone or with projects.
[[nodiscard]] bool hasDepartmentPlan(const CQnCwDB& db);
[[nodiscard]] bool hasProjectPlan(const CQnCwDB& db);

namespace messages {
inline constexpr Message noPlanAccount{"没有查到符合要求的科目!"};
inline constexpr Message noPlanProjectClass{"没有查到符合条件的项目大类!"};
}  // namespace messages

inline constexpr std::array departmentPlanChecks = {LaunchCheck{hasDepartmentPlan, messages::noPlanAccount}};
inline constexpr std::array projectPlanChecks = {LaunchCheck{hasProjectPlan, messages::noPlanProjectClass}};

}  // namespace tz
