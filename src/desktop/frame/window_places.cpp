#include "desktop/frame/window_places.h"

#include <algorithm>
#include <cmath>

namespace tz {
namespace {

bool standsOn(QPoint one, QPoint other, int step) {
  const QPoint between = one - other;
  return 2 * std::abs(between.x()) < step && 2 * std::abs(between.y()) < step;
}

// One of `count` equal parts of a length, at least `least` long: the parts overlap where there is no room for all.
struct Part {
  int start;
  int length;
};
Part partOf(int length, int count, int place, int least) {
  const int own = std::min(std::max(length / count, least), length);
  return {count == 1 ? 0 : (length - own) * place / (count - 1), own};
}

}  // namespace

QPoint freePlace(const QRect& screen, QSize size, const std::vector<QPoint>& taken, int step) {
  const QSize room = screen.size() - size;
  const auto inside = [&](QPoint place) { return screen.contains(QRect(place, size)); };
  QPoint place = screen.topLeft() + QPoint(std::max(room.width(), 0), std::max(room.height(), 0)) / 2;
  const auto isTaken = [&] {
    return std::ranges::any_of(taken, [&](QPoint other) { return standsOn(place, other, step); });
  };
  for (int wraps = 0; isTaken();) {
    place += QPoint(step, step);
    if (inside(place)) continue;
    // Each round begins a little further right, so that it meets other corners.
    place = screen.topLeft() + QPoint(wraps * step, 0);
    if (!inside(place)) return screen.topLeft();
    ++wraps;
  }
  return place;
}

std::vector<QRect> sideBySide(const QRect& screen, int count, QSize least) {
  std::vector<QRect> places;
  if (count == 0) return places;
  const int columns = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(count))));
  // The first columns hold fewer, so that two windows stand beside each other and the first of three is the highest.
  const int rows = count / columns;
  const int longer = count % columns;
  for (int column = 0; column < columns; ++column) {
    const int inColumn = rows + (column >= columns - longer ? 1 : 0);
    const Part across = partOf(screen.width(), columns, column, least.width());
    for (int row = 0; row < inColumn; ++row) {
      const Part down = partOf(screen.height(), inColumn, row, least.height());
      places.emplace_back(screen.topLeft() + QPoint(across.start, down.start), QSize(across.length, down.length));
    }
  }
  return places;
}

std::vector<QRect> oneBehindTheOther(const QRect& screen, const std::vector<QSize>& sizes, int step) {
  std::vector<QRect> places;
  QPoint place = screen.topLeft();
  for (const QSize& size : sizes) {
    QRect next(place, size.boundedTo(screen.size()));
    if (!screen.contains(next)) next.moveTopLeft(screen.topLeft() + QPoint(place.x() - screen.x(), 0));
    if (!screen.contains(next)) next.moveTopLeft(screen.topLeft());
    places.push_back(next);
    place = next.topLeft() + QPoint(step, step);
  }
  return places;
}

}  // namespace tz
