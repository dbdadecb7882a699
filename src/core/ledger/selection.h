// Which lines and balances a report reads, in which groups and which order; whatever family it belongs to.
#pragma once

#include <string_view>

#include "core/data/line_query.h"
#include "core/ledger/group_levels.h"
#include "core/reports/conditions.h"

namespace tz {

struct Selection {
  // The accounts of the lines and balances; none: all accounts.
  Sql (*accounts)(const Conditions&) = nullptr;
  // The dimension keys as a condition on lines and balances, without the account condition.
  Sql (*dimension)(const Conditions&) = nullptr;
  // A further condition on lines alone, which balances cannot be tested for.
  Sql (*linesOnly)(const Conditions&) = nullptr;
  // A further condition on balance records.
  std::string_view balancesOnly = {};
  // Blocks are made of the innermost level; none: the report is one block.
  GroupLevels groups = {};
  // The order of lines within a block, columns of the line as "s."; voucher and line id continue it.
  std::string_view order = {};
  std::string_view unpostedOrder = {};  // where unposted lines stand otherwise
  // No index has this order, so the database sorts the lines: for reports whose lines are few.
  bool sorted = false;
};

// The accounts of a condition: the chosen one with all below it; those picked with all below them, or all.
[[nodiscard]] Sql chosenAccount(const Conditions& conditions);
[[nodiscard]] Sql pickedAccounts(const Conditions& conditions);

// Those of a range; all where none was asked for.
[[nodiscard]] Sql accountsInRange(const Conditions& conditions);

// Those with department accounting: what is posted on person accounts carries a department too.
[[nodiscard]] Sql deptAccounts(const Conditions& conditions);

// The item asked for, and what of it is in the department asked for; none: in all.
[[nodiscard]] Sql oneItem(const Conditions& conditions);
[[nodiscard]] Sql oneItemOfDept(const Conditions& conditions);
// The items asked for, of the class asked for.
[[nodiscard]] Sql itemsOfClass(const Conditions& conditions);
// The items of a range; all that there are where none was asked for.
[[nodiscard]] Sql projectsOf(const ProjectRange& range);

// The account condition and the dimension keys, as they apply to lines and balances alike.
[[nodiscard]] Sql commonFilter(const Selection& selection, const Conditions& conditions);
// The same with what applies to lines alone, and to balance records alone.
[[nodiscard]] Sql lineFilter(const Selection& selection, const Conditions& conditions);
[[nodiscard]] Sql balanceFilter(const Selection& selection, const Conditions& conditions);

// ORDER BY of a book's lines: by group, then within the block.
[[nodiscard]] std::string lineOrder(const Selection& selection, Book book);
// The lines of the periods asked for.
[[nodiscard]] LineQuery selectedLines(const Selection& selection, const Conditions& conditions, Book book);

}  // namespace tz
