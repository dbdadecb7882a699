#include "desktop/frame/elided_label.h"

#include <QPainter>

namespace tz {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void ElidedLabel::SetShown(const QString& text) {
  setText(text);
  setToolTip(text);
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

}  // namespace tz
