// The only places that a report may write. Both databases enforce this one list: SQLite through an authorizer,
// PostgreSQL through the grants of a role.
#pragma once

#include <array>
#include <string_view>

namespace tz {

struct ReportWrite {
  enum class Action { insert, update, remove };
  Action action;
  std::string_view table;
  std::string_view column;  // for an update of one column alone; empty = every column
};

inline constexpr std::array reportWrites = {
    ReportWrite{ReportWrite::Action::update, "RegSub", "byFlag"},
    ReportWrite{ReportWrite::Action::insert, "Plan", ""},
    ReportWrite{ReportWrite::Action::update, "Plan", ""},
    ReportWrite{ReportWrite::Action::remove, "Plan", ""},
    ReportWrite{ReportWrite::Action::insert, "Ages", ""},
    ReportWrite{ReportWrite::Action::update, "Ages", ""},
    ReportWrite{ReportWrite::Action::remove, "Ages", ""},
    ReportWrite{ReportWrite::Action::insert, "MarkLog", ""},
};

}  // namespace tz
