// The records of an archive in the order of its lists: what a field finds as one types, and what a reference window
// shows. They are read once and shared.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "core/reports/request.h"

namespace tz {

struct SearchEntry {
  QString code;  // may be empty
  QString name;
  Id id = 0;
  int group = -1;  // place of its group in a list of groups; -1 = none
};

// A department over its persons, a class over its units.
struct NameGroup {
  QString name;
  int depth = 0;
  Id id = 0;
};

struct NameList {
  std::vector<SearchEntry> entries;
  std::vector<int> depths;  // of the entries' names below each other; empty for a plain list
  std::vector<NameGroup> groups;
  bool lookedUpInGroup = false;  // a name need be alone in its group only

  // What a request carries of an entry: several of one name are told apart by their codes.
  [[nodiscard]] MemberChoice ChoiceOf(const SearchEntry& entry) const;
  // Empty for an entry without a group.
  [[nodiscard]] MemberChoice GroupOf(const SearchEntry& entry) const;
  // The place of a group, by its id where it was picked, else by its name; -1 for none.
  [[nodiscard]] int PlaceOfGroup(const MemberChoice& group) const;
  // Whether a member, by its id where it was picked, else by its name, is in the group at this place.
  [[nodiscard]] bool HasInGroup(const MemberChoice& member, int group) const;
  // Whether a text is how an entry may be called: its name, or its code and name.
  [[nodiscard]] bool Knows(const QString& text) const;
};
using Names = std::shared_ptr<const NameList>;

// What fields that find as one types tell of themselves.
[[nodiscard]] QString howToFind();
[[nodiscard]] QString withCode(const SearchEntry& entry);
// How many of the codes before it, in code order, each code continues.
[[nodiscard]] std::vector<int> depthsOf(const std::vector<SearchEntry>& entries);

}  // namespace tz
