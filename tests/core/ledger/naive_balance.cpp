#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "core/ledger/naive_families.h"
#include "core/ledger/naive_format.h"
#include "core/ledger/naive_lines.h"

namespace tz::test::naive {
namespace {

struct Member {
  Side opening;
  Figures moved;

  [[nodiscard]] Side closing() const {
    Side all = opening;
    all.add(moved.debit);
    all.add(moved.credit, -1);
    return all;
  }
  void add(const Member& other) {
    opening.add(other.opening);
    moved.add(other.moved);
  }
};

// Of each group: whether it is "其它", its text (a project's class, a clerk), its id.
using MemberKey = std::vector<std::tuple<bool, std::string, Id>>;

class Table {
 public:
  Table(const Ledger& ledger, const Report& report, const Question& question)
      : ledger_(ledger), report_(report), question_(question), chosen_(choose(ledger, report, question)) {
    if (report.turns && question.turned) std::reverse(groups_.begin(), groups_.end());
    if (!report.deptAlone || chosen_.dept.lDeptId == 0) return;
    groups_ = {Entity::project};
    keys_ = "0n";
    closes_ = false;
  }

  Answer run() {
    answer_.refused = chosen_.refused;
    if (answer_.refused) return answer_;
    const auto format = formatOf(ledger_, report_, question_, chosen_);
    answer_.format = format.name;
    answer_.unit = format.unit;
    answer_.wrongUse = format.wrongUse;
    if (answer_.wrongUse) return answer_;
    const Lines lines(ledger_, report_, question_, chosen_);
    if (report_.headed) {
      groups_.resize(1);
      read(lines);
      heads_ = std::move(members_);
      members_.clear();
      groups_ = report_.groups;
    }
    read(lines);
    if (report_.headed) {
      writeHeaded();
    } else {
      write();
    }
    if (question_.to < question_.from) answer_.notices.push_back(0);
    const auto& last = chosen_.projectTo;
    if (!last.empty() && last < chosen_.projectFrom) answer_.notices.push_back(0);
    if (!question_.accountFrom.empty() || !question_.accountTo.empty()) rangeNotice(lines);
    return answer_;
  }

 private:
  // A range that holds no account at all says so.
  void rangeNotice(const Lines& lines) {
    for (const auto& account : ledger_.accounts) {
      if (lines.coversAccount(account.lId)) return;
    }
    answer_.notices.push_back(0);
  }

  // --- figures

  void read(const Lines& lines) {
    balances(lines);
    if (question_.unposted) unposted(lines);
  }

  void balances(const Lines& lines) {
    const int from = question_.from;
    const int to = question_.to;
    if (report_.opening == OpeningOf::lines) {
      for (const auto& entry : lines.posted(0, from - 1)) open(entry);
      for (const auto& entry : lines.posted(from, to)) move(entry);
      return;
    }
    for (const auto& record : lines.records(from, to)) members_[keyOf(record.of, "")].moved.add(record.moved);
    if (report_.opening == OpeningOf::firstRecord) {
      std::map<MemberKey, int> first;
      for (const auto& record : lines.records(from, to)) {
        const auto known = first.emplace(keyOf(record.of, ""), record.period).first;
        known->second = std::min(known->second, record.period);
      }
      for (const auto& record : lines.records(from, to)) {
        const auto key = keyOf(record.of, "");
        if (first.at(key) == record.period) members_[key].opening.add(record.opening);
      }
      return;
    }
    for (const auto& record : lines.records(0, std::max(from, to))) {
      auto& member = members_[keyOf(record.of, "")];
      bool latest = record.period <= from;
      for (const auto& other : lines.records(record.period + 1, from)) {
        latest = latest && (other.of.ids != record.of.ids || other.of.classId != record.of.classId);
      }
      if (!latest) continue;
      member.opening.add(record.opening);
      if (record.period == from) continue;
      member.opening.add(record.moved.debit);
      member.opening.add(record.moved.credit, -1);
    }
  }

  void unposted(const Lines& lines) {
    if (report_.earlierUnposted) {
      for (const auto& entry : lines.unpostedBefore(question_.from)) {
        members_[keyOf(entry.of, entry.line.sName)].opening.money +=
            entry.figures.debit.money - entry.figures.credit.money;
      }
    }
    for (const auto& entry : lines.unposted(question_.from, question_.to)) move(entry);
  }

