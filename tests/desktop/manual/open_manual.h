// The window of the manual, where it is open.
#pragma once

#include <QApplication>

#include "desktop/manual/manual.h"
#include "desktop/manual/manual_window.h"

namespace tz::test {

inline ManualWindow* openManual() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* manual = qobject_cast<ManualWindow*>(window);
    if (manual != nullptr && manual->isVisible()) return manual;
  }
  return nullptr;
}

}  // namespace tz::test
