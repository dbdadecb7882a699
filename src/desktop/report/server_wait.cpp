#include "desktop/report/server_wait.h"

#include <QApplication>
#include <QKeyEvent>

#include "core/data/connection.h"

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
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) stopped_ = true;
      return true;
    case QEvent::Close:
      event->ignore();
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::Drop:
    case QEvent::Timer:
      return true;
    default:
      return false;
  }
}

}  // namespace tz
