#include "core/ledger/group_key.h"

#include <fmt/format.h>

namespace tz {
namespace {

std::string_view columnOf(Entity entity) {
  switch (entity) {
    case Entity::none:
      return {};
    case Entity::dept:
      return "lDeptId";
    case Entity::person:
      return "lPersonId";
    case Entity::unit:
      return "lEnterId";
    case Entity::account:
      return "lCodeId";
    case Entity::item:
    case Entity::project:
      return "lItemId";
  }
  return {};
}

}  // namespace

GroupColumns::GroupColumns(const DetailMember& member, int first) : first_(first) {
  for (const auto& group : member.groups) {
    if (group.entity == Entity::none) continue;
    columns_.at(static_cast<std::size_t>(levels_++)) = columnOf(group.entity);
    withClass_ = withClass_ || group.entity == Entity::project;
  }
}

std::string GroupColumns::names(std::string_view prefix) const {
  std::string names;
  for (int level = 0; level < levels_; ++level) {
    names += fmt::format(", {}{}", prefix, columns_.at(static_cast<std::size_t>(level)));
  }
  if (withClass_) names += fmt::format(", {}sItemId", prefix);
  return names;
}

bool GroupColumns::read(const Cursor& row, GroupKey& key) const {
  bool differs = false;
  for (int level = 0; level < levels_; ++level) {
    auto& id = key.ids.at(static_cast<std::size_t>(level));
    const auto read = row.integer(first_ + level);
    differs = differs || read != id;
    id = read;
  }
  if (!withClass_) return differs;
  const auto itemClass = row.text(first_ + levels_);
  if (itemClass == key.itemClass) return differs;
  key.itemClass = itemClass;
  return true;
}

std::string entityName(Entity entity, const GroupKey& key, std::size_t level, const Conditions& conditions) {
  auto& data = *conditions.data;
  const Id id = key.ids.at(level);
  const auto name = [&]() -> std::string {
    switch (entity) {
      case Entity::none:
        return {};
      case Entity::dept:
        return data.GetDeptName(id);
      case Entity::person:
        return data.GetPersonName(id);
      case Entity::unit:
        return data.GetUnitName(id);
      case Entity::account:
        return data.GetCodeName(id);
      case Entity::item:
        return data.GetItemName(conditions.projectClass.sItemId, id);
      case Entity::project:
        return data.GetItemName(key.itemClass, id);
    }
    return {};
  }();
  return name.empty() ? fmt::format("（编号 {}）", id) : name;
}

}  // namespace tz
