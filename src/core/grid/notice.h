// A sentence that says what the rows of a report do not show, and how much a reader needs it.
#pragma once

#include <string>

namespace tz {

struct Notice {
  // The first ones stand above the table and look like warnings, remarks stand below it.
  enum class Weight {
    incomplete,  // lines are missing from the table
    warning,     // whoever misses it takes figures for what they are not
    remark,
  };

  std::string text;
  Weight weight = Weight::remark;

  [[nodiscard]] bool warns() const { return weight != Weight::remark; }
};

}  // namespace tz
