#include "core/reports/offers.h"

#include <algorithm>

#include "core/reports/control_kind.h"
#include "core/reports/members.h"

namespace tz {
namespace {

ComboList named(const std::vector<ProjClassInfo>& classes) {
  ComboList list;
  for (const auto& one : classes) list.push_back({one.sItemId + " " + one.sName, one.lId});
  return list;
}

ComboList itemsByCode(CGetData& data, std::string_view classId) {
  ComboList list;
  for (const auto& item : data.ItemTable(classId)) list.push_back({item.fields[0] + " " + item.fields[1], item.lId});
  std::ranges::sort(list, {}, &ComboEntry::text);
  return list;
}

ComboList itemsByName(CGetData& data, std::string_view classId) {
  std::vector<NamedMember> items;
  for (const auto& item : data.ItemTable(classId)) items.push_back({item.fields[0], item.fields[1], item.lId});
  std::ranges::stable_sort(items, {}, &NamedMember::code);
  return toldApart(items);
}

// The class that is named, else the first; empty for one that is not there.
std::string classNamed(const OfferQuestion& question) {
  const auto& classes = question.data.ProjClassTable();
  const auto asked = CGetData::GetCode_Separator(question.soFar.text(ParameterKey::projectClass));
  if (asked.empty()) return classes.empty() ? "" : classes.front().sItemId;
  return std::ranges::find(classes, asked, &ProjClassInfo::sItemId) == classes.end() ? "" : asked;
}

const CodeInfo* accountNamed(const OfferQuestion& question) {
  return question.data.GetCODEINFOByCode(CGetData::GetCode_Separator(question.soFar.text(ParameterKey::account)));
}

bool isAll(const MemberChoice& wanted) { return wanted.text == allMembers && wanted.id == 0; }

}  // namespace

const ControlSpec* controlOf(const DialogSpec& dialog, ParameterKey key) {
  for (const auto& control : dialog.controls) {
    const auto keys = keysOf(control);
    if (std::ranges::find(keys, key) != keys.end()) return &control;
  }
  return nullptr;
}

ComboList offered(const OfferQuestion& question) {
  const auto& kind = controlKind(question.control.kind);
  return kind.offered == nullptr ? ComboList() : kind.offered(question);
}

ComboList offered(const DialogSpec& dialog, ParameterKey key, const Request& soFar, const CQnCwDB& db) {
  const auto* control = controlOf(dialog, key);
  if (control == nullptr) return {};
  CGetData data(db);
  return offered(OfferQuestion{dialog, *control, key, soFar, db, data});
}

bool offerFollows(const ControlSpec& control) { return controlKind(control.kind).follows; }

int placeIn(const ComboList& offer, const OfferQuestion& question) {
  const auto wanted = question.soFar.member(question.key);
  if (wanted.text.empty()) return -1;
  const auto& kind = controlKind(question.control.kind);
  const auto place = [&](auto found) { return found == offer.end() ? -1 : static_cast<int>(found - offer.begin()); };
  const auto meant = kind.meant == nullptr ? std::nullopt : kind.meant(question);
  if (meant) {
    const int found = place(std::ranges::find(offer, *meant, &ComboEntry::datum));
    if (found >= 0) return found;
  }
  const auto isNamed = [&](const ComboEntry& one) {
    return valueOf(question.key, one.text) == valueOf(question.key, wanted.text);
  };
  const int picked =
      place(std::ranges::find_if(offer, [&](const ComboEntry& one) { return one.datum == wanted.id && isNamed(one); }));
  return picked >= 0 ? picked : place(std::ranges::find_if(offer, isNamed));
}

int placeIn(const ComboList& offer, const DialogSpec& dialog, ParameterKey key, const Request& soFar,
            const CQnCwDB& db) {
  const auto* control = controlOf(dialog, key);
  if (control == nullptr) return -1;
  CGetData data(db);
  return placeIn(offer, OfferQuestion{dialog, *control, key, soFar, db, data});
}

std::string valueOf(ParameterKey key, const std::string& entry) {
  return parameter(key).byCode ? CGetData::GetCode_Separator(entry) : entry;
}

MemberChoice choiceOf(ParameterKey key, const ComboEntry& entry) { return {valueOf(key, entry.text), entry.datum}; }

void followAccount(const DialogSpec& dialog, Request& request, const CQnCwDB& db) {
  for (const auto& control : dialog.controls) {
    if (control.kind != ControlSpec::Kind::classCombo && control.kind != ControlSpec::Kind::clerkCombo) continue;
    CGetData data(db);
    const OfferQuestion question{dialog, control, control.key, request, db, data};
    const auto offer = offered(question);
    if (placeIn(offer, question) >= 0) continue;
    request.clear(control.key);
    if (control.key == ParameterKey::projectClass) {
      request.clear(ParameterKey::projectFrom);
      request.clear(ParameterKey::projectTo);
    }
    if (!offer.empty()) request.choose(control.key, choiceOf(control.key, offer.front()));
  }
}

std::vector<CodeInfo> accountsOf(const DialogSpec& dialog, const CQnCwDB& db) {
  return db.Code_GetInfo(Sql(dialog.accountWhere));
}

std::vector<ProjClassInfo> classesOfAccount(const CQnCwDB& db, CGetData& data, const CodeInfo& account) {
  const auto carried = [&](const Sql& accounts) {
    std::vector<ProjClassInfo> classes;
    const auto links = db.ProjCodes_GetInfo(accounts + " ORDER BY lId");
    for (const auto& candidate : data.ProjClassTable()) {
      if (std::ranges::find(links, candidate.sItemId, &ProjCodesInfo::sItemId) != links.end()) {
        classes.push_back(candidate);
      }
    }
    return classes;
  };
  auto own = carried(Sql("lCodeId = ?", account.lId));
  if (!own.empty()) return own;
  return carried(inList("lCodeId", data.GetCode_Include(account.sCode)));
}

namespace offers {

ComboList accounts(const OfferQuestion& question) {
  return CInitComboFun::InitCodeComb_1Blank(question.db, Sql(question.dialog.accountWhere));
}

ComboList accountRange(const OfferQuestion& question) {
  return CInitComboFun::InitCodeComb_1Blank(question.db, Sql(question.control.accountWhere));
}

ComboList depts(const OfferQuestion& question) {
  auto list = CInitComboFun::InitPartNameCombox(question.db);
  if (question.control.all) list.insert(list.begin(), {std::string(allMembers), 0});
  return list;
}

ComboList persons(const OfferQuestion& question) {
  const auto dept = question.soFar.member(ParameterKey::dept);
  if (dept.text.empty()) {
    std::vector<NamedMember> everybody;
    for (const auto& person : question.db.Person_GetInfo("lId > 0 ORDER BY sPersonId, lId")) {
      everybody.push_back({person.sPersonId, person.sName, person.lId});
    }
    return toldApart(everybody);
  }
  const auto found = findDept(question.db, dept);
  return found ? CInitComboFun::InitNameCombox(question.db, found->lDeptId) : ComboList();
}

ComboList units(const OfferQuestion& question) {
  auto list = CInitComboFun::InitEnterCombox(question.db);
  if (question.control.all) list.insert(list.begin(), {std::string(allMembers), 0});
  return list;
}

ComboList unitClasses(const OfferQuestion& question) { return CInitComboFun::InitEnterClassCombox(question.db); }

ComboList clerks(const OfferQuestion& question) {
  const auto accounts =
      question.data.GetCodeSubString(CGetData::GetCode_Separator(question.soFar.text(ParameterKey::account)));
  const auto names = question.db.QRYGetData("SELECT DISTINCT sName FROM RegSub WHERE " + accounts +
                                            " AND sName <> '' UNION SELECT DISTINCT sName FROM UnregSub WHERE " +
                                            accounts + " AND sName <> '' ORDER BY sName");
  ComboList list;
  // A clerk is a name; the id tells one who is called "其它" from none.
  for (int row = 0; row < names.rows; ++row) list.push_back({names.at(row, 0), 1});
  list.push_back({std::string(otherMembers), 0});
  return list;
}

ComboList classesOfAccount(const OfferQuestion& question) {
  if (!asksForAccount(question.dialog)) return named(question.data.ProjClassTable());
  const auto* account = accountNamed(question);
  return account == nullptr ? ComboList() : named(tz::classesOfAccount(question.db, question.data, *account));
}

ComboList projects(const OfferQuestion& question) {
  if (question.key == ParameterKey::projectClass) return named(question.data.ProjClassTable());
  const auto classId = classNamed(question);
  return classId.empty() ? ComboList() : itemsByName(question.data, classId);
}

ComboList projectRange(const OfferQuestion& question) {
  const auto classes = question.data.ProjClassTable();
  if (!question.soFar.text(ParameterKey::projectClass).empty()) {
    const auto classId = classNamed(question);
    return classId.empty() ? ComboList() : itemsByCode(question.data, classId);
  }
  if (!question.soFar.text(ParameterKey::account).empty()) {
    const auto* account = accountNamed(question);
    if (account == nullptr) return {};
    const auto own = tz::classesOfAccount(question.db, question.data, *account);
    return own.empty() ? ComboList() : itemsByCode(question.data, own.front().sItemId);
  }
  ComboList all;
  for (const auto& one : classes) {
    const auto items = itemsByCode(question.data, one.sItemId);
    all.insert(all.end(), items.begin(), items.end());
  }
  return all;
}

std::optional<Id> deptMeant(const OfferQuestion& question) {
  const auto wanted = question.soFar.member(ParameterKey::dept);
  if (question.control.all && isAll(wanted)) return 0;
  const auto found = findDept(question.db, wanted);
  return found ? std::optional(found->lDeptId) : std::nullopt;
}

std::optional<Id> personMeant(const OfferQuestion& question) {
  const auto wanted = question.soFar.member(ParameterKey::person);
  const auto dept = findDept(question.db, question.soFar.member(ParameterKey::dept));
  const auto found = dept ? findPerson(question.db, wanted, dept->lDeptId) : std::nullopt;
  return found ? std::optional(found->lId) : std::nullopt;
}

std::optional<Id> unitMeant(const OfferQuestion& question) {
  const auto wanted = question.soFar.member(ParameterKey::unit);
  if (question.control.all && isAll(wanted)) return 0;
  const auto found = findUnit(question.db, wanted);
  return found ? std::optional(found->lId) : std::nullopt;
}

std::optional<Id> unitClassMeant(const OfferQuestion& question) {
  const auto wanted = question.soFar.member(ParameterKey::unitClass);
  if (wanted.text == otherMembers && wanted.id == 0) return 0;
  const auto found = findUnitClass(question.db, wanted);
  if (!found && wanted.text == otherMembers) return 0;
  return found ? std::optional(found->lId) : std::nullopt;
}

}  // namespace offers
}  // namespace tz
