#include "desktop/report/server_wait.h"

#include <QApplication>
#include <QKeyEvent>

#include "core/data/connection.h"
#include "desktop/report/input_events.h"

namespace tz {

ServerWait::ServerWait() {
  serverWaitCheck() = [this](std::chrono::milliseconds waited) { return GiveUp(waited); };
}

ServerWait::~ServerWait() { serverWaitCheck() = nullptr; }

bool ServerWait::GiveUp(std::chrono::milliseconds waited) {
  if (pumping_) return false;
  if (waited < waited_) stopped_ = false;  // another wait
  waited_ = waited;
  pumping_ = true;
  qApp->installEventFilter(this);
  QApplication::processEvents();
  qApp->removeEventFilter(this);
  pumping_ = false;
  return stopped_;
}

// Timers fire again later; what they would do might ask the same connection.
bool ServerWait::eventFilter(QObject* /*receiver*/, QEvent* event) {
  const auto type = event->type();
  const bool key = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
  if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) stopped_ = true;
  if (type == QEvent::Close) event->ignore();
  return isInput(type) || type == QEvent::ShortcutOverride || type == QEvent::Shortcut || type == QEvent::Close ||
         type == QEvent::Timer;
}

}  // namespace tz