  void open(const Entry& entry) {
    auto& opening = members_[keyOf(entry.of, entry.line.sName)].opening;
    opening.add(entry.figures.debit);
    opening.add(entry.figures.credit, -1);
  }
  void move(const Entry& entry) { members_[keyOf(entry.of, entry.line.sName)].moved.add(entry.figures); }

  MemberKey keyOf(const Dimensions& of, const std::string& clerk) const {
    MemberKey key;
    for (const auto group : groups_) {
      if (group == Entity::clerk) {
        key.emplace_back(clerk.empty(), clerk, 0);
      } else if (group == Entity::unitClass) {
        Id its = 0;
        for (const auto& unit : ledger_.units) its = unit.lId == of[Entity::unit] ? unit.lClassId : its;
        key.emplace_back(its == 0, "", its);
      } else if (report_.byCode) {
        key.emplace_back(false, nameOf(group, {false, "", of[group]}, true), of[group]);
      } else {
        key.emplace_back(false, group == Entity::project ? of.classId : "", of[group]);
      }
    }
    return key;
  }

  // --- rows

  void write() {
    Member all, group;
    const MemberKey* previous = nullptr;
    for (const auto& [key, member] : members_) {
      if (!listed(member.closing().money)) continue;
      if (previous != nullptr && previous->front() != key.front()) closeGroup(*previous, group);
      previous = &key;
      if (!question_.hideDetails || groups_.size() == 1) addMember(key, member);
      all.add(member);
      group.add(member);
    }
    if (previous != nullptr) closeGroup(*previous, group);
    addTotal(RowKind::total, all, nullptr);
  }

  // Each head before its own members.
  void writeHeaded() {
    Member all;
    for (const auto& [key, head] : heads_) {
      std::vector<std::pair<MemberKey, Member>> below;
      for (const auto& [memberKey, member] : members_) {
        if (memberKey[0] == key[0] && !question_.hideDetails && shown(member)) below.emplace_back(memberKey, member);
      }
      all.add(head);
      if (below.empty() && !shown(head)) continue;
      addMember(key, head);
      if (!below.empty()) answer_.rows.back().kind = RowKind::heading;
      for (const auto& [memberKey, member] : below) addMember(memberKey, member);
    }
    addTotal(RowKind::total, all, nullptr);
  }

  bool shown(const Member& member) const {
    if (!question_.hideZeros) return true;
    bool any = false;
    for (const auto& side : {member.opening, member.moved.debit, member.moved.credit, member.closing()}) {
      for (const double figure : {side.quantity, side.foreign, side.money}) any = any || std::fabs(figure) >= 0.0000005;
    }
    return any;
  }

  bool listed(double closing) const {
    const double amount = std::fabs(closing);
    const bool ranged = question_.least != 0 || question_.most != 0;
    if (ranged && (amount < question_.least || amount > question_.most)) return false;
    if (question_.side == "debit") return closing > 0.00001;
    return question_.side != "credit" || closing <= -0.00001;
  }

  void closeGroup(const MemberKey& key, Member& group) {
    if (report_.groupsClose && closes_) addTotal(RowKind::subtotal, group, &key);
    group = {};
  }

  static std::string sign(double money, double even, double above) {
    if (std::fabs(money) < even) return "平";
    return money > above ? "借" : "贷";
  }

  void addMember(const MemberKey& key, const Member& member) {
    Row row;
    for (std::size_t i = 0; i < keys_.size(); i += 2) row.cells.push_back(keyCell(key, i));
    addFigures(row, member, sign(member.opening.money, 0.0001, 0.0001), sign(member.closing().money, 0.00001, 0.00001));
    addLimit(row, &key, member.closing().money, groups_.size());
    answer_.rows.push_back(row);
  }

  // Empty for levels that the key does not go down to.
  nlohmann::json keyCell(const MemberKey& key, std::size_t place) const {
    const auto level = static_cast<std::size_t>(keys_[place] - '0');
    if (level >= key.size()) return {};
    const auto text = nameOf(groups_[level], key[level], keys_[place + 1] == 'c');
    return text.empty() ? nlohmann::json() : nlohmann::json(text);
  }

