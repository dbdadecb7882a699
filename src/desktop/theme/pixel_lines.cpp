#include "desktop/theme/pixel_lines.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tz {

PixelLines::PixelLines(QPainter& painter)
    : painter_(painter),
      toScreen_(painter.deviceTransform()),
      fromScreen_(toScreen_.inverted()),
      line_(std::max(1, static_cast<int>(std::floor(toScreen_.m11())))) {}

QRect PixelLines::OnScreen(const QRect& rect) const {
  const QRectF there = toScreen_.mapRect(QRectF(rect));
  const QPoint topLeft(qRound(there.left()), qRound(there.top()));
  return {topLeft, QSize(qRound(there.right()) - topLeft.x(), qRound(there.bottom()) - topLeft.y())};
}

QRectF PixelLines::Aligned(const QRect& rect) const { return fromScreen_.mapRect(QRectF(OnScreen(rect))); }

void PixelLines::Fill(const QRect& onScreen, const QColor& colour) const {
  painter_.fillRect(fromScreen_.mapRect(QRectF(onScreen)), colour);
}

void PixelLines::Left(const QRect& rect, const QColor& colour, int width) const {
  QRect there = OnScreen(rect);
  there.setWidth(width * line_);
  Fill(there, colour);
}

void PixelLines::Top(const QRect& rect, const QColor& colour, int width) const {
  QRect there = OnScreen(rect);
  there.setHeight(width * line_);
  Fill(there, colour);
}

void PixelLines::Right(const QRect& rect, const QColor& colour, int width) const {
  const QRect there = OnScreen(rect);
  Fill(there.adjusted(there.width() - width * line_, 0, 0, 0), colour);
}

void PixelLines::Bottom(const QRect& rect, const QColor& colour, int width) const {
  const QRect there = OnScreen(rect);
  Fill(there.adjusted(0, there.height() - width * line_, 0, 0), colour);
}

void PixelLines::Frame(const QRect& rect, const QColor& colour, int width) const {
  Left(rect, colour, width);
  Top(rect, colour, width);
  Right(rect, colour, width);
  Bottom(rect, colour, width);
}

}  // namespace tz
