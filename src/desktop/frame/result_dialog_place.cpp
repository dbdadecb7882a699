// The size and the place of a result window.
#include <QApplication>
#include <QScreen>
#include <QTimer>

#include "desktop/frame/fit_window.h"
#include "desktop/frame/result_dialog.h"
#include "desktop/frame/window_places.h"

namespace tz {
namespace {

// The corners of the other result windows that show in their own size.
std::vector<QPoint> cornersOfOthers(const QWidget& window) {
  std::vector<QPoint> corners;
  for (const QWidget* other : QApplication::topLevelWidgets()) {
    const bool stands = qobject_cast<const CTzResultDialog*>(other) != nullptr && other != &window &&
                        other->isVisible() && !other->isMinimized() && !other->isMaximized();
    if (stands) corners.push_back(other->frameGeometry().topLeft());
  }
  return corners;
}

}  // namespace

void CTzResultDialog::RestoreSize(QSize size) {
  resize(size);
  mayGrow_ = false;
}

void CTzResultDialog::MoveToFreePlace() {
  const QMargins frame = frameOf(*this);
  move(freePlace(screen()->availableGeometry(), size().grownBy(frame), cornersOfOthers(*this), titleBarHeight(*this)));
  givenPlace_ = pos();
}

void CTzResultDialog::ShowPlaced() {
  const bool first = !placed_;
  if (first) {
    placed_ = true;
    resize(size().boundedTo(roomFor(*this)).expandedTo(minimumSize()));
    MoveToFreePlace();
  }
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  if (first) given_ = NormalSize();
  if (first) KeepTitleInSight();
  raise();
  activateWindow();
}

void CTzResultDialog::OpenWide(int width) {
  const bool itsOwnSize = isVisible() && !isMaximized() && !isMinimized() && !isFullScreen();
  if (!mayGrow_ || !itsOwnSize || SizedByHand()) return;
  const int wide = std::min(width, roomFor(*this).width());
  if (wide <= this->width()) return;
  const int moved = (pos() - givenPlace_).manhattanLength();
  resize(wide, height());
  given_ = NormalSize();
  // What a window manager adds to a place is no move.
  if (moved < 2 * titleBarHeight(*this)) {
    MoveToFreePlace();
  } else {
    keepOnScreen(*this);
  }
  KeepTitleInSight();
}

// How thick its frame is, a window learns only after it has shown.
void CTzResultDialog::KeepTitleInSight() {
  constexpr int settled = 200;  // milliseconds
  QTimer::singleShot(settled, this, [this] {
    if (isVisible() && !isMaximized() && !isMinimized() && !isFullScreen()) keepOnScreen(*this);
  });
}

void CTzResultDialog::Arrange(const QRect& place) {
  own_ = OwnSize();
  if (isMaximized() || isMinimized() || isFullScreen()) showNormal();
  const QMargins frame = frameOf(*this);
  resize(place.marginsRemoved(frame).size());
  move(place.topLeft());
  mayGrow_ = false;
  given_ = NormalSize();
  givenPlace_ = pos();
}

QSize CTzResultDialog::NormalSize() const {
  const bool other = isMaximized() || isMinimized() || isFullScreen();
  return other && normalGeometry().isValid() ? normalGeometry().size() : size();
}

QSize CTzResultDialog::LeastPlace() const {
  return minimumSizeHint().expandedTo(minimumSize()).grownBy(frameOf(*this));
}

}  // namespace tz
