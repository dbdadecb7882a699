#include "core/ledger/listed_entities.h"

#include "core/data/line_query.h"
#include "core/ledger/member_filter.h"

namespace tz {
namespace {

// The ids in a column of the lines that meet a condition, up to the last period.
void collect(std::set<Id>& ids, std::string_view column, const Sql& filter, Session& session,
             const Conditions& conditions) {
  const auto read = [&](Book book) {
    const auto rows = session.db.Current().query(distinctStatement({book, filter, 0, conditions.to, {}}, column));
    while (rows->next()) ids.insert(rows->integer(0));
  };
  read(Book::posted);
  if (conditions.unposted) read(Book::unposted);
}

}  // namespace

ListedEntities::ListedEntities(const DetailMember& member, Session& session, const Conditions& conditions)
    : rule_(member.listed) {
  if (rule_ == Listed::postedAccounts) {
    collect(ids_, "s.lCodeId", memberFilter(member, conditions), session, conditions);
  }
  if (rule_ != Listed::clerksUnits) return;
  collect(ids_, "s.lEnterId", memberLineFilter(member, conditions), session, conditions);
  listsOthers_ = conditions.clerk.name.empty();
  if (!listsOthers_) return;
  collect(others_, "s.lEnterId", memberFilter(member, conditions) + " AND s.sName <> ''", session, conditions);
}

}  // namespace tz
