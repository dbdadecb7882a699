// Every message of the module, in one table. Their texts are fixed; where two windows word the same thing differently,
// both wordings are kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/parameter.h"

namespace tz {

enum class MessageId {
  databaseNotOpen,             // "数据库没有打开!"
  noAccount,                   // "没有符合条件的科目!"
  noPersonAccountThreeColumn,  // dialog 513
  deptEmpty,
  deptUnknown,
  deptWithoutActivity,
  personEmpty,
  personUnknown,
  personOfOtherDept,
  personWithoutActivity,
  noProjectClass,      // command 10224
  noPlanAccount,       // command 10237
  noPlanProjectClass,  // command 10238
  linesOutsideMonths,  // notice below a detail ledger; one number
};

// The text with its arguments in the places of %d and %s.
[[nodiscard]] std::string messageText(MessageId id, const std::vector<std::string>& arguments = {});

enum class MessageIcon { information, warning };

// "No" as an answer: what a dialog shows in a message box and the command line prints before it ends with status 1.
struct Refusal {
  MessageId id;
  std::vector<std::string> arguments;
  std::string_view caption;  // of the message box; empty = the program's own
  MessageIcon icon = MessageIcon::information;
  std::optional<ParameterKey> about;  // the condition that is at fault, where it is one

  [[nodiscard]] std::string text() const { return messageText(id, arguments); }
};

}  // namespace tz
