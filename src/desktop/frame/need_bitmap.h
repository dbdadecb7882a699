// CNeedBitmap: the common background of report windows, and the texts painted on it. Colours are the theme's at the
// moment of painting.
#pragma once

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QString>

class QPainter;
class QWidget;

namespace tz {

class CNeedBitmap {
 public:
  static constexpr int reportGround = 191;

  void LoadBkGroundBitmap(int id) { id_ = id; }
  // Makes the window leave its ground to this background.
  void PerpareBkGroundBitmap(QWidget* window) const;
  // Paints the part of the background that lies behind `widget`, whose window carries it.
  void PaintBackground(QPainter& painter, const QWidget& widget) const;
  // Paints a text with its top left corner at `place`.
  static void DisplayAString(QPainter& painter, QPoint place, const QString& text, QColor colour, const QFont& font);

 private:
  int id_ = 0;
};

}  // namespace tz
