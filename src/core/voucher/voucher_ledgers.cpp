#include "core/voucher/voucher_ledgers.h"

namespace tz {
namespace {

constexpr int personLedger = 10190;
constexpr int unitLedger = 10208;
constexpr int deptLedger = 10231;
constexpr int itemLedger = 10221;

// What every ledger of a line is asked for.
Request commonConditions(const Voucher& voucher, const VoucherLine& line) {
  Request request;
  request.set(ParameterKey::account, line.account.sCode + " " + line.account.sName);
  for (const auto key : {ParameterKey::from, ParameterKey::to}) {
    request.set(key, std::to_string(voucher.head.byPeroid));
  }
  if (voucher.book == Book::unposted) request.set(ParameterKey::unposted, "1");
  return request;
}

}  // namespace

std::vector<VoucherLedger> ledgersOf(const Voucher& voucher, const VoucherLine& line) {
  std::vector<VoucherLedger> ledgers;
  if (line.account.lId == 0) return ledgers;
  const Request common = commonConditions(voucher, line);
  const auto add = [&](int command, const VoucherMember& member) -> Request& {
    const LineId here{.book = voucher.book, .line = line.entry.lId, .voucher = line.entry.lTieId};
    ledgers.push_back({{.command = command, .conditions = common, .line = here}, member.name});
    return ledgers.back().target.conditions;
  };
  const auto name = [](Request& request, ParameterKey key, const VoucherMember& member) {
    request.choose(key, {member.name, member.id});
  };
  // A member that the archives do not hold cannot be asked for.
  const auto& [dept, person, unit, item] = std::tie(line.dept, line.person, line.unit, line.item);
  if (line.account.keeps('A') && !person.name.empty() && !dept.name.empty()) {
    Request& request = add(personLedger, person);
    name(request, ParameterKey::dept, dept);
    name(request, ParameterKey::person, person);
  }
  if (line.account.keeps('B') && !unit.name.empty()) name(add(unitLedger, unit), ParameterKey::unit, unit);
  if (line.account.keeps('C') && !dept.name.empty()) name(add(deptLedger, dept), ParameterKey::dept, dept);
  if (line.account.keeps('D') && !item.name.empty()) {
    Request& request = add(itemLedger, item);
    request.set(ParameterKey::projectClass, line.entry.sItemId);
    name(request, ParameterKey::project, item);
  }
  return ledgers;
}

}  // namespace tz
