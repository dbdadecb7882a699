#include "desktop/picking/archive_names.h"

#include <unordered_map>

#include "core/data/init_combo_fun.h"
#include "desktop/theme/qt_text.h"

namespace tz {

NameList deptNames(const CQnCwDB& db) {
  NameList names;
  for (const auto& dept : db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId")) {
    names.entries.push_back({toQt(dept.sDeptId), toQt(dept.sDeptName), dept.lDeptId});
  }
  names.depths = depthsOf(names.entries);
  return names;
}

NameList personNames(const CQnCwDB& db) {
  const NameList depts = deptNames(db);
  NameList names{.lookedUpInGroup = true};
  std::unordered_map<Id, int> groupOf;
  for (std::size_t i = 0; i < depts.entries.size(); ++i) {
    const SearchEntry& dept = depts.entries[i];
    names.groups.push_back({toQt(depts.ChoiceOf(dept).text), depts.depths[i], dept.id});
    groupOf.try_emplace(dept.id, static_cast<int>(i));
  }
  for (const auto& person : db.Person_GetInfo("lId > 0 ORDER BY sPersonId, lId")) {
    const auto group = groupOf.find(person.lDeptId);
    names.entries.push_back(
        {toQt(person.sPersonId), toQt(person.sName), person.lId, group == groupOf.end() ? -1 : group->second});
  }
  return names;
}

NameList unitNames(const CQnCwDB& db) {
  NameList names;
  std::unordered_map<Id, int> groupOf;
  for (const auto& unitClass : CInitComboFun::InitEnterClassCombox(db)) {
    groupOf.try_emplace(unitClass.datum, static_cast<int>(names.groups.size()));
    names.groups.push_back({toQt(unitClass.text)});
  }
  for (const auto& unit : db.Enter_GetInfo("lId > 0 ORDER BY sEnterId, lId")) {
    const auto group = groupOf.find(unit.lClassId);
    names.entries.push_back(
        {toQt(unit.sEnterId), toQt(unit.sEnterName), unit.lId, group == groupOf.end() ? groupOf.at(0) : group->second});
  }
  return names;
}

NameList itemNames(const CQnCwDB& db, const std::string& classId) {
  NameList names;
  for (const auto& item : db.Items_GetInfo(classId, "lId > 0 ORDER BY FIELD0, lId")) {
    if (item.fields.size() < 2) continue;
    names.entries.push_back({toQt(item.fields[0]), toQt(item.fields[1]), item.lId});
  }
  return names;
}

}  // namespace tz
