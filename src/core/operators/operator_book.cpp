#include "core/operators/operator_book.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

#include "core/data/record_io.h"
#include "core/output/display_text.h"
#include "core/reports/password_hash.h"

namespace tz {
namespace {

constexpr std::size_t longestName = 40;  // characters

using Operators = std::vector<KeptOperator>;
using Answer = OperatorBook::Answer;

std::size_t characters(std::string_view text) {
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continues));
}

const KeptOperator* named(const Operators& all, std::string_view name) {
  const auto found = std::ranges::find(all, name, [](const KeptOperator& one) { return one.who.name; });
  return found == all.end() ? nullptr : &*found;
}

bool keeps(const KeptOperator& one) { return one.who.everyRight && one.hasPassword; }

Refusal refusalText(std::string text) { return {.text = std::move(text)}; }

Refusal noSuchOperator(std::string_view name) { return refusalText(fmt::format("没有操作员“{}”", name)); }

// Where the ledger's last one with every right would go.
Answer keeperFault(const Operators& before, const Operators& after) {
  if (after.empty() || std::ranges::any_of(after, keeps)) return std::nullopt;
  return before.empty() ? refusalText("第一个操作员必须有全部权限，否则没有人能再增加操作员、分配权限")
                        : refusalText("还有其他操作员，总要留下一个有全部权限、能够登录的操作员；请先给另一人全部权限");
}

// Who was asked for a password has the rights of now, not those of his logon.
Answer keeperRefusal(const Operators& all, const Operator& by, const KeptOperator* own) {
  if (all.empty()) return std::nullopt;
  if (own != nullptr && own->who.id == by.id) return std::nullopt;
  const auto found = std::ranges::find(all, by.id, [](const KeptOperator& one) { return one.who.id; });
  if (found != all.end() && found->who.everyRight) return std::nullopt;
  return refusalText(by.id == 0 ? std::string("帐套刚刚有了操作员，请重新登录")
                                : fmt::format("操作员 {} 现在没有全部权限，不能管理操作员", by.name));
}

void writeRights(Connection& connection, Id id, const std::set<int>& rights) {
  std::vector<zRightInfo> records;
  for (const int right : rights) records.push_back({id, right});
  insertRecords(connection, records);
}

std::set<int> rightsAfter(std::set<int> rights, const RightsChange& change) {
  for (const int right : change.take) rights.erase(right);
  rights.insert(change.give.begin(), change.give.end());
  return rights;
}

}  // namespace

template <class Act>
Answer OperatorBook::keep(std::string_view name, bool orSelf, const Act& act) const {
  return keeper_.change([&]() -> Answer {
    const auto all = readOperators(keeper_.connection());
    const auto* meant = named(all, name);
    if (auto no = keeperRefusal(all, by_, orSelf ? meant : nullptr)) return no;
    if (auto no = act(all, meant)) return no;
    return keeperFault(all, readOperators(keeper_.connection()));
  });
}

std::vector<std::string_view> operatorTables() { return {zOperatorInfo::table, zRightInfo::table}; }

std::string operatorName(std::string_view typed) {
  constexpr std::string_view wideBlank = "\u3000";
  constexpr std::string_view blanks = " \t\r\n";
  for (bool more = true; more && !typed.empty();) {
    more = false;
    if (blanks.find(typed.front()) != std::string_view::npos) {
      typed.remove_prefix(1);
      more = true;
    } else if (blanks.find(typed.back()) != std::string_view::npos) {
      typed.remove_suffix(1);
      more = true;
    } else if (typed.starts_with(wideBlank)) {
      typed.remove_prefix(wideBlank.size());
      more = true;
    } else if (typed.ends_with(wideBlank)) {
      typed.remove_suffix(wideBlank.size());
      more = true;
    }
  }
  return std::string(typed);
}

std::optional<Refusal> nameFault(std::string_view name) {
  if (operatorName(name).empty()) return refusalText("操作员的姓名不能是空白");
  if (!measureText(name).clean) return refusalText("操作员的姓名中有不能显示的字符");
  if (characters(name) > longestName) return refusalText(fmt::format("操作员的姓名最多 {} 个字", longestName));
  return std::nullopt;
}

std::optional<Refusal> passwordFault(std::string_view name, std::string_view password) {
  if (password.empty()) return refusalText("口令不能是空白");
  if (!measureText(password).clean) return refusalText("口令中有不能输入的字符");
  if (characters(password) < shortestPassword) {
    return refusalText(fmt::format("口令太短：至少 {} 个字", shortestPassword));
  }
  if (password == name) return refusalText("口令不能与姓名相同");
  return std::nullopt;
}

std::string passwordRule() { return fmt::format("口令至少 {} 个字，不能与姓名相同", shortestPassword); }

