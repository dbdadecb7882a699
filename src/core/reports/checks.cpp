#include <algorithm>
#include <utility>

#include "core/reports/members.h"
#include "core/reports/offers.h"

namespace tz {
namespace {

std::string text(const CheckContext& context, ParameterKey key) { return context.request.text(key); }

// Balances, or with unposted vouchers lines as well, of persons that meet the condition. The order keeps a server on
// the index: it takes such records to stand all over the table and would read on until it comes upon one.
bool anyActivity(const CheckContext& context, const Sql& condition) {
  const auto& db = context.session.db;
  const auto where = condition + " ORDER BY lDeptId, lPersonId";
  if (db.Exists("AssAcc", where)) return true;
  return context.conditions.unposted && db.Exists("UnregSub", where);
}

ComboList offerOf(const CheckContext& context, ParameterKey key) {
  const auto* control = controlOf(context.dialog, key);
  if (control == nullptr) return {};
  return offered({context.dialog, *control, key, context.request, context.session.db, *context.conditions.data});
}

// What a list offers, as the command line tells it.
Unlisted unlisted(ParameterKey about, const ComboList& offer) {
  Unlisted result{about, {}};
  for (const auto& entry : offer) result.offered.push_back(valueOf(about, entry.text));
  return result;
}

// The entry that the request names, without a value the first; null for one that is not offered.
const ComboEntry* chosenIn(const ComboList& offer, const CheckContext& context, ParameterKey key) {
  const auto* control = controlOf(context.dialog, key);
  if (offer.empty() || control == nullptr) return nullptr;
  if (text(context, key).empty()) return &offer.front();
  const int place =
      placeIn(offer, {context.dialog, *control, key, context.request, context.session.db, *context.conditions.data});
  return place < 0 ? nullptr : &offer[static_cast<std::size_t>(place)];
}

const std::vector<PersonInfo>& personsNamed(CheckContext& context) {
  if (!context.persons) {
    context.persons = findPersons(context.session.db, context.request.member(ParameterKey::person));
  }
  return *context.persons;
}

const std::vector<ProjClassInfo>& projectClasses(const CheckContext& context) {
  return context.conditions.data->ProjClassTable();
}

// An end of a range may be a code, or code and name as the combos show them.
std::string rangeEnd(const CheckContext& context, ParameterKey key) {
  return CGetData::GetCode_Separator(text(context, key));
}

}  // namespace

namespace checks {

bool deptGiven(CheckContext& context) { return !text(context, ParameterKey::dept).empty(); }

bool deptKnown(CheckContext& context) {
  auto found = findDept(context.session.db, context.request.member(ParameterKey::dept));
  if (!found) return false;
  context.conditions.dept = std::move(*found);
  return true;
}

bool deptActive(CheckContext& context) {
  return anyActivity(context, Sql("lDeptId = ?", context.conditions.dept.lDeptId));
}

bool deptPersonsActive(CheckContext& context) {
  return anyActivity(context, Sql("lDeptId = ? AND lPersonId > 0", context.conditions.dept.lDeptId));
}

bool deptKnownOrAll(CheckContext& context) {
  const auto wanted = context.request.member(ParameterKey::dept);
  if (!wanted.text.empty() && wanted.text != allMembers) return deptKnown(context);
  // One of that name, picked from a list.
  if (wanted.id != 0 && deptKnown(context) && context.conditions.dept.lDeptId == wanted.id) return true;
  context.conditions.dept = {};
  context.conditions.dept.sDeptName = allMembers;
  return true;
}

bool personGiven(CheckContext& context) { return !text(context, ParameterKey::person).empty(); }

bool personKnown(CheckContext& context) { return !personsNamed(context).empty(); }

bool personOfDept(CheckContext& context) {
  const auto& named = personsNamed(context);
  const auto found = std::ranges::find(named, context.conditions.dept.lDeptId, &PersonInfo::lDeptId);
  if (found == named.end()) return false;
  context.conditions.person = *found;
  return true;
}

bool personActive(CheckContext& context) {
  return anyActivity(
      context, Sql("lDeptId = ? AND lPersonId = ?", context.conditions.dept.lDeptId, context.conditions.person.lId));
}

bool unitGiven(CheckContext& context) { return !text(context, ParameterKey::unit).empty(); }

bool unitKnown(CheckContext& context) {
  auto found = findUnit(context.session.db, context.request.member(ParameterKey::unit));
  if (!found) return false;
  context.conditions.unit = std::move(*found);
  return true;
}

bool unitKnownOrAll(CheckContext& context) {
  const auto wanted = context.request.member(ParameterKey::unit);
  const bool all = wanted.text.empty() || (wanted.text == allMembers && wanted.id == 0);
  return all || unitKnown(context);
}

bool unitsDefined(CheckContext& context) { return context.session.db.Exists("Enter", "lId > 0"); }

bool unitClassesDefined(CheckContext& context) { return context.session.db.Exists("EnterClass", "lId > 0"); }

bool accountGiven(CheckContext& context) { return !context.conditions.account.sCode.empty(); }

bool accountsOffered(CheckContext& context) { return !accountsOf(context.dialog, context.session.db).empty(); }

bool classesDefined(CheckContext& context) { return !projectClasses(context).empty(); }

bool classChosen(CheckContext& context) {
  const auto wanted = CGetData::GetCode_Separator(text(context, ParameterKey::projectClass));
  const auto& classes = projectClasses(context);
  const auto found = std::ranges::find(classes, wanted, &ProjClassInfo::sItemId);
  if (found == classes.end()) return false;
  context.conditions.projectClass = *found;
  return true;
}

bool classOrFirst(CheckContext& context) {
  if (!text(context, ParameterKey::projectClass).empty()) return classChosen(context);
  const auto& classes = projectClasses(context);
  if (classes.empty()) return false;
  context.conditions.projectClass = classes.front();
  return true;
}

bool classOfAccount(CheckContext& context) {
  auto& conditions = context.conditions;
  const auto classes = classesOfAccount(context.session.db, *conditions.data, conditions.account);
  if (classes.empty()) return false;
  conditions.projectClass = classes.front();
  return true;
}

bool deptsDefined(CheckContext& context) { return context.session.db.Exists("Dept", "lId > 0"); }

bool classHasProjects(CheckContext& context) {
  if (choices::projectClass(context)) return true;  // refused by its own name
  return !context.conditions.data->ItemTable(context.conditions.projectClass.sItemId).empty();
}

bool projectGiven(CheckContext& context) { return !text(context, ParameterKey::project).empty(); }

bool projectKnown(CheckContext& context) {
  auto& conditions = context.conditions;
  auto found =
      findItem(*conditions.data, conditions.projectClass.sItemId, context.request.member(ParameterKey::project));
  if (!found) return false;
  conditions.project = std::move(*found);
  return true;
}

bool accountsPicked(CheckContext& context) {
  auto& accounts = context.conditions.accounts;
  const auto picked = context.request.list(ParameterKey::account);
  const auto offered = std::exchange(accounts, {});
  for (const auto& one : picked) {
    const auto found = std::ranges::find(offered, CGetData::GetCode_Separator(one), &CodeInfo::sCode);
    if (found == offered.end()) return false;
    accounts.push_back(*found);
  }
  return true;
}

bool rangeInOrder(CheckContext& context) {
  return context.request.amount(ParameterKey::maximum) >= context.request.amount(ParameterKey::minimum);
}

}  // namespace checks

namespace choices {

std::optional<Unlisted> dept(CheckContext& context) {
  const auto offer = offerOf(context, ParameterKey::dept);
  const auto* chosen = chosenIn(offer, context, ParameterKey::dept);
  const auto* found = chosen == nullptr ? nullptr : context.conditions.data->GetDEPTINFOByDeptId(chosen->datum);
  if (found == nullptr) return unlisted(ParameterKey::dept, offer);
  context.conditions.dept = *found;
  return std::nullopt;
}

std::optional<Unlisted> deptOrAll(CheckContext& context) {
  if (checks::deptKnownOrAll(context)) return std::nullopt;
  return unlisted(ParameterKey::dept, offerOf(context, ParameterKey::dept));
}

std::optional<Unlisted> unitClass(CheckContext& context) {
  const auto offer = offerOf(context, ParameterKey::unitClass);
  const auto* chosen = chosenIn(offer, context, ParameterKey::unitClass);
  if (chosen == nullptr) return unlisted(ParameterKey::unitClass, offer);
  context.conditions.unitClass = {chosen->datum, chosen->text};
  return std::nullopt;
}

std::optional<Unlisted> clerk(CheckContext& context) {
  const auto offer = offerOf(context, ParameterKey::clerk);
  const auto* chosen = chosenIn(offer, context, ParameterKey::clerk);
  if (chosen == nullptr) return unlisted(ParameterKey::clerk, offer);
  context.conditions.clerk.name = chosen->datum == 0 ? "" : chosen->text;
  return std::nullopt;
}

std::optional<Unlisted> projectClass(CheckContext& context) {
  const bool taken = !context.conditions.projectClass.sItemId.empty();
  if (taken && text(context, ParameterKey::projectClass).empty()) return std::nullopt;
  const auto offer = offerOf(context, ParameterKey::projectClass);
  const auto* chosen = chosenIn(offer, context, ParameterKey::projectClass);
  if (chosen == nullptr) return unlisted(ParameterKey::projectClass, offer);
  context.conditions.projectClass = *std::ranges::find(
      projectClasses(context), valueOf(ParameterKey::projectClass, chosen->text), &ProjClassInfo::sItemId);
  return std::nullopt;
}

std::optional<Unlisted> accountRange(CheckContext& context) {
  const auto offer = offerOf(context, ParameterKey::accountFrom);
  const auto from = rangeEnd(context, ParameterKey::accountFrom);
  const auto to = rangeEnd(context, ParameterKey::accountTo);
  for (const auto& [key, code] : {std::pair(ParameterKey::accountFrom, from), {ParameterKey::accountTo, to}}) {
    const auto isOffered = [&, about = key, wanted = code](const ComboEntry& one) {
      return valueOf(about, one.text) == wanted;
    };
    if (!code.empty() && std::ranges::none_of(offer, isOffered)) return Unlisted{key, {}};
  }
  auto& range = context.conditions.accountRange;
  range.all = from.empty() && to.empty();
  if (range.all) return std::nullopt;
  for (auto& account : context.session.db.Code_GetInfo("lId > 0 ORDER BY sCode, lId")) {
    const auto& code = account.sCode;
    const bool reached = to.empty() || code <= to || code.starts_with(to);
    if (code >= from && reached) range.accounts.push_back(std::move(account));
  }
  return std::nullopt;
}

std::optional<Unlisted> projectRange(CheckContext& context) {
  auto& conditions = context.conditions;
  auto classes = projectClasses(context);
  if (const auto& asked = conditions.projectClass.sItemId; !asked.empty()) classes = {conditions.projectClass};
  for (const auto key : {ParameterKey::projectFrom, ParameterKey::projectTo}) {
    const auto code = rangeEnd(context, key);
    const bool known = std::ranges::any_of(classes, [&](const ProjClassInfo& itemClass) {
      return conditions.data->GetItemIdByCode(itemClass.sItemId, code) != 0;
    });
    if (!code.empty() && !known) return Unlisted{key, {}};
  }
  const auto from = rangeEnd(context, ParameterKey::projectFrom);
  const auto to = rangeEnd(context, ParameterKey::projectTo);
  conditions.projects.all = from.empty() && to.empty();
  if (conditions.projects.all) return std::nullopt;
  for (const auto& itemClass : classes) {
    ProjectRange::Items items{itemClass.sItemId, {}};
    for (const auto& item : conditions.data->ItemTable(itemClass.sItemId)) {
      const auto& code = item.fields[0];
      if (code >= from && (to.empty() || code <= to)) items.ids.push_back(item.lId);
    }
    conditions.projects.classes.push_back(std::move(items));
  }
  return std::nullopt;
}

}  // namespace choices
}  // namespace tz
