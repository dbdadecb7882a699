// How a table is searched for the row of a member: the dialog that asks for whom, which columns tell it, and what is
// said when no row does.
#pragma once

#include <cstdint>

#include "core/grid/tz_grid.h"
#include "core/reports/dialog_spec.h"

namespace tz {

struct FindRule {
  static constexpr std::size_t mostFields = 2;

  DialogSpec dialog;  // of controls that ask for members, without checks: what nobody is called is not found
  // For each control the column whose texts are compared with what was chosen: an account's code, any other's name.
  Few<int, mostFields> columns;
  Message notFound;
};
// By the conditions that are shown: groupings have their columns in other orders.
using FindOf = const FindRule& (*)(const Conditions&);

template <const FindRule& rule>
const FindRule& always(const Conditions& /*conditions*/) {
  return rule;
}

namespace messages {
inline constexpr Message nothingToFind{"没有可查找的记录"};
}  // namespace messages

// The first row whose texts are, byte for byte, those of the members asked for; -1 for none. Of two fields one may be
// left empty. Throws DbError when a member's name cannot be read.
[[nodiscard]] std::int64_t findRow(const CTzGrid& grid, const FindRule& rule, const Request& asked, const CQnCwDB& db);

}  // namespace tz
