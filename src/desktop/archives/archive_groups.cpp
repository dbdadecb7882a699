#include "desktop/archives/archive_groups.h"

#include "desktop/picking/archive_names.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

ArchiveGroups departmentGroups(const CQnCwDB& db) {
  ArchiveGroups groups{QStringLiteral("部门"), {{QStringLiteral("全部"), 0, std::nullopt}}};
  const NameList depts = deptNames(db);
  for (std::size_t place = 0; place < depts.entries.size(); ++place) {
    const SearchEntry& dept = depts.entries[place];
    groups.groups.push_back({toQt(depts.ChoiceOf(dept).text), depts.depths[place], dept.id});
  }
  return groups;
}

ArchiveGroups unitGroups(const CQnCwDB& db) {
  ArchiveGroups groups{QStringLiteral("分类"), {{QStringLiteral("全部"), 0, std::nullopt}}, unitClassArchive()};
  for (const auto& unitClass : db.EnterClass_GetInfo("lId > 0 ORDER BY lId")) {
    groups.groups.push_back({toQt(unitClass.sName), 0, unitClass.lId});
  }
  groups.groups.push_back({QStringLiteral("未分类"), 0, 0});
  return groups;
}

ArchiveGroups projectGroups(const CQnCwDB& db) {
  ArchiveGroups groups{QStringLiteral("项目大类"), {}, projectClassArchive()};
  for (const auto& projectClass : db.ProjClass_GetInfo("lId > 0 AND sItemId <> '' ORDER BY lId")) {
    groups.groups.push_back({toQt(projectClass.sItemId + " " + projectClass.sName), 0, projectClass.lId});
  }
  return groups;
}

}  // namespace

ArchiveGroups archiveGroups(const CQnCwDB& db, ArchiveDirectory::Kind kind) {
  switch (kind) {
    case ArchiveDirectory::Kind::persons:
      return departmentGroups(db);
    case ArchiveDirectory::Kind::units:
      return unitGroups(db);
    case ArchiveDirectory::Kind::projects:
      return projectGroups(db);
    case ArchiveDirectory::Kind::departments:
      break;
  }
  return {};
}

}  // namespace tz
