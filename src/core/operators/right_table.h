// What the numbers of rights stand for: archives, the reports of one area and kind, clearing, plans. One table; which
// reports a right opens is the catalogue's.
#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/reports/messages.h"

namespace tz {

struct Right {
  int number;
  std::string_view area;
  std::string_view name;
};

// By area, in the order of the navigator.
[[nodiscard]] std::span<const Right> rightTable();
// Null for a number that stands for nothing here.
[[nodiscard]] const Right* findRight(int number);
// "个人往来明细帐（4 号）"; a number alone where it stands for nothing.
[[nodiscard]] std::string rightText(int number);
// "科目明细帐、部门明细帐", in the catalogue's order; empty for what is no report.
[[nodiscard]] std::string reportsOfRight(int number);

// The rights that somebody names: by number, by the name of a right, an area or a report ("个人往来_三栏明细帐", or
// "三栏式明细帐" where only one right has it). Refused with what can be named instead.
[[nodiscard]] std::variant<std::set<int>, Refusal> namedRights(std::string_view word);

}  // namespace tz