  void addTotal(RowKind kind, const Member& sums, const MemberKey* key) {
    Row row;
    row.kind = kind;
    // Without its rows a group names itself.
    row.captionAt = question_.hideDetails && key != nullptr ? 1 : 0;
    if (row.captionAt == 1) row.cells.push_back(keyCell(*key, 0));
    row.cells.emplace_back("caption");
    row.cells.resize(keys_.size() / 2);
    addFigures(row, sums, sign(sums.opening.money, 0.00001, 0), sign(sums.closing().money, 0.00001, 0));
    addLimit(row, key, sums.closing().money, 1);
    answer_.rows.push_back(row);
  }

  void addFigures(Row& row, const Member& member, const std::string& before, const std::string& after) const {
    const bool quantities = answer_.format.find("数量") != std::string::npos;
    const bool foreign = answer_.format.find("外币") != std::string::npos;
    const auto add = [&](const Side& side, bool absolute) {
      const auto put = [&](double figure) { row.cells.emplace_back(absolute ? std::fabs(figure) : figure + 0.0); };
      if (quantities) put(side.quantity);
      if (foreign) put(side.foreign);
      put(side.money);
    };
    row.cells.emplace_back(before);
    add(member.opening, true);
    add(member.moved.debit, false);
    add(member.moved.credit, false);
    row.cells.emplace_back(after);
    add(member.closing(), true);
  }

  // Of a row's unit or class among its first groups, or of the unit asked for; a total over all of them has none.
  void addLimit(Row& row, const MemberKey* key, double closing, std::size_t groups) const {
    if (!report_.limits || !question_.limits) return;
    double limit = 0;
    for (const auto& unit : ledger_.units) {
      if (key == nullptr) break;
      bool his = unit.lId == chosen_.unit.lId;
      for (std::size_t i = 0; i < groups; ++i) {
        const auto id = std::get<Id>((*key)[i]);
        his = his || (groups_[i] == Entity::unit && unit.lId == id);
        his = his || (groups_[i] == Entity::unitClass && unit.lClassId == id);
      }
      if (his) limit += unit.mCredit;
    }
    const double beyond = std::fabs(closing) - limit;
    row.cells.push_back(limit == 0 ? nlohmann::json() : nlohmann::json(limit));
    row.cells.push_back(limit == 0 || beyond <= 0 ? nlohmann::json() : nlohmann::json(beyond));
  }

  std::string nameOf(Entity group, const MemberKey::value_type& member, bool code) const {
    const auto& [isOther, text, id] = member;
    const auto unknown = "（编号 " + std::to_string(id) + "）";
    const auto find = [&, wanted = id](const auto& records, auto its, auto name) {
      for (const auto& record : records) {
        if (record.*its == wanted) return record.*name;
      }
      return unknown;
    };
    switch (group) {
      case Entity::account:
        return find(ledger_.accounts, &CodeInfo::lId, code ? &CodeInfo::sCode : &CodeInfo::sName);
      case Entity::dept:
        return id == 0 ? "" : find(ledger_.depts, &DeptInfo::lDeptId, &DeptInfo::sDeptName);
      case Entity::person:
        return find(ledger_.persons, &PersonInfo::lId, &PersonInfo::sName);
      case Entity::unit:
        return find(ledger_.units, &EnterInfo::lId, &EnterInfo::sEnterName);
      case Entity::unitClass:
        return isOther ? "其它" : find(ledger_.unitClasses, &EnterClassInfo::lId, &EnterClassInfo::sName);
      case Entity::clerk:
        return isOther ? "其它" : text;
      case Entity::project:
        break;
    }
    for (const auto& item : ledger_.items) {
      if (item.classId == text && item.id == id) return item.name;
    }
    return unknown;
  }

  const Ledger& ledger_;
  const Report& report_;
  const Question& question_;
  const Chosen chosen_;
  std::vector<Entity> groups_ = report_.groups;
  std::string_view keys_ = report_.keys;
  bool closes_ = true;
  std::map<MemberKey, Member> members_, heads_;
  Answer answer_;
};

}  // namespace

Answer balanceTable(const Ledger& ledger, const Report& report, const Question& question) {
  return Table(ledger, report, question).run();
}

}  // namespace tz::test::naive
