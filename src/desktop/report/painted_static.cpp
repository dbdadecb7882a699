#include "desktop/report/painted_static.h"

#include <QEvent>
#include <QPainter>

#include "desktop/theme/fonts.h"
#include "desktop/theme/theme.h"

namespace tz {
namespace {

constexpr int titlePixels = 30;
constexpr int labelPixels = 13;

QFont fontOf(PaintedStatic::Look look) {
  if (look == PaintedStatic::Look::label) return songFont(labelPixels);
  // Weight 650 of a face that comes in one weight: the toolkit thickens it only when bold is asked for.
  QFont font = kaiFont(titlePixels);
  font.setWeight(QFont::Bold);
  return font;
}

}  // namespace

PaintedStatic::PaintedStatic(int id, Look look, QWidget* parent) : QLabel(parent), look_(look) {
  setObjectName(QString::number(id));
  setFont(fontOf(look));
  setTextFormat(Qt::PlainText);
  window()->installEventFilter(this);
}

// A widget with a font of its own hears nothing of the application's; its window does.
bool PaintedStatic::eventFilter(QObject* window, QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) setFont(fontOf(look_));
  return QLabel::eventFilter(window, event);
}

void PaintedStatic::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const int top = (height() - fontMetrics().height()) / 2;
  const QString fitting = fontMetrics().elidedText(text(), Qt::ElideRight, width());
  CNeedBitmap::DisplayAString(painter, {0, top}, fitting, currentTheme().text, font());
}

}  // namespace tz
