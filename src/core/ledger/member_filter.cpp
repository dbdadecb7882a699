#include "core/ledger/member_filter.h"

namespace tz {

Sql chosenAccount(const Conditions& conditions) { return conditions.data->GetCodeSubString(conditions.account.sCode); }

Sql pickedAccounts(const Conditions& conditions) {
  if (conditions.accounts.empty()) return "lCodeId > 0";
  std::vector<Id> ids;
  for (const auto& account : conditions.accounts) {
    const auto below = conditions.data->GetCode_Include(account.sCode);
    ids.insert(ids.end(), below.begin(), below.end());
  }
  return inList("+lCodeId", ids);
}

Sql memberFilter(const DetailMember& member, const Conditions& conditions) {
  if (member.accounts == nullptr) return member.dimension(conditions);
  return member.accounts(conditions) + " AND " + member.dimension(conditions);
}

Sql memberLineFilter(const DetailMember& member, const Conditions& conditions) {
  const auto both = memberFilter(member, conditions);
  return member.linesOnly == nullptr ? both : both + " AND " + member.linesOnly(conditions);
}

LineQuery memberLines(const DetailMember& member, const Conditions& conditions, Book book) {
  const auto order = book == Book::posted ? member.postedOrder : member.unpostedOrder;
  return {book, memberLineFilter(member, conditions), conditions.from, conditions.to, order};
}

}  // namespace tz
