#include "desktop/frame/need_bitmap.h"

#include <QLinearGradient>
#include <QPainter>
#include <QWidget>

#include "desktop/theme/theme.h"

namespace tz {
namespace {

// The height over which the light behind the heading falls off.
constexpr int headingLight = 150;

}  // namespace

void CNeedBitmap::PerpareBkGroundBitmap(QWidget* window) const { window->setAutoFillBackground(false); }

void CNeedBitmap::PaintBackground(QPainter& painter, const QWidget& widget) const {
  const Theme& theme = currentTheme();
  if (id_ != reportGround) {
    painter.fillRect(widget.rect(), theme.ground);
    return;
  }
  const int top = -widget.mapTo(widget.window(), QPoint(0, 0)).y();
  QLinearGradient light(0, top, 0, top + headingLight);
  light.setColorAt(0, theme.surface);
  light.setColorAt(1, theme.ground);
  painter.fillRect(widget.rect(), light);
}

void CNeedBitmap::DisplayAString(QPainter& painter, QPoint place, const QString& text, QColor colour,
                                 const QFont& font) {
  painter.setFont(font);
  painter.setPen(colour);
  painter.drawText(place + QPoint(0, painter.fontMetrics().ascent()), text);
}

}  // namespace tz
