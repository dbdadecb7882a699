// Tells a screen reader that a text of a window is new: one that interrupts, or one that it reads when asked.
#pragma once

#include <QAccessible>
#include <QWidget>

namespace tz {

inline void announce(QWidget* widget, QAccessible::Event how = QAccessible::Alert) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(widget, how);
  QAccessible::updateAccessibility(&event);
}

}  // namespace tz
