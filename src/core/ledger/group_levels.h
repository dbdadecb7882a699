// The groups of a report as levels, outer one first: what each level is about and how it is captioned. Keys and the
// order of statements follow from them, so no report says its grouping twice.
#pragma once

#include <array>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "core/data/connection.h"
#include "core/grid/row_subjects.h"
#include "core/reports/conditions.h"
#include "core/reports/few.h"

namespace tz {

// `item` is an item of the class asked for, `project` one of any class: class and item. A unit's class is that of its
// record, a clerk the name on the line.
enum class Entity { dept, person, unit, unitClass, clerk, account, item, project };

// A level of grouping: its lines end in a row of this caption.
struct GroupLevel {
  Entity entity;
  std::string_view subtotal;
};

inline constexpr std::size_t mostLevels = 3;
using GroupLevels = Few<GroupLevel, mostLevels>;

// Where the levels name an entity of this kind.
[[nodiscard]] std::optional<std::size_t> levelOf(const GroupLevels& levels, Entity entity);

// ORDER BY of lines: by group, and within a group as `within` says.
[[nodiscard]] std::string orderOf(const GroupLevels& levels, std::string_view within);

// Which entity a group is about.
struct GroupPart {
  std::string text;  // project: class id; clerk: name; account: its code where they stand by code
  Id id = 0;         // all others; of a project its item

  auto operator<=>(const GroupPart&) const = default;
};

// The place of a line or balance among the groups: keys compare level by level, as the statements order them.
struct GroupKey {
  std::array<GroupPart, mostLevels> parts;

  auto operator<=>(const GroupKey&) const = default;
  // The outermost level on which two keys part; mostLevels where they are the same.
  [[nodiscard]] std::size_t partsFrom(const GroupKey& other) const;
};

// Reads the keys from the rows of a statement over lines or balances ("s."), whose columns it names.
class GroupColumns {
 public:
  // The columns follow `first` others.
  GroupColumns(const GroupLevels& levels, int first) : levels_(levels), first_(first) {}

  // ", s.lDeptId, s.lPersonId"; empty where there are no groups.
  [[nodiscard]] std::string ofLines() const;
  // The same for balances, which know no clerk: theirs is none.
  [[nodiscard]] std::string ofBalances() const;
  // Reads the key of the cursor's row into `key`; whether it differs from what stood there.
  bool read(const Cursor& row, GroupKey& key) const;

 private:
  GroupLevels levels_;
  int first_;
};

// The entity's name, its id where the ledger has no record of it.
[[nodiscard]] std::string entityName(Entity entity, const GroupPart& part, const Conditions& conditions);
// What rows of the group are about, besides what the whole report is about.
void addGroup(Subject& subject, Entity entity, const GroupPart& part, const Conditions& conditions);
// What the group of a key on a level is about, all levels outside it included.
[[nodiscard]] Subject groupSubject(const Subject& whole, const GroupLevels& levels, const GroupKey& key,
                                   std::size_t level, const Conditions& conditions);

}  // namespace tz
