// Which page of the user manual a window is about. F1 opens it, wherever the focus is in the window; a window that says
// nothing is about what the window it belongs to is about.
#pragma once

#include <QVariant>
#include <QWidget>

namespace tz {

inline constexpr const char* manualPageProperty = "manualPage";

// "reports/10190", "vouchers", with a heading "conditions#保存的条件".
inline void setManualPage(QWidget& window, const QString& page) { window.setProperty(manualPageProperty, page); }

// Of the widget or the nearest above it that has one; empty for none.
[[nodiscard]] inline QString manualPageOf(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    QString page = widget->property(manualPageProperty).toString();
    if (!page.isEmpty()) return page;
  }
  return {};
}

}  // namespace tz
