#include "desktop/gridview/column_arrangement.h"

#include <algorithm>
#include <numeric>

namespace tz {
namespace {

int columnOfKey(const std::vector<QString>& keys, const QString& key) {
  const auto found = std::ranges::find(keys, key);
  return found == keys.end() ? -1 : static_cast<int>(found - keys.begin());
}

// Which columns stand in the order of the table, as many of them as possible, and rather those that nobody has moved.
std::vector<bool> unmovedOf(const std::vector<int>& order, const std::vector<bool>& touched) {
  const std::size_t count = order.size();
  const auto weightOf = [&](std::size_t place) {
    return 2 * count + (touched[static_cast<std::size_t>(order[place])] ? 0 : 1);
  };
  std::vector<std::size_t> weights(count);
  std::vector<std::size_t> before(count);
  for (std::size_t place = 0; place < count; ++place) {
    weights[place] = weightOf(place);
    before[place] = place;
    for (std::size_t earlier = 0; earlier < place; ++earlier) {
      const std::size_t joined = weights[earlier] + weightOf(place);
      if (order[earlier] > order[place] || joined <= weights[place]) continue;
      weights[place] = joined;
      before[place] = earlier;
    }
  }
  std::vector<bool> unmoved(count, false);
  if (count == 0) return unmoved;
  auto place = static_cast<std::size_t>(std::ranges::max_element(weights) - weights.begin());
  unmoved[static_cast<std::size_t>(order[place])] = true;
  while (before[place] != place) {
    place = before[place];
    unmoved[static_cast<std::size_t>(order[place])] = true;
  }
  return unmoved;
}

}  // namespace

std::vector<int> orderedColumns(const std::vector<QString>& keys, const QList<ColumnArrangement::Moved>& moved) {
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  for (const auto& [key, after] : moved) {
    const int column = columnOfKey(keys, key);
    const int anchor = columnOfKey(keys, after);
    if (column < 0 || column == anchor || (anchor < 0 && !after.isEmpty())) continue;
    std::erase(order, column);
    order.insert(anchor < 0 ? order.begin() : std::ranges::find(order, anchor) + 1, column);
  }
  return order;
}

QList<ColumnArrangement::Moved> movesTo(const std::vector<int>& order, int column, const std::vector<QString>& keys,
                                        const QList<ColumnArrangement::Moved>& before) {
  QList<ColumnArrangement::Moved> moves;
  std::vector<bool> touched(keys.size(), false);
  touched[static_cast<std::size_t>(column)] = true;
  for (const auto& move : before) {
    const int known = columnOfKey(keys, move.key);
    if (known >= 0) touched[static_cast<std::size_t>(known)] = true;
    if (known < 0 || (!move.after.isEmpty() && columnOfKey(keys, move.after) < 0)) moves.append(move);
  }
  const auto unmoved = unmovedOf(order, touched);
  for (std::size_t place = 0; place < order.size(); ++place) {
    const auto one = static_cast<std::size_t>(order[place]);
    if (unmoved[one]) continue;
    const QString& key = keys[one];
    moves.removeIf([&](const ColumnArrangement::Moved& move) { return move.key == key; });
    moves.append({key, place == 0 ? QString() : keys[static_cast<std::size_t>(order[place - 1])]});
  }
  return moves;
}

}  // namespace tz
