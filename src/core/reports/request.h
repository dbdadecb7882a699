// The values of a report's conditions, as a person gave them: dialog fields, command-line options or saved conditions.
// A condition left out is an empty field. Values are checked for their kind when they are set.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/data/records.h"
#include "core/reports/parameter.h"

namespace tz {

// A member as somebody named it: by name, or by code and name ("0301 李明") where several bear one name. An id says
// that it was picked from a list: then it is that record, as long as the record goes by this text.
struct MemberChoice {
  std::string text;
  Id id = 0;  // 0: typed
};

class Request {
 public:
  // A text as it is typed. Throws WrongUse when it is no value of the condition's kind.
  void set(ParameterKey key, std::string_view text);
  // A member picked from a list.
  void choose(ParameterKey key, const MemberChoice& member);
  void clear(ParameterKey key);

  [[nodiscard]] std::string text(ParameterKey key) const;
  [[nodiscard]] MemberChoice member(ParameterKey key) const;
  [[nodiscard]] bool flag(ParameterKey key) const { return values_.contains(key); }
  [[nodiscard]] std::vector<std::string> list(ParameterKey key) const;  // the lines of a list
  [[nodiscard]] double amount(ParameterKey key) const;                  // 0 when left out
  [[nodiscard]] int month(ParameterKey key) const;                      // 0 when left out
  [[nodiscard]] std::size_t choice(ParameterKey key) const;             // its place; the first when left out
  [[nodiscard]] const std::map<ParameterKey, std::string>& values() const { return values_; }
  // The members that were picked.
  [[nodiscard]] const std::map<ParameterKey, Id>& ids() const { return ids_; }

 private:
  std::map<ParameterKey, std::string> values_;
  std::map<ParameterKey, Id> ids_;
};

// Whether both ask for the same accounts, however these are written: a code alone, or code and name.
[[nodiscard]] bool sameAccounts(const Request& one, const Request& other);

}  // namespace tz
