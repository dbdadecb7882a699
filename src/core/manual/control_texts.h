// What the manual says of a condition: what it means, what its list offers, whether it may stay empty.
#pragma once

#include <optional>
#include <string>

#include "core/reports/report_definition.h"

namespace tz::manual {

// Which accounts a dialog offers, in words; empty for a statement that the manual does not know.
[[nodiscard]] std::string_view accountsInWords(std::string_view accountWhere);

struct ControlText {
  std::string caption;
  std::string meaning;
  std::string empty;  // what happens when it stays empty
};
[[nodiscard]] ControlText controlText(const ControlSpec& control, const DialogSpec& dialog);
// The conditions that its emptied list is asked for again; nothing where the dialog has words of its own.
[[nodiscard]] std::optional<ParameterKey> demanded(const ControlSpec& control);

}  // namespace tz::manual
