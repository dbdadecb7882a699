#include "desktop/report/long_work.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

#include "desktop/report/input_events.h"

namespace tz {
namespace {

constexpr int pumpIntervalMilliseconds = 50;
constexpr int momentMilliseconds = 300;

LongWork* running = nullptr;

}  // namespace

LongWork::LongWork(QWidget& window) : window_(window) {
  Q_ASSERT(running == nullptr);
  running = this;
  sinceStart_.start();
  sincePump_.start();
  qApp->installEventFilter(this);
}

LongWork::~LongWork() {
  qApp->removeEventFilter(this);
  running = nullptr;
  for (const auto& window : closeLater_) {
    if (window != nullptr) QMetaObject::invokeMethod(window.data(), &QWidget::close, Qt::QueuedConnection);
  }
}

bool LongWork::Running() { return running != nullptr; }

void LongWork::Pump(std::int64_t done, std::int64_t of) {
  done_ = done;
  of_ = of;
  if (sincePump_.elapsed() < pumpIntervalMilliseconds) return;
  if (sinceStart_.elapsed() >= momentMilliseconds) emit progressed(done, of);
  QApplication::processEvents();
  sincePump_.restart();
}

bool LongWork::Takes(const QWidget* widget) const {
  return std::ranges::any_of(allowed_, [widget](const auto& button) { return button == widget; });
}

bool LongWork::Carries(const QWidget* window) const {
  for (const QWidget* carrier = &window_; carrier != nullptr; carrier = carrier->parentWidget()) {
    if (carrier == window) return true;
  }
  return false;
}

bool LongWork::eventFilter(QObject* receiver, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(receiver);
  // The busy box and questions that the computation asks, but not a modal window that works itself.
  if (widget != nullptr && widget->window()->isModal() && !Carries(widget->window())) return false;
  // Shortcuts go to actions, everything else that counts to widgets; what the toolkit sends to its own window objects
  // reaches a widget next.
  if (event->type() == QEvent::Shortcut) return true;
  if (widget == nullptr) return false;
  if (event->type() == QEvent::Close && widget->isWindow()) {
    if (Carries(widget)) Cancel();
    closeLater_.emplace_back(widget);
    event->ignore();
    return true;
  }
  if (!isInput(event->type())) return false;
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    Cancel();
    return true;
  }
  return !Takes(widget);
}

}  // namespace tz
