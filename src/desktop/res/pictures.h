// Pictures by resource id. A picture is a small drawing, shared by commands of one kind, and a caption. Drawings are
// vectors that take the theme's colours, so they are crisp at every scale and in light and dark.
#pragma once

#include <QColor>
#include <QRectF>
#include <QSize>
#include <QString>
#include <span>

class QPainter;

namespace tz {

struct Picture {
  int id = 0;
  const char* drawing = "";  // file name without its ending
  const char* caption = "";  // empty for the background
};

// The picture behind the navigator and its size in pixels at 100 %.
inline constexpr int navigatorGround = 1353;

[[nodiscard]] std::span<const Picture> allPictures();
// Null for an id that has no picture.
[[nodiscard]] const Picture* findPicture(int id);
[[nodiscard]] QSize pictureSize(int id);

struct PictureColours {
  QColor ink;
  QColor accent;
};
// Nothing is drawn for an unknown id.
void paintPicture(QPainter& painter, int id, const QRectF& place, const PictureColours& colours);

}  // namespace tz
