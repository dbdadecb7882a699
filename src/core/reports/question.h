// A question to the person that can be answered in two ways, before something is done that is hard to take back.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/reports/messages.h"

namespace tz {

struct Question {
  std::string text;
  std::string_view caption = {};  // of the message box; empty = the program's own
  MessageIcon icon = MessageIcon::question;
  std::string_view yes = "是";
  std::string_view no = "否";
  bool defaultsToNo = false;  // where a stray Enter would lose something
};

// True where the person answers `yes`. Who gives no answer says no.
using Ask = std::function<bool(const Question&)>;

// For whoever cannot be asked: the answer was given beforehand, by an option. Where it was not, the question is told
// with the option that answers it.
[[nodiscard]] Ask answeredBefore(bool yes, std::string_view option, std::function<void(const std::string&)> tell);

}  // namespace tz
