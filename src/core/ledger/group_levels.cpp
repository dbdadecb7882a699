#include "core/ledger/group_levels.h"

#include <algorithm>
#include <fmt/format.h>

namespace tz {
namespace {

// The columns of a level's key; either may be missing.
struct KeyColumns {
  std::string_view text;
  std::string_view id;
};

KeyColumns columnsOf(Entity entity) {
  switch (entity) {
    case Entity::dept:
      return {{}, "s.lDeptId"};
    case Entity::person:
      return {{}, "s.lPersonId"};
    case Entity::unit:
      return {{}, "s.lEnterId"};
    case Entity::unitClass:
      return {{}, "COALESCE((SELECT Enter.lClassId FROM Enter WHERE Enter.lId = s.lEnterId), 0)"};
    case Entity::clerk:
      return {"s.sName", {}};
    case Entity::account:
      return {{}, "s.lCodeId"};
    case Entity::item:
      return {{}, "s.lItemId"};
    case Entity::project:
      return {"s.sItemId", "s.lItemId"};
  }
  return {};
}

void list(std::string& names, std::string_view column) {
  if (!column.empty()) names += fmt::format(", {}", column);
}

std::string recordedName(Entity entity, const GroupPart& part, const Conditions& conditions) {
  auto& data = *conditions.data;
  switch (entity) {
    case Entity::dept:
      return data.GetDeptName(part.id);
    case Entity::person:
      return data.GetPersonName(part.id);
    case Entity::unit:
      return data.GetUnitName(part.id);
    case Entity::unitClass:
      return part.id == 0 ? std::string(otherMembers) : data.GetEnterClassName(part.id);
    case Entity::clerk:
      return part.text.empty() ? std::string(otherMembers) : part.text;
    case Entity::account:
      return data.GetCodeName(part.id);
    case Entity::item:
      return data.GetItemName(conditions.projectClass.sItemId, part.id);
    case Entity::project:
      return data.GetItemName(part.text, part.id);
  }
  return {};
}

}  // namespace

std::optional<std::size_t> levelOf(const GroupLevels& levels, Entity entity) {
  const auto* const found = std::ranges::find(levels, entity, &GroupLevel::entity);
  if (found == levels.end()) return std::nullopt;
  return static_cast<std::size_t>(found - levels.begin());
}

std::string orderOf(const GroupLevels& levels, std::string_view within) {
  auto order = GroupColumns(levels, 0).ofLines();
  list(order, within);
  return order.empty() ? order : order.substr(2);
}

std::size_t GroupKey::partsFrom(const GroupKey& other) const {
  const auto at = std::ranges::mismatch(parts, other.parts);
  return static_cast<std::size_t>(at.in1 - parts.begin());
}

std::string GroupColumns::ofLines() const {
  std::string names;
  for (const auto& level : levels_) {
    const auto columns = columnsOf(level.entity);
    list(names, columns.text);
    list(names, columns.id);
  }
  return names;
}

std::string GroupColumns::ofBalances() const {
  std::string names;
  for (const auto& level : levels_) {
    const auto columns = columnsOf(level.entity);
    list(names, level.entity == Entity::clerk ? "''" : columns.text);
    list(names, columns.id);
  }
  return names;
}

bool GroupColumns::read(const Cursor& row, GroupKey& key) const {
  bool differs = false;
  int column = first_;
  for (std::size_t level = 0; level < levels_.size(); ++level) {
    auto& part = key.parts.at(level);
    const auto columns = columnsOf(levels_[level].entity);
    if (!columns.text.empty()) {
      const auto text = row.text(column++);
      if (text != part.text) {
        part.text = text;
        differs = true;
      }
    }
    if (columns.id.empty()) continue;
    const auto id = row.integer(column++);
    differs = differs || id != part.id;
    part.id = id;
  }
  return differs;
}

std::string entityName(Entity entity, const GroupPart& part, const Conditions& conditions) {
  return nameOrNumber(recordedName(entity, part, conditions), part.id);
}

void addGroup(Subject& subject, Entity entity, const GroupPart& part, const Conditions& conditions) {
  switch (entity) {
    case Entity::dept:
      subject.dept = part.id;
      break;
    case Entity::person:
      subject.person = part.id;
      break;
    case Entity::unit:
      subject.unit = part.id;
      break;
    case Entity::unitClass:
      subject.unitClass = part.id;
      break;
    case Entity::clerk:
      subject.clerk = part.text;
      break;
    case Entity::account:
      subject.account = part.id;
      break;
    case Entity::item:
      subject.item = part.id;
      subject.itemClass = conditions.projectClass.sItemId;
      break;
    case Entity::project:
      subject.item = part.id;
      subject.itemClass = part.text;
      break;
  }
}

Subject groupSubject(const Subject& whole, const GroupLevels& levels, const GroupKey& key, std::size_t level,
                     const Conditions& conditions) {
  Subject subject = whole;
  for (std::size_t outer = 0; outer <= level; ++outer) {
    addGroup(subject, levels[outer].entity, key.parts.at(outer), conditions);
  }
  return subject;
}

}  // namespace tz
