// The values of a report's conditions, as a person gave them: dialog fields, command-line options or saved conditions.
// A condition left out is an empty field. Values are checked for their kind when they are set.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "reports/parameter.h"

namespace tz {

class Request {
 public:
  // Throws WrongUse, naming the option, when the text is no value of the condition's kind.
  void set(ParameterKey key, std::string_view text);
  void clear(ParameterKey key) { values_.erase(key); }

  [[nodiscard]] std::string text(ParameterKey key) const;
  [[nodiscard]] bool flag(ParameterKey key) const { return values_.contains(key); }
  [[nodiscard]] std::vector<std::string> list(ParameterKey key) const;  // the lines of a list
  [[nodiscard]] double amount(ParameterKey key) const;                  // 0 when left out
  [[nodiscard]] int month(ParameterKey key) const;                      // 0 when left out
  [[nodiscard]] const std::map<ParameterKey, std::string>& values() const { return values_; }

 private:
  std::map<ParameterKey, std::string> values_;
};

}  // namespace tz
