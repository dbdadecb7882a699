#include "core/ledger/naive_dialog.h"

#include <algorithm>
#include <set>

namespace tz::test::naive {
namespace {

constexpr const char* others = "其它";

// The record of the lowest id that meets a condition.
template <class Record, class Meets>
std::optional<Record> first(const std::vector<Record>& records, Meets meets) {
  std::optional<Record> best;
  for (const auto& record : records) {
    if (meets(record) && (!best || record.lId < best->lId)) best = record;
  }
  return best;
}

template <class Record>
std::optional<Record> named(const std::vector<Record>& records, std::string Record::*name, const std::string& wanted) {
  return first(records, [&](const Record& record) { return record.*name == wanted; });
}

// Asks in the dialog's order; each step that refuses ends the asking.
class Asking {
 public:
  Asking(const Ledger& ledger, const Report& report, const Question& question)
      : ledger_(ledger), report_(report), question_(question) {}

  Chosen run() {
    std::ignore = classesThere() && accounts() && dept() && person() && unit() && unitClass() && clerk() &&
                  classOfAccount() && project() && deptOrAll() && classChosen() && classOfList() && amountsAsked() &&
                  unitClasses() && accountRange() && range() && (report_.accounts.which != Accounts::list || take());
    return chosen_;
  }

 private:
  bool refuse(ParameterKey about) {
    chosen_.refused = about;
    return false;
  }

  bool unitClasses() {
    return !report_.unitClassesNeeded || !ledger_.unitClasses.empty() || refuse(ParameterKey::account);
  }

  bool amountsAsked() { return !report_.amounts || question_.most >= question_.least || refuse(ParameterKey::maximum); }

  bool classesThere() {
    return !report_.classesNeeded || !ledger_.classes.empty() || refuse(ParameterKey::projectClass);
  }

  bool accounts() {
    if (report_.accounts.which == Accounts::none) return true;
    const auto any = first(ledger_.accounts, [&](const CodeInfo& account) { return offers(report_, account); });
    if (!any) return refuse(ParameterKey::account);
    return report_.accounts.which == Accounts::list || take();
  }

  bool take() {
    for (const auto& code : question_.accounts) {
      const auto found = named(ledger_.accounts, &CodeInfo::sCode, code);
      if (!found || !offers(report_, *found)) return refuse(ParameterKey::account);
      chosen_.accounts.push_back(*found);
    }
    return true;
  }

  template <class Meets>
  bool active(Meets meets) const {
    return std::any_of(ledger_.balances.begin(), ledger_.balances.end(), meets) ||
           (question_.unposted && std::any_of(ledger_.unpostedLines.begin(), ledger_.unpostedLines.end(), meets));
  }

  // A name that a field asks for.
  template <class Record>
  bool look(ParameterKey key, const std::vector<Record>& records, std::string Record::*name, const std::string& wanted,
            Record& found) {
    const auto record = named(records, name, wanted);
    if (record) found = *record;
    return record || refuse(key);
  }

  // One department, of a field or of a list; that of the project area comes behind the item.
  bool dept() {
    if (report_.dept == Dept::ofList) return deptOfList();
    if (report_.dept == Dept::notAsked || report_.dept == Dept::orAll) return true;
    if (!look(ParameterKey::dept, ledger_.depts, &DeptInfo::sDeptName, question_.dept, chosen_.dept)) return false;
    if (report_.dept == Dept::given) return true;
    const bool personsOnly = report_.dept == Dept::personsActive;
    const bool met = active([&](const auto& record) {
      return record.lDeptId == chosen_.dept.lDeptId && (!personsOnly || record.lPersonId > 0);
    });
    return met || refuse(ParameterKey::dept);
  }

  // A list in which something always stands: the first entry when none is named.
  template <class Record>
  bool pick(ParameterKey key, const std::vector<Record>& offered, std::string Record::*name, const std::string& wanted,
            Record& found) {
    for (const auto& record : offered) {
      if (record.*name != wanted && !wanted.empty()) continue;
      found = record;
      return true;
    }
    return refuse(key);
  }

  bool deptOfList() {
    auto depts = ledger_.depts;  // by code
    std::sort(depts.begin(), depts.end(), [](const auto& a, const auto& b) { return a.sDeptId < b.sDeptId; });
    if (question_.dept.empty()) return pick(ParameterKey::dept, depts, &DeptInfo::sDeptName, "", chosen_.dept);
    return pick(ParameterKey::dept, ledger_.depts, &DeptInfo::sDeptName, question_.dept, chosen_.dept);  // by id
  }

  bool deptOrAll() {
    if (report_.dept != Dept::orAll) return true;
    if (question_.dept.empty() || question_.dept == "全部") return true;
    return look(ParameterKey::dept, ledger_.depts, &DeptInfo::sDeptName, question_.dept, chosen_.dept);
  }

  bool person() {
    if (!report_.person) return true;
    const auto found = first(ledger_.persons, [&](const PersonInfo& candidate) {
      return candidate.sName == question_.person && candidate.lDeptId == chosen_.dept.lDeptId;
    });
    if (!found) return refuse(ParameterKey::person);
    chosen_.person = *found;
    if (!report_.personActive) return true;
    const bool met = active(
        [&](const auto& record) { return record.lDeptId == chosen_.dept.lDeptId && record.lPersonId == found->lId; });
    return met || refuse(ParameterKey::person);
  }

  bool unit() {
    if (!report_.unit && !(report_.unitOrAll && !question_.unit.empty())) return true;
    return look(ParameterKey::unit, ledger_.units, &EnterInfo::sEnterName, question_.unit, chosen_.unit);
  }

