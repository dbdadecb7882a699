// A member of the detail-ledger family as a record: what it selects, in which order, how it groups and how it captions.
// The engine does the rest.
#pragma once

#include <array>
#include <string_view>

#include "core/data/value.h"
#include "core/reports/conditions.h"

namespace tz {

// What a list member makes a block of. `project` is class and item, `item` an item of the class asked for.
enum class Entity { none, dept, person, unit, account, item, project };

// A level of grouping: its lines end in a row of this caption.
struct GroupLevel {
  Entity entity = Entity::none;
  std::string_view subtotal = {};
};

// What the opening balance is read from.
enum class OpeningSource {
  startPeriod,  // the balance records of the first period asked for
  yearStart,    // those of period 1 and the posted lines of the periods before the first one
};

// What a list member leaves out of its list.
enum class Listed {
  all,             // whoever has an opening or lines
  postedAccounts,  // accounts with lines of the unit up to the last period
  clerksUnits,     // units with lines of the clerk up to the last period; with "其它" units without any clerk as well
};

struct DetailMember {
  // The accounts of the lines and balances; empty: all accounts.
  Sql (*accounts)(const Conditions&) = nullptr;
  // The member's dimension keys as a condition on lines and balances, without the account condition.
  Sql (*dimension)(const Conditions&);
  // A further condition on lines alone, which balances cannot be tested for.
  Sql (*linesOnly)(const Conditions&) = nullptr;
  // A further condition on the balance records of the opening.
  std::string_view openingFilter = {};
  OpeningSource openingSource = OpeningSource::startPeriod;
  std::string_view openingCaption;
  // Of list members: outer level first; blocks are made of the innermost one.
  std::array<GroupLevel, 2> groups = {};
  Listed listed = Listed::all;
  // ORDER BY of posted and unposted lines, columns of the line as "s."; it begins with the columns of the groups.
  std::string_view postedOrder;
  std::string_view unpostedOrder;
  // Of multi-column ledgers: the flag that a sub-account must carry to have a column; 0: there are no such columns.
  char columnFlag = 0;

  [[nodiscard]] bool isList() const { return groups.front().entity != Entity::none; }
  // Whether one report holds blocks of several accounts, each with its own unit and currency.
  [[nodiscard]] bool listsAccounts() const {
    return groups[0].entity == Entity::account || groups[1].entity == Entity::account;
  }
};

// The accounts of a condition: the chosen one with all below it; those picked with all below them, or all.
[[nodiscard]] Sql chosenAccount(const Conditions& conditions);
[[nodiscard]] Sql pickedAccounts(const Conditions& conditions);

}  // namespace tz