std::vector<KeptOperator> readOperators(Connection& connection) {
  Operators all;
  std::map<Id, std::size_t> places;
  for (const auto& record : readRecords<zOperatorInfo>(connection, Sql("lId > 0 ORDER BY lId"))) {
    places[record.lId] = all.size();
    all.push_back({{.id = record.lId, .name = record.sName, .everyRight = record.bAll != 0, .rights = {}},
                   acceptableHash(record.sPassHash)});
  }
  for (const auto& record : readRecords<zRightInfo>(connection, {})) {
    const auto place = places.find(record.lOperatorId);
    if (place != places.end()) all[place->second].who.rights.insert(record.nRight);
  }
  return all;
}

OperatorBook::Answer OperatorBook::add(const NewOperator& wanted) const {
  const auto name = operatorName(wanted.name);
  if (auto no = nameFault(name)) return no;
  if (auto no = passwordFault(name, wanted.password)) return no;
  const auto hash = passwordHash(wanted.password);
  return keep(name, false, [&](const Operators&, const KeptOperator* there) -> Answer {
    if (there != nullptr) return refusalText(fmt::format("已经有操作员“{}”，请换一个姓名", name));
    const Id id = keeper_.connection().newIds(zOperatorInfo::table, 1);
    const bool everyRight = wanted.rights.everyRight.value_or(false);
    insertRecords(keeper_.connection(), std::vector{zOperatorInfo{id, name, hash, everyRight ? 1 : 0}});
    writeRights(keeper_.connection(), id, wanted.rights.give);
    return std::nullopt;
  });
}

OperatorBook::Answer OperatorBook::changeRights(std::string_view name, const RightsChange& change) const {
  return keep(name, false, [&](const Operators&, const KeptOperator* meant) -> Answer {
    if (meant == nullptr) return noSuchOperator(name);
    const bool everyRight = change.everyRight.value_or(meant->who.everyRight);
    keeper_.connection().execute(Sql("UPDATE zOperator SET bAll = ? WHERE lId = ?", everyRight ? 1 : 0, meant->who.id));
    keeper_.connection().execute(Sql("DELETE FROM zRight WHERE lOperatorId = ?", meant->who.id));
    writeRights(keeper_.connection(), meant->who.id, rightsAfter(meant->who.rights, change));
    return std::nullopt;
  });
}

OperatorBook::Answer OperatorBook::rename(std::string_view name, std::string_view newName) const {
  const auto wanted = operatorName(newName);
  if (auto no = nameFault(wanted)) return no;
  return keep(name, false, [&](const Operators& all, const KeptOperator* meant) -> Answer {
    if (meant == nullptr) return noSuchOperator(name);
    const auto* other = named(all, wanted);
    if (other != nullptr && other != meant) return refusalText(fmt::format("已经有操作员“{}”，请换一个姓名", wanted));
    keeper_.connection().execute(Sql("UPDATE zOperator SET sName = ? WHERE lId = ?", wanted, meant->who.id));
    return std::nullopt;
  });
}

OperatorBook::Answer OperatorBook::setPassword(std::string_view name, const std::string& password) const {
  if (auto no = passwordFault(name, password)) return no;
  const auto hash = passwordHash(password);
  return keep(name, true, [&](const Operators&, const KeptOperator* meant) -> Answer {
    if (meant == nullptr) return noSuchOperator(name);
    keeper_.connection().execute(Sql("UPDATE zOperator SET sPassHash = ? WHERE lId = ?", hash, meant->who.id));
    return std::nullopt;
  });
}

OperatorBook::Answer OperatorBook::remove(std::string_view name, bool openToEveryone) const {
  return keep(name, false, [&](const Operators& all, const KeptOperator* meant) -> Answer {
    if (meant == nullptr) return noSuchOperator(name);
    if (all.size() == 1 && !openToEveryone) return refusalText(removalQuestion(all, name).text);
    keeper_.connection().execute(Sql("DELETE FROM zRight WHERE lOperatorId = ?", meant->who.id));
    keeper_.connection().execute(Sql("DELETE FROM zOperator WHERE lId = ?", meant->who.id));
    return std::nullopt;
  });
}

Question removalQuestion(const std::vector<KeptOperator>& all, std::string_view name) {
  if (all.size() > 1) {
    return {.text = fmt::format("要删除操作员“{}”吗？他将不能再登录；操作日志里他做过的事仍然留着。", name),
            .yes = "删除",
            .no = "取消",
            .defaultsToNo = true};
  }
  return {.text = fmt::format("“{}”是最后一个操作员。删除以后，谁都不用登录就能打开这个帐套，并有全部权限。要删除吗？",
                              name),
          .yes = "删除",
          .no = "取消",
          .defaultsToNo = true};
}

}  // namespace tz
