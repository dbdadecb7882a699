#include "core/catalogue/launch_checks.h"

#include <algorithm>
#include <array>

#include "core/data/get_data.h"

namespace tz {
namespace {

bool hasProjectClass(const CQnCwDB& db) { return db.Exists("ProjClass", "sItemId <> ''"); }

// Plans of an account that is kept by departments, alone or with projects.
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

constexpr Message noPlanAccount{"没有查到符合要求的科目!"};
constexpr Message noPlanProjectClass{"没有查到符合条件的项目大类!"};

struct LaunchCheck {
  int command;
  bool (*passes)(const CQnCwDB&);
  Message message;
};

constexpr std::array checks = {
    LaunchCheck{10224, hasProjectClass, messages::defineProjectClassFirst},
    LaunchCheck{10237, hasDepartmentPlan, noPlanAccount},
    LaunchCheck{10238, hasProjectPlan, noPlanProjectClass},
};

const LaunchCheck* checkOf(int command) {
  const auto* const found = std::ranges::find(checks, command, &LaunchCheck::command);
  return found == checks.end() ? nullptr : found;
}

}  // namespace

std::optional<Message> launchRefusal(int command, const CQnCwDB& db) {
  const LaunchCheck* check = checkOf(command);
  if (check == nullptr || check->passes(db)) return std::nullopt;
  return check->message;
}

std::optional<Message> launchRefusalUnread(int command) {
  const LaunchCheck* check = checkOf(command);
  return check == nullptr ? std::nullopt : std::optional(check->message);
}

}  // namespace tz
