#include "core/reports/members.h"

#include <algorithm>

namespace tz {
namespace {

// A text as code and name, parted at its first blank; the code is empty where there is no blank.
struct CodeAndName {
  std::string code, name;
  explicit CodeAndName(const std::string& text) {
    const auto blank = text.find(' ');
    if (blank == std::string::npos) return;
    code = text.substr(0, blank);
    name = text.substr(blank + 1);
  }
};

template <class Record>
struct Archive {
  std::vector<Record> (CQnCwDB::*read)(const Sql&) const;
  const char* nameColumn;
  Id Record::*id;
  std::string Record::*code;  // null: records have none
};

// Those of the name, or else those of code and name, by lId; the record picked stands before them. Codes are compared
// here, since a ledger may hold them as numbers.
template <class Record>
std::vector<Record> findRecords(const CQnCwDB& db, const Archive<Record>& archive, const MemberChoice& wanted) {
  const auto named = [&](const std::string& name) {
    return (db.*archive.read)(Sql(archive.nameColumn, name) + " ORDER BY lId");
  };
  auto all = named(wanted.text);
  const CodeAndName parts(wanted.text);
  if (all.empty() && archive.code != nullptr && !parts.code.empty()) {
    all = named(parts.name);
    std::erase_if(all, [&](const Record& record) { return record.*archive.code != parts.code; });
  }
  std::stable_partition(all.begin(), all.end(), [&](const Record& record) { return record.*archive.id == wanted.id; });
  return all;
}

template <class Record>
std::optional<Record> firstOf(std::vector<Record> found) {
  if (found.empty()) return std::nullopt;
  return std::move(found.front());
}

constexpr Archive<DeptInfo> depts{&CQnCwDB::Dept_GetInfo, "sDeptName = ?", &DeptInfo::lDeptId, &DeptInfo::sDeptId};
constexpr Archive<PersonInfo> persons{&CQnCwDB::Person_GetInfo, "sName = ?", &PersonInfo::lId, &PersonInfo::sPersonId};
constexpr Archive<EnterInfo> units{&CQnCwDB::Enter_GetInfo, "sEnterName = ?", &EnterInfo::lId, &EnterInfo::sEnterId};
constexpr Archive<EnterClassInfo> unitClasses{&CQnCwDB::EnterClass_GetInfo, "sName = ?", &EnterClassInfo::lId, nullptr};

}  // namespace

std::optional<DeptInfo> findDept(const CQnCwDB& db, const MemberChoice& wanted) {
  return firstOf(findRecords(db, depts, wanted));
}

std::vector<PersonInfo> findPersons(const CQnCwDB& db, const MemberChoice& wanted) {
  return findRecords(db, persons, wanted);
}

std::optional<PersonInfo> findPerson(const CQnCwDB& db, const MemberChoice& wanted, Id deptId) {
  auto all = findPersons(db, wanted);
  std::erase_if(all, [deptId](const PersonInfo& person) { return person.lDeptId != deptId; });
  return firstOf(std::move(all));
}

std::optional<EnterInfo> findUnit(const CQnCwDB& db, const MemberChoice& wanted) {
  return firstOf(findRecords(db, units, wanted));
}

std::optional<EnterClassInfo> findUnitClass(const CQnCwDB& db, const MemberChoice& wanted) {
  return firstOf(findRecords(db, unitClasses, wanted));
}

std::optional<ItemInfo> findItem(CGetData& data, std::string_view classId, const MemberChoice& wanted) {
  const auto& items = data.ItemTable(classId);
  const CodeAndName parts(wanted.text);
  const auto isNamed = [&](const ItemInfo& item) { return item.fields[1] == wanted.text; };
  const auto isBoth = [&](const ItemInfo& item) {
    return !parts.code.empty() && item.fields[0] == parts.code && item.fields[1] == parts.name;
  };
  const auto isPicked = [&](const ItemInfo& item) { return item.lId == wanted.id && (isNamed(item) || isBoth(item)); };
  auto found = std::ranges::find_if(items, isPicked);
  if (found == items.end()) found = std::ranges::find_if(items, isNamed);
  if (found == items.end()) found = std::ranges::find_if(items, isBoth);
  return found == items.end() ? std::nullopt : std::optional(*found);
}

}  // namespace tz
