// Where windows stand among each other on a screen. Places are those of whole windows, their frames included; none
// reaches beyond the screen as long as it fits.
#pragma once

#include <QRect>
#include <vector>

namespace tz {

// The top left corner of a new window: in the middle, or aside by steps where one of the others has its corner. A
// window that would leave the screen begins again in its corner.
[[nodiscard]] QPoint freePlace(const QRect& screen, QSize size, const std::vector<QPoint>& taken, int step);

// Windows beside and below each other that fill the screen. Where they would get less than `least`, they overlap.
[[nodiscard]] std::vector<QRect> sideBySide(const QRect& screen, int count, QSize least);

// Windows behind each other, each with its own size, so that every title bar can be seen.
[[nodiscard]] std::vector<QRect> oneBehindTheOther(const QRect& screen, const std::vector<QSize>& sizes, int step);

}  // namespace tz
