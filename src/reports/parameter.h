// The conditions that reports ask for. One record per condition: its option on the command line, its label, the kind of
// its value and its help; dialogs, command line and saved conditions all go by it.
#pragma once

#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tz {

enum class ParameterKey { account, dept, person, from, to, unposted, format };

struct Parameter {
  enum class Kind {
    text,   // a code, name or choice
    month,  // 1 to 12
    flag,   // given or not
  };

  ParameterKey key;
  std::string_view option;  // without its dashes
  Kind kind;
  std::string_view valueName;  // as help shows the value; empty for flags
  std::string_view help;
};

[[nodiscard]] std::span<const Parameter> allParameters();
[[nodiscard]] const Parameter& parameter(ParameterKey key);

// A value that is none of its kind, or a choice that is not offered: an error of use, not a refusal.
class WrongUse : public std::invalid_argument {
 public:
  using std::invalid_argument::invalid_argument;
};

}  // namespace tz
