#include "core/check/ledger_check_movements.h"

#include <fmt/format.h>

namespace tz::check {

int Movements::classPlace(const std::string& classId) {
  const auto found = std::ranges::find(classes_, classId);
  const auto place = static_cast<int>(found - classes_.begin());
  if (found == classes_.end()) classes_.push_back(classId);
  return place;
}

void Movements::add(const RegSubInfo& line, int period) {
  auto& month = moves_[key(line)][static_cast<std::size_t>(period - 1)];
  auto& side = line.bDirect != 0 ? month.debit : month.credit;
  addTo(side.money, millionths(line.mMoney));
  addTo(side.quantity, millionths(line.dAmount));
  addTo(side.foreign, millionths(line.mForeign));
}

const YearMoves& Movements::of(const MemberKey& key) const {
  static const YearMoves nothing{};
  const auto found = moves_.find(key);
  return found == moves_.end() ? nothing : found->second;
}

std::vector<MemberKey> Movements::sortedKeys() const {
  std::vector<MemberKey> keys;
  keys.reserve(moves_.size());
  for (const auto& [key, moves] : moves_) keys.push_back(key);
  std::ranges::sort(keys);
  return keys;
}

std::string Movements::text(const Facts& facts, const MemberKey& key) const {
  auto text = accountText(facts, key.account);
  if (key.dept != 0) text += fmt::format(" 部门 {}", key.dept);
  if (key.person != 0) text += fmt::format(" 个人 {}", key.person);
  if (key.unit != 0) text += fmt::format(" 单位 {}", key.unit);
  if (key.item != 0) text += fmt::format(" 项目 {}/{}", classes_[static_cast<std::size_t>(key.projectClass)], key.item);
  return text;
}

}  // namespace tz::check
