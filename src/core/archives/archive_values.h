// What a person writes into the fields of a record, as values of their columns. A value that may not stand is refused
// in the order of the fields, each with the first thing that is wrong with it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "core/archives/archive.h"
#include "core/reports/request.h"

namespace tz {

// One for each field: a text as it was typed, or a member that was picked, which carries its id.
using ArchiveInput = std::vector<MemberChoice>;

struct ArchiveRefusal {
  Refusal refusal;
  std::optional<std::size_t> field = {};  // at which one should look
};

// The records that fields of an archive refer to, as lists show them: code and name by id.
class ArchiveReferences {
 public:
  ArchiveReferences(const CQnCwDB& db, const Archive& archive);

  // "" for 0 and for an id that is not there.
  [[nodiscard]] std::string_view NameOf(ArchiveField::Kind kind, Id id) const;
  // The id of what a person picked or wrote: code, name, or both; nothing for what is not there, 0 for an empty text.
  [[nodiscard]] std::optional<Id> Find(ArchiveField::Kind kind, const MemberChoice& choice) const;

 private:
  struct Entry {
    std::string code, name, shown;
  };
  using Entries = std::unordered_map<Id, Entry>;
  std::unordered_map<int, Entries> entries_;  // by kind
  std::unordered_map<int, std::vector<Id>> inOrder_;
};

[[nodiscard]] std::variant<std::vector<Value>, ArchiveRefusal> readInput(const Archive& archive,
                                                                         const ArchiveReferences& references,
                                                                         const ArchiveInput& input);
// A value as it is written in a field, and as a form would give it back.
[[nodiscard]] std::string inputText(const ArchiveField& field, const Value& value);
[[nodiscard]] ArchiveInput inputOf(const Archive& archive, const ArchiveRecord& record);

// Without blanks at its ends, those of Chinese text among them.
[[nodiscard]] std::string trimmedText(std::string_view text);

}  // namespace tz
