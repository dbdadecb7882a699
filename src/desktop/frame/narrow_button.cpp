#include "desktop/frame/narrow_button.h"

namespace tz {

NarrowButton::NarrowButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize NarrowButton::sizeHint() const {
  constexpr int sides = 18;
  return {fontMetrics().horizontalAdvance(text()) + sides, QPushButton::sizeHint().height()};
}

}  // namespace tz
