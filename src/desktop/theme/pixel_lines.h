// Lines of one width at every scale. At 125 % a line of one pixel covers one or two pixels of the screen, whichever way
// its ends are rounded; these lie on whole pixels of the screen, along the inner side of a rectangle's edge.
#pragma once

#include <QColor>
#include <QRectF>
#include <QTransform>

class QPainter;

namespace tz {

class PixelLines {
 public:
  // Of the painter as it is transformed now; it must outlive this.
  explicit PixelLines(QPainter& painter);

  // The rectangle with its edges between pixels of the screen, where fills end too; to clip by.
  [[nodiscard]] QRectF Aligned(const QRect& rect) const;
  // As wide as `width` lines beside each other.
  void Left(const QRect& rect, const QColor& colour, int width = 1) const;
  void Top(const QRect& rect, const QColor& colour, int width = 1) const;
  void Right(const QRect& rect, const QColor& colour, int width = 1) const;
  void Bottom(const QRect& rect, const QColor& colour, int width = 1) const;
  void Frame(const QRect& rect, const QColor& colour, int width = 1) const;

 private:
  [[nodiscard]] QRect OnScreen(const QRect& rect) const;
  void Fill(const QRect& onScreen, const QColor& colour) const;

  QPainter& painter_;
  QTransform toScreen_;
  QTransform fromScreen_;
  int line_;  // pixels of the screen
};

}  // namespace tz
