#include "desktop/picking/name_list.h"

#include <algorithm>

#include "desktop/theme/qt_text.h"

namespace tz {

QString howToFind() { return QStringLiteral("输入编码、名称的一部分或拼音首字母查找，F2 打开参照窗口"); }

QString withCode(const SearchEntry& entry) {
  return entry.code.isEmpty() ? entry.name : entry.code + u' ' + entry.name;
}

MemberChoice NameList::ChoiceOf(const SearchEntry& entry) const {
  const auto bearsItsName = [&](const SearchEntry& other) {
    return other.name == entry.name && (!lookedUpInGroup || other.group == entry.group);
  };
  const bool alone = std::ranges::count_if(entries, bearsItsName) == 1;
  return {fromQt(alone ? entry.name : withCode(entry)), entry.id};
}

MemberChoice NameList::GroupOf(const SearchEntry& entry) const {
  if (entry.group < 0) return {};
  const auto& group = groups[static_cast<std::size_t>(entry.group)];
  return {fromQt(group.name), group.id};
}

int NameList::PlaceOfGroup(const MemberChoice& group) const {
  if (group.text.empty()) return -1;
  const QString name = toQt(group.text);
  const auto found = std::ranges::find_if(
      groups, [&](const NameGroup& one) { return group.id != 0 ? one.id == group.id : one.name == name; });
  return found == groups.end() ? -1 : static_cast<int>(found - groups.begin());
}

bool NameList::HasInGroup(const MemberChoice& member, int group) const {
  const QString text = toQt(member.text);
  return std::ranges::any_of(entries, [&](const SearchEntry& entry) {
    if (entry.group != group) return false;
    return member.id != 0 ? entry.id == member.id : entry.name == text || withCode(entry) == text;
  });
}

bool NameList::Knows(const QString& text) const {
  return std::ranges::any_of(entries,
                             [&](const SearchEntry& entry) { return entry.name == text || withCode(entry) == text; });
}

std::vector<int> depthsOf(const std::vector<SearchEntry>& entries) {
  std::vector<int> depths;
  std::vector<QString> above;
  for (const auto& entry : entries) {
    while (!above.empty() && (entry.code.size() <= above.back().size() || !entry.code.startsWith(above.back()))) {
      above.pop_back();
    }
    depths.push_back(static_cast<int>(above.size()));
    if (!entry.code.isEmpty()) above.push_back(entry.code);
  }
  return depths;
}

}  // namespace tz
