// What the lines and balances of a member have in common.
#pragma once

#include "core/data/line_query.h"
#include "core/ledger/detail_member.h"
#include "core/reports/session.h"

namespace tz {

// The account condition and the dimension keys, as they apply to lines and balances alike.
[[nodiscard]] Sql memberFilter(const DetailMember& member, const Conditions& conditions);
// The same with what applies to lines alone.
[[nodiscard]] Sql memberLineFilter(const DetailMember& member, const Conditions& conditions);
// The lines of the periods asked for.
[[nodiscard]] LineQuery memberLines(const DetailMember& member, const Conditions& conditions, Book book);

}  // namespace tz
