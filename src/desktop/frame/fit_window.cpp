#include "desktop/frame/fit_window.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

namespace tz {
namespace {

// What a window manager puts around a window, before it has told.
constexpr QMargins usualFrame(6, 34, 6, 6);

// Layouts hear of a change inside them only later; here at once, from the inside out. Returns the window.
QWidget& settled(QWidget& changed) {
  QWidget* window = &changed;
  for (;; window = window->parentWidget()) {
    window->updateGeometry();
    if (window->layout() != nullptr) window->layout()->activate();
    if (window->isWindow()) return *window;
  }
}

}  // namespace

// A window that has not shown gets what stands around the one that it belongs to.
QMargins frameOf(const QWidget& window) {
  const QRect inside = window.geometry();
  const QRect outside = window.frameGeometry();
  const QWidget* owner = window.parentWidget();
  if (outside == inside) return owner == nullptr ? usualFrame : frameOf(*owner->window());
  return {inside.left() - outside.left(), inside.top() - outside.top(), outside.right() - inside.right(),
          outside.bottom() - inside.bottom()};
}

int titleBarHeight(const QWidget& window) {
  constexpr int lowest = 24;
  return std::max(frameOf(window).top(), lowest);
}

QSize roomFor(const QWidget& window) { return window.screen()->availableSize().shrunkBy(frameOf(window)); }

void keepOnScreen(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry().marginsRemoved(frameOf(window));
  QRect place = window.geometry();
  place.moveBottom(std::min(place.bottom(), screen.bottom()));
  place.moveRight(std::min(place.right(), screen.right()));
  place.moveTop(std::max(place.top(), screen.top()));
  place.moveLeft(std::max(place.left(), screen.left()));
  if (place != window.geometry()) window.setGeometry(place);
}

void fitToContents(QWidget& changed) {
  QWidget& window = settled(changed);
  window.resize(window.sizeHint().boundedTo(roomFor(window)).expandedTo(window.minimumSize()));
  if (window.isVisible()) keepOnScreen(window);
}

void growToContents(QWidget& changed) {
  QWidget& window = settled(changed);
  const QLayout& layout = *window.layout();
  const int wanted =
      layout.hasHeightForWidth() ? layout.minimumHeightForWidth(window.width()) : layout.minimumSize().height();
  const int height = std::min(wanted, roomFor(window).height());
  if (height <= window.height()) return;
  window.resize(window.width(), height);
  if (window.isVisible()) keepOnScreen(window);
}

ContentsArea::ContentsArea(QWidget* contents, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(contents);
  contents->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* now) {
    if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now, 0, 0);
  });
}

QSize ContentsArea::sizeHint() const { return widget()->sizeHint().expandedTo({minimumSizeHint().width(), 0}); }

QSize ContentsArea::minimumSizeHint() const {
  constexpr int leastRows = 3;
  const QSize least = widget()->minimumSizeHint();
  const int height = std::min(least.height(), leastRows * (fontMetrics().height() + 2 * fontMetrics().lineSpacing()));
  return {least.width() + verticalScrollBar()->sizeHint().width(), height};
}

bool ContentsArea::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == widget() && event->type() == QEvent::LayoutRequest) KeepHeight();
  return QScrollArea::eventFilter(receiver, event);
}

void ContentsArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  KeepHeight();
}

void ContentsArea::KeepHeight() {
  const QLayout* layout = widget()->layout();
  if (layout == nullptr || !layout->hasHeightForWidth()) return;
  widget()->setMinimumHeight(layout->totalMinimumHeightForWidth(viewport()->width()));
}

}  // namespace tz
