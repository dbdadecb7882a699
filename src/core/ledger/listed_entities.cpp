#include "core/ledger/listed_entities.h"

#include "core/data/line_query.h"

namespace tz {
namespace {

// The ids in a column of the lines that meet a condition, up to the last period.
void collect(std::set<Id>& ids, std::string_view column, const Sql& filter, Session& session,
             const Conditions& conditions) {
  const auto read = [&](Book book) {
    const auto rows = session.db.Current().query(distinctStatement(
        {.book = book, .filter = filter, .firstPeriod = 0, .lastPeriod = conditions.to, .order = {}}, column));
    while (rows->next()) ids.insert(rows->integer(0));
  };
  read(Book::posted);
  if (conditions.unposted) read(Book::unposted);
}

}  // namespace

ListedEntities::ListedEntities(Listed rule, const Selection& selection, Session& session,
                               const Conditions& conditions) {
  if (rule == Listed::all) return;
  if (rule == Listed::postedAccounts) {
    level_ = levelOf(selection.groups, Entity::account);
    collect(ids_, "s.lCodeId", commonFilter(selection, conditions), session, conditions);
    return;
  }
  level_ = levelOf(selection.groups, Entity::unit);
  collect(ids_, "s.lEnterId", lineFilter(selection, conditions), session, conditions);
  listsOthers_ = conditions.clerk.name.empty();
  if (!listsOthers_) return;
  collect(others_, "s.lEnterId", commonFilter(selection, conditions) + " AND s.sName <> ''", session, conditions);
}

}  // namespace tz
