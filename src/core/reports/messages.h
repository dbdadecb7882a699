// Messages: what dialogs and windows say, one constant each. Their texts are fixed; where two windows word the same
// thing differently, both wordings are kept. Here stand those of several families; those of one family stand beside its
// dialogs. A message that tells a name or a number is a function of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/connection.h"
#include "core/reports/parameter.h"

namespace tz {

enum class MessageIcon { information, warning, question };

struct Message {
  std::string_view text;
  std::string_view caption = {};  // of the message box; empty = that of its dialog, or else the program's own
  MessageIcon icon = MessageIcon::information;
};

namespace messages {

inline constexpr Message databaseNotOpen{"数据库没有打开!"};
inline constexpr Message noMatchingAccount{"没有符合条件的科目!"};
inline constexpr Message defineProjectClassFirst{"请先定义项目大类!"};
inline constexpr Message amountRangeInvalid{"金额范围不合法!"};

// A text that a list does not offer, where the dialog has no words for it.
[[nodiscard]] std::string notListed(std::string_view asked);
// An emptied list in which something has to be chosen.
[[nodiscard]] std::string choiceWanted(ParameterKey key);

}  // namespace messages

// "No" as an answer: what a dialog shows in a message box and the command line prints before it ends with status 1.
struct Refusal {
  std::string text;
  std::string_view caption = {};  // of the message box; empty = the program's own
  MessageIcon icon = MessageIcon::information;
  std::optional<ParameterKey> about = {};  // the condition that is at fault, where it is one
  // Why the ledger could not be read, where that is behind it: said below the text.
  std::optional<DbError> failure = {};
  std::vector<std::string> offered = {};  // what could be chosen instead, for whoever sees no list
  bool ledgerNotOpen = false;             // nothing could be asked of the ledger
};

[[nodiscard]] Refusal refusalWith(const Message& message);

}  // namespace tz
