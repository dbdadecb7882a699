#include "desktop/picking/archive_references.h"

#include <unordered_map>

#include "core/data/init_combo_fun.h"
#include "desktop/theme/qt_text.h"

namespace tz {
namespace {

// How many of the codes before it, in code order, each code continues.
std::vector<int> depthsOf(const std::vector<DeptInfo>& depts) {
  std::vector<int> depths;
  std::vector<std::string> above;
  for (const auto& dept : depts) {
    while (!above.empty() && (dept.sDeptId.size() <= above.back().size() || !dept.sDeptId.starts_with(above.back()))) {
      above.pop_back();
    }
    depths.push_back(static_cast<int>(above.size()));
    if (!dept.sDeptId.empty()) above.push_back(dept.sDeptId);
  }
  return depths;
}

std::vector<DeptInfo> readDepts(const CQnCwDB& db) { return db.Dept_GetInfo("lId > 0 ORDER BY sDeptId, lId"); }

}  // namespace

CDeptReferenceDlg::CDeptReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : ReferenceDialog(QStringLiteral("部门参照"), {}, parent) {
  const auto depts = readDepts(db);
  std::vector<SearchEntry> entries;
  for (const auto& dept : depts) entries.push_back({toQt(dept.sDeptId), toQt(dept.sDeptName), dept.lDeptId});
  SetEntries(std::move(entries), depthsOf(depts));
}

void CDeptReferenceDlg::SetDept(const MemberChoice& dept) { OpenAt(dept); }
MemberChoice CDeptReferenceDlg::Dept() const { return Chosen(); }

CPersonReferenceDlg::CPersonReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : ReferenceDialog(QStringLiteral("个人参照"), QStringLiteral("部门"), parent) {
  const auto depts = readDepts(db);
  const auto depths = depthsOf(depts);
  const auto names = CInitComboFun::InitPartNameCombox(db);
  std::vector<ReferenceGroup> groups;
  std::unordered_map<Id, int> groupOf;
  for (std::size_t i = 0; i < depts.size(); ++i) {
    groups.push_back({toQt(names[i].text), depths[i], depts[i].lDeptId});
    groupOf.try_emplace(depts[i].lDeptId, static_cast<int>(i));
  }
  SetGroups(std::move(groups));
  std::vector<SearchEntry> entries;
  for (const auto& person : db.Person_GetInfo("lId > 0 ORDER BY sPersonId, lId")) {
    const auto group = groupOf.find(person.lDeptId);
    entries.push_back(
        {toQt(person.sPersonId), toQt(person.sName), person.lId, group == groupOf.end() ? -1 : group->second});
  }
  SetEntries(std::move(entries));
}

void CPersonReferenceDlg::SetNames(const MemberChoice& dept, const MemberChoice& person) { OpenAt(person, dept); }
MemberChoice CPersonReferenceDlg::Dept() const { return ChosenGroup(); }
MemberChoice CPersonReferenceDlg::Person() const { return Chosen(NamesOf::group); }

CUnitReferenceDlg::CUnitReferenceDlg(const CQnCwDB& db, QWidget* parent)
    : ReferenceDialog(QStringLiteral("单位参照"), QStringLiteral("分类"), parent) {
  const auto classes = CInitComboFun::InitEnterClassCombox(db);
  std::vector<ReferenceGroup> groups;
  std::unordered_map<Id, int> groupOf;
  for (std::size_t i = 0; i < classes.size(); ++i) {
    groups.push_back({toQt(classes[i].text)});
    groupOf.try_emplace(classes[i].datum, static_cast<int>(i));
  }
  SetGroups(std::move(groups));
  std::vector<SearchEntry> entries;
  for (const auto& unit : db.Enter_GetInfo("lId > 0 ORDER BY sEnterId, lId")) {
    const auto group = groupOf.find(unit.lClassId);
    entries.push_back(
        {toQt(unit.sEnterId), toQt(unit.sEnterName), unit.lId, group == groupOf.end() ? groupOf.at(0) : group->second});
  }
  SetEntries(std::move(entries));
}

void CUnitReferenceDlg::SetUnit(const MemberChoice& unit) { OpenAt(unit); }
MemberChoice CUnitReferenceDlg::Unit() const { return Chosen(); }

CItemReferenceDlg::CItemReferenceDlg(const CQnCwDB& db, const std::string& classId, QWidget* parent)
    : ReferenceDialog(QStringLiteral("项目参照"), {}, parent) {
  std::vector<SearchEntry> entries;
  for (const auto& item : db.Items_GetInfo(classId, "lId > 0 ORDER BY FIELD0, lId")) {
    if (item.fields.size() < 2) continue;
    entries.push_back({toQt(item.fields[0]), toQt(item.fields[1]), item.lId});
  }
  SetEntries(std::move(entries));
}

void CItemReferenceDlg::SetItem(const MemberChoice& item) { OpenAt(item); }
MemberChoice CItemReferenceDlg::Item() const { return Chosen(); }

}  // namespace tz