  bool unitClass() {
    if (!report_.unitClass) return true;
    auto offered = ledger_.unitClasses;
    offered.push_back({0, others});
    return pick(ParameterKey::unitClass, offered, &EnterClassInfo::sName, question_.unitClass, chosen_.unitClass);
  }

  // Those named on lines of the account or below it, by name, then "其它".
  bool clerk() {
    if (!report_.clerk) return true;
    std::set<std::string> clerks;
    const auto collect = [&](const auto& lines) {
      for (const auto& line : lines) {
        const auto found =
            first(ledger_.accounts, [&](const CodeInfo& account) { return account.lId == line.lCodeId; });
        const bool covered = found && found->sCode.starts_with(chosen_.accounts.front().sCode);
        if (covered && !line.sName.empty()) clerks.insert(line.sName);
      }
    };
    collect(ledger_.postedLines);
    collect(ledger_.unpostedLines);
    std::vector<PersonInfo> offered;
    for (const auto& clerk : clerks) offered.push_back({0, "", clerk, 0});
    offered.push_back({0, "", others, 0});
    PersonInfo found;
    if (!pick(ParameterKey::clerk, offered, &PersonInfo::sName, question_.clerk, found)) return false;
    if (found.sName != others) chosen_.clerk = found.sName;
    return true;
  }

  // The classes of the account, or where it has none those of the accounts below it.
  bool classOfAccount() {
    if (!report_.classOfAccount) return true;
    const auto& account = chosen_.accounts.front();
    std::set<std::string> own, below;
    for (const auto& link : ledger_.classesOfAccounts) {
      if (link.lCodeId == account.lId) own.insert(link.sItemId);
      for (const auto& other : ledger_.accounts) {
        if (other.lId == link.lCodeId && other.sCode.starts_with(account.sCode)) below.insert(link.sItemId);
      }
    }
    const auto& offered = own.empty() ? below : own;
    const auto carried = [&](const ProjClassInfo& candidate) { return offered.contains(candidate.sItemId); };
    const auto found = first(ledger_.classes, [&](const ProjClassInfo& candidate) {
      return carried(candidate) && (question_.projectClass.empty() || candidate.sItemId == question_.projectClass);
    });
    if (found) chosen_.classId = found->sItemId;
    return first(ledger_.classes, carried) || refuse(ParameterKey::projectClass);
  }

  // Behind the department.
  bool classChosen() {
    return !report_.classOfAccount || !chosen_.classId.empty() || refuse(ParameterKey::projectClass);
  }

  bool classOfList() {
    if (!report_.classListed) return true;
    const auto found = first(ledger_.classes, [&](const ProjClassInfo& candidate) {
      return question_.projectClass.empty() || candidate.sItemId == question_.projectClass;
    });
    if (found) chosen_.classId = found->sItemId;
    return found || refuse(ParameterKey::projectClass);
  }

  bool project() {
    if (!report_.project) return true;
    const bool firstOfAll = !report_.classNamed;
    if (question_.project.empty()) return refuse(ParameterKey::project);
    const auto found = first(ledger_.classes, [&](const ProjClassInfo& candidate) {
      return (firstOfAll && question_.projectClass.empty()) || candidate.sItemId == question_.projectClass;
    });
    if (!found) return refuse(ParameterKey::projectClass);
    chosen_.classId = found->sItemId;
    for (const auto& item : ledger_.items) {
      if (item.classId != found->sItemId || item.name != question_.project) continue;
      if (chosen_.project.id == 0 || item.id < chosen_.project.id) chosen_.project = item;
    }
    return chosen_.project.id != 0 || refuse(ParameterKey::project);
  }

  // Each end is an account of units.
  bool accountRange() {
    if (!report_.accountRange) return true;
    for (const auto& [key, end] : {std::pair(ParameterKey::accountFrom, question_.accountFrom),
                                   {ParameterKey::accountTo, question_.accountTo}}) {
      const auto found = named(ledger_.accounts, &CodeInfo::sCode, end);
      if (!end.empty() && (!found || !found->keeps('B'))) return refuse(key);
    }
    return true;
  }

  // Each end is the code of an item.
  bool range() {
    if (report_.some.find('i') == std::string_view::npos) return true;
    chosen_.projectFrom = question_.projectFrom;
    chosen_.projectTo = question_.projectTo;
    for (const auto key : {ParameterKey::projectFrom, ParameterKey::projectTo}) {
      const auto& end = key == ParameterKey::projectFrom ? question_.projectFrom : question_.projectTo;
      const bool known = std::any_of(ledger_.items.begin(), ledger_.items.end(), [&](const Item& item) {
        return item.code == end && classDefined(item.classId) &&
               (chosen_.classId.empty() || item.classId == chosen_.classId);
      });
      if (!end.empty() && !known) return refuse(key);
    }
    return true;
  }

  bool classDefined(const std::string& id) const {
    return first(ledger_.classes, [&](const ProjClassInfo& candidate) { return candidate.sItemId == id; }).has_value();
  }

  const Ledger& ledger_;
  const Report& report_;
  const Question& question_;
  Chosen chosen_;
};

}  // namespace

bool offers(const Report& report, const CodeInfo& account) {
  const std::string flags = report.accounts.flags;
  const bool written = flags.starts_with('=');
  if (written && (flags + " ").find(" " + account.sAssBook + " ") == std::string::npos) return false;
  for (const char flag : flags) {
    if (!written && !account.keeps(flag)) return false;
  }
  if (report.accounts.which == Accounts::leaf) return account.bEnd != 0;
  return report.accounts.which != Accounts::parent || account.bEnd == 0;
}

Chosen choose(const Ledger& ledger, const Report& report, const Question& question) {
  return Asking(ledger, report, question).run();
}

}  // namespace tz::test::naive
